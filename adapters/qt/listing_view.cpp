#include "adapters/qt/listing_view.hpp"

#include <QAccessibleWidget>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <variant>

#include "adapters/cairo/page_drawing.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/text.hpp"
#include "runtime/failure.hpp"

namespace zendara {
namespace {

constexpr double kTwipsPerPixel = 15;  // on paper of 100 percent
constexpr int kSizes[] = {25, 33, 50, 67, 75, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};
constexpr int kPagesKept = 16;

// The pages as one text, of which the reader sees the page in front.
class PagesAccessible : public QAccessibleWidget {
 public:
  explicit PagesAccessible(ListingView* view) : QAccessibleWidget(view, QAccessible::Document), view_(*view) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? view_.TextOfPage() : QAccessibleWidget::text(kind);
  }

 private:
  ListingView& view_;
};

QAccessibleInterface* Accessible(const QString& /*key*/, QObject* object) {
  auto* view = dynamic_cast<ListingView*>(object);
  return view ? new PagesAccessible(view) : nullptr;
}

}  // namespace

ListingView::ListingView(const print::PagedListing& listing, const PangoMeasure& measure, QWidget* parent)
    : QAbstractScrollArea(parent), listing_(listing), measure_(measure), pages_(kPagesKept), known_(listing.Pages()) {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(Accessible), true);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void ListingView::Refresh() {
  // "Página n de m": those in view say what was known then, until all is.
  if (listing_.Complete()) pages_.clear();
  const bool in_view = TopOf(std::exchange(known_, listing_.Pages())) < verticalScrollBar()->value() + height();
  SetRange();
  if (in_view || listing_.Complete()) viewport()->update();
}

// Places.

double ListingView::Scale() const { return percent_ / 100.0 / kTwipsPerPixel; }

QSize ListingView::PageSize() const {
  const print::Paper& paper = listing_.PaperOf();
  return {qRound(paper.width * Scale()), qRound(paper.height * Scale())};
}

int ListingView::Gap() const { return fontMetrics().height() / 2; }

int ListingView::TopOf(std::size_t page) const {
  return Gap() + static_cast<int>(page) * (PageSize().height() + Gap());
}

int ListingView::LeftOf() const {
  const int room = viewport()->width() - PageSize().width();
  return room >= 2 * Gap() ? room / 2 : Gap() - horizontalScrollBar()->value();
}

// Each page, the last one too, can be at the top.
void ListingView::SetRange() {
  const QSize view = viewport()->size();
  const QSize page = PageSize();
  const int last = TopOf(listing_.Pages() - 1) - Gap();
  verticalScrollBar()->setRange(0, std::max(last, TopOf(listing_.Pages()) - view.height()));
  verticalScrollBar()->setPageStep(view.height());
  verticalScrollBar()->setSingleStep(2 * fontMetrics().height());
  horizontalScrollBar()->setRange(0, std::max(page.width() + 2 * Gap() - view.width(), 0));
  horizontalScrollBar()->setPageStep(view.width());
  horizontalScrollBar()->setSingleStep(2 * fontMetrics().height());
}

std::size_t ListingView::Page() const {
  const int height = PageSize().height() + Gap();
  const int at = verticalScrollBar()->value() + std::min(viewport()->height() / 3, height / 2);
  return std::min(static_cast<std::size_t>(at / height), listing_.Pages() - 1);
}

void ListingView::GoTo(std::size_t page) {
  verticalScrollBar()->setValue(TopOf(std::min(page, listing_.Pages() - 1)) - Gap());
}

void ListingView::Scroll(int lines_across, int lines_down) {
  const auto move = [](QScrollBar& bar, int lines) { bar.setValue(bar.value() + lines * bar.singleStep()); };
  move(*horizontalScrollBar(), lines_across);
  move(*verticalScrollBar(), lines_down);
}

void ListingView::ScrollViews(int views) {
  const int step = viewport()->height() - 2 * fontMetrics().height();
  verticalScrollBar()->setValue(verticalScrollBar()->value() + views * step);
}

void ListingView::scrollContentsBy(int dx, int dy) {
  viewport()->scroll(dx, dy);
  if (page_ == Page()) return;
  page_ = Page();
  if (changed_) changed_();
}

void ListingView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (fits_) FitToView();
  SetRange();
  viewport()->update();
}

void ListingView::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  if (event->angleDelta().y() > 0) Larger();
  if (event->angleDelta().y() < 0) Smaller();
}

// Size.

void ListingView::Larger() {
  const auto* step = std::ranges::upper_bound(kSizes, percent_);
  SetPercent(step == std::end(kSizes) ? *std::prev(step) : *step);
}

void ListingView::Smaller() {
  const auto* step = std::ranges::lower_bound(kSizes, percent_);
  SetPercent(step == std::begin(kSizes) ? *step : *std::prev(step));
}

void ListingView::SetPercent(int percent) {
  fits_ = false;
  Zoom(percent);
}

void ListingView::FitWidth() {
  fits_ = true;
  FitToView();
}

void ListingView::FitToView() {
  const int room = viewport()->width() - 2 * Gap();
  Zoom(static_cast<int>(room * kTwipsPerPixel * 100 / listing_.PaperOf().width));
}

// What is at the upper edge stays there.
void ListingView::Zoom(int percent) {
  const int height = PageSize().height() + Gap();
  const double place = verticalScrollBar()->value() / static_cast<double>(height);
  percent_ = std::clamp(percent, *std::begin(kSizes), *std::prev(std::end(kSizes)));
  SetRange();
  verticalScrollBar()->setValue(static_cast<int>(std::lround(place * (PageSize().height() + Gap()))));
  viewport()->update();
  if (changed_) changed_();
}

// Search.

void ListingView::Mark(const std::string& text) {
  if (text == marked_) return;
  marked_ = text;
  pages_.clear();
  viewport()->update();
}

// With something around it, unless it is in view already.
void ListingView::ShowFound(std::optional<std::size_t> row) {
  found_ = row;
  viewport()->update();
  if (!row) return;
  const std::size_t page = listing_.PageOf(*row);
  const Shown& shown = Take(page);
  const auto hit = std::ranges::find(shown.hits, *row, &print::PagedListing::Hit::row);
  if (hit == shown.hits.end()) return GoTo(page);
  const QRect place(qRound(hit->x * Scale()), TopOf(page) + qRound(hit->top * Scale()), qRound(hit->width * Scale()),
                    qRound(hit->height * Scale()));
  const auto bring = [](QScrollBar& bar, int from, int to, int room) {
    const int margin = std::min(room / 8, std::max((room - (to - from)) / 2, 0));
    if (from - margin < bar.value() || to + margin > bar.value() + room) bar.setValue((from + to - room) / 2);
  };
  bring(*verticalScrollBar(), place.top(), place.bottom(), viewport()->height());
  bring(*horizontalScrollBar(), place.left() + Gap(), place.right() + Gap(), viewport()->width());
}

// Pages.

const ListingView::Shown& ListingView::Take(std::size_t page) {
  if (const Shown* kept = pages_.object(page)) return *kept;
  auto* shown = new Shown{listing_.PageAt(page), marked_.empty() ? Hits() : listing_.HitsOn(page, marked_)};
  pages_.insert(page, shown);
  return *shown;
}

QString ListingView::TextOfPage() const {
  QString text;
  const print::TextRun* before = nullptr;
  const print::Page page = listing_.PageAt(Page());
  for (const print::Mark& mark : page.marks) {
    const auto* run = std::get_if<print::TextRun>(&mark);
    if (!run) continue;
    if (before) text += QLatin1Char(before->baseline == run->baseline ? '\t' : '\n');
    text += ToQt(run->text);
    before = run;
  }
  return text;
}

QImage ListingView::Picture(const QRect& place) {
  const double ratio = viewport()->devicePixelRatioF();
  QImage picture(
      QSize(static_cast<int>(std::ceil(place.width() * ratio)), static_cast<int>(std::ceil(place.height() * ratio))),
      QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  picture.fill(ColourOf(Role::kHeading));
  const QSize size = PageSize();
  const int above = verticalScrollBar()->value();
  const int height = size.height() + Gap();
  const std::size_t last = std::min(static_cast<std::size_t>((above + place.bottom()) / height), listing_.Pages() - 1);
  for (auto page = static_cast<std::size_t>((above + place.top()) / height); page <= last; ++page) {
    const Shown& shown = Take(page);
    const QPoint corner = QPoint(LeftOf(), TopOf(page) - above) - place.topLeft();
    {
      QPainter painter(&picture);
      painter.setPen(ColourOf(Role::kBorder));
      painter.setBrush(ColourOf(Role::kInput, Colours::kLight));
      painter.drawRect(QRect(corner, size).adjusted(-1, -1, 0, 0));
      for (const auto& hit : shown.hits) {
        const QRectF mark(corner.x() + hit.x * Scale(), corner.y() + hit.top * Scale(), hit.width * Scale(),
                          hit.height * Scale());
        painter.fillRect(mark, ColourOf(Role::kFound, Colours::kLight));
        if (found_ != hit.row) continue;
        const double ring = RingWidth(fontMetrics());
        painter.setPen(QPen(ColourOf(Role::kWarning, Colours::kLight), ring));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(mark.adjusted(-ring, -ring / 2, ring, ring / 2));
      }
    }
    DrawPage(shown.page, measure_,
             {.data = picture.bits(),
              .width = picture.width(),
              .height = picture.height(),
              .stride = static_cast<int>(picture.bytesPerLine())},
             corner.x() * ratio, corner.y() * ratio, Scale() * ratio);
  }
  return picture;
}

void ListingView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  try {
    painter.drawImage(event->rect().topLeft(), Picture(event->rect()));
  } catch (...) {
    // No exception flies through the toolkit.
    LogCurrentError();
    painter.fillRect(event->rect(), ColourOf(Role::kHeading));
  }
}

}  // namespace zendara
