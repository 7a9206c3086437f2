// The pages of a listing, one below the other on white paper, whatever the colours around.
#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QImage>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/cairo/pango_text.hpp"
#include "print/paged_listing.hpp"

namespace zendara {

class ListingView : public QAbstractScrollArea {
 public:
  // REQUIRES: both outlive it. It begins as wide as the paper.
  ListingView(const print::PagedListing& listing, const PangoMeasure& measure, QWidget* parent);

  // Another page, another size: called then.
  void OnChanged(std::function<void()> changed) { changed_ = std::move(changed); }
  // More of the listing was read.
  void Refresh();

  // From 0: the one that the upper part of the view shows.
  std::size_t Page() const;
  // What it says, a line a row, the columns separated by tabs.
  QString TextOfPage() const;
  // Its upper end, or the last page when there are fewer.
  void GoTo(std::size_t page);
  // By so many lines of text, by so many parts of the view.
  void Scroll(int lines_across, int lines_down);
  void ScrollViews(int views);

  // Percent of the size on paper.
  int Percent() const { return percent_; }
  void Larger();
  void Smaller();
  void SetPercent(int percent);
  // As large as fits, also when the window changes.
  void FitWidth();

  // Marks the text wherever it stands; empty: nowhere.
  void Mark(const std::string& text);
  // The row that is the one found, in view; nothing: none is.
  void ShowFound(std::optional<std::size_t> row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  using Hits = std::vector<print::PagedListing::Hit>;
  struct Shown {
    print::Page page;
    Hits hits;
  };

  double Scale() const;  // pixels to a twip
  QSize PageSize() const;
  int Gap() const;
  int TopOf(std::size_t page) const;  // of all that can be scrolled
  int LeftOf() const;                 // in the view
  const Shown& Take(std::size_t page);
  void Zoom(int percent);
  void SetRange();
  void FitToView();
  QImage Picture(const QRect& place);

  const print::PagedListing& listing_;
  const PangoMeasure& measure_;
  std::function<void()> changed_;
  int percent_ = 100;
  bool fits_ = true;
  std::string marked_;
  std::optional<std::size_t> found_;
  QCache<std::size_t, Shown> pages_;
  std::size_t known_;     // pages, when they were counted last
  std::size_t page_ = 0;  // that was said last
};

}  // namespace zendara
