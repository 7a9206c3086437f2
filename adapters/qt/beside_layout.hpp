// A part of a form and a picture at its right, where there is room for both.
#pragma once

#include <QLayout>
#include <memory>

namespace zendara {

// Where both are too wide the picture gets smaller, then what can of the part goes on further lines, and then the
// picture is left out: it has no size then, so a screen reader still finds its words.
class BesideLayout final : public QLayout {
 public:
  // The size of the picture in twips, before scaling. REQUIRES: both are added to the widget that this lies in.
  BesideLayout(QLayout* part, QWidget& picture, QSize twips);
  ~BesideLayout() override;

  void addItem(QLayoutItem* /*item*/) override {}  // it has its two
  int count() const override { return static_cast<int>(part_ != nullptr) + static_cast<int>(picture_ != nullptr); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  QSize sizeHint() const override;
  QSize minimumSize() const override { return part_->minimumSize(); }
  bool hasHeightForWidth() const override { return part_->hasHeightForWidth(); }
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& place) override;

 private:
  QSize Wanted() const;  // by the picture, in pixels
  QSize Least() const;
  int NarrowWidth() const;
  // Of the picture in such a place; 0 when it is left out.
  int WidthIn(QSize place) const;

  QSize twips_;
  std::unique_ptr<QLayoutItem> part_;
  std::unique_ptr<QLayoutItem> picture_;
};

}  // namespace zendara
