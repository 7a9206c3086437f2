// Items side by side, on further lines where there is no room.
#pragma once

#include <QLayout>
#include <vector>

namespace zendara {

class FlowLayout final : public QLayout {
 public:
  using QLayout::QLayout;
  ~FlowLayout() override;

  void AddLayout(QLayout* layout);  // owned from here on
  // What a line has left over goes here, in equal shares, and otherwise behind its last item.
  void AddSpace();

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  QSize sizeHint() const override;     // of one line
  QSize minimumSize() const override;  // of the widest item
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  void setGeometry(const QRect& place) override;

 private:
  // Height of all lines in that place; puts the items there if they are to be moved.
  int Lines(const QRect& place, bool move) const;

  std::vector<QLayoutItem*> items_;
};

}  // namespace zendara
