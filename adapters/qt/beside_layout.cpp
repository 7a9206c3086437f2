#include "adapters/qt/beside_layout.hpp"

#include <QWidget>
#include <algorithm>

#include "adapters/qt/fit.hpp"
#include "adapters/qt/flow_layout.hpp"
#include "adapters/qt/look.hpp"

namespace zendara {
namespace {

constexpr int kTwipsPerPixel = 15;
// What stands above and below the part on the form, about: heading, buttons, status.
constexpr int kLinesAround = 9;

}  // namespace

BesideLayout::BesideLayout(QLayout* part, QWidget& picture, QSize twips)
    : twips_(twips), part_(part), picture_(new QWidgetItem(&picture)) {
  addChildLayout(part);
}

BesideLayout::~BesideLayout() {
  while (QLayoutItem* item = takeAt(0)) delete item;  // a layout that goes looks for itself here
}

QLayoutItem* BesideLayout::itemAt(int index) const {
  if (index == 0 && part_) return part_.get();
  return index == count() - 1 ? picture_.get() : nullptr;
}

QLayoutItem* BesideLayout::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item && item == part_.get()) return part_.release();
  return item ? picture_.release() : nullptr;
}

QSize BesideLayout::Wanted() const { return twips_ * (TextScale() / kTwipsPerPixel); }

QSize BesideLayout::Least() const { return Wanted() * 3 / 4; }

// Of the part when its lines go on further ones.
int BesideLayout::NarrowWidth() const {
  int width = part_->minimumSize().width();
  for (int i = 0; i < part_->layout()->count(); ++i) {
    const QLayoutItem* line = part_->layout()->itemAt(i);
    if (!dynamic_cast<const FlowLayout*>(line)) width = std::max(width, line->sizeHint().width());
  }
  return width;
}

int BesideLayout::WidthIn(QSize place) const {
  if (picture_->isEmpty()) return 0;  // hidden
  const QSize least = Least();
  if (place.height() < least.height() || place.width() < NarrowWidth() + spacing() + least.width()) return 0;
  return std::clamp(place.width() - part_->sizeHint().width() - spacing(), least.width(), Wanted().width());
}

QSize BesideLayout::sizeHint() const {
  const QSize part = part_->sizeHint();
  const QSize both(part.width() + spacing() + Wanted().width(), std::max(part.height(), Wanted().height()));
  // A picture that finds no place in the end shall not make the window larger.
  const QWidget& window = *parentWidget()->window();
  const QSize room = RoomFor(window).size() - QSize(0, kLinesAround * window.fontMetrics().height());
  return WidthIn(both.boundedTo(room)) > 0 ? both : part;
}

int BesideLayout::heightForWidth(int width) const {
  const int beside = WidthIn({width, Wanted().height()});
  return beside > 0 ? std::max(part_->heightForWidth(width - beside - spacing()), Wanted().height())
                    : part_->heightForWidth(width);
}

void BesideLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  const int beside = WidthIn(place.size());
  const int part = beside > 0 ? place.width() - beside - spacing() : place.width();
  part_->setGeometry({place.topLeft(), QSize(part, place.height())});
  picture_->widget()->setGeometry(place.right() + 1 - beside, place.top(), beside, beside > 0 ? place.height() : 0);
}

}  // namespace zendara
