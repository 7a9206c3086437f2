#include "adapters/qt/flow_layout.hpp"

#include <algorithm>

namespace zendara {
namespace {

bool IsSpace(const QLayoutItem& item) { return const_cast<QLayoutItem&>(item).spacerItem() != nullptr; }

}  // namespace

FlowLayout::~FlowLayout() {
  while (QLayoutItem* item = takeAt(0)) delete item;  // a layout that goes looks for itself here
}

void FlowLayout::AddLayout(QLayout* layout) {
  addChildLayout(layout);
  addItem(layout);
}

void FlowLayout::AddSpace() { addItem(new QSpacerItem(0, 0)); }

QLayoutItem* FlowLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item) items_.erase(items_.begin() + index);
  return item;
}

QSize FlowLayout::sizeHint() const {
  QSize size(0, 0);
  for (const QLayoutItem* item : items_) {
    if (item->isEmpty() && !IsSpace(*item)) continue;
    const QSize wanted = item->sizeHint();
    size.rwidth() += wanted.width() + (size.width() > 0 ? spacing() : 0);
    size.setHeight(std::max(size.height(), wanted.height()));
  }
  return size;
}

QSize FlowLayout::minimumSize() const {
  QSize size(0, 0);
  for (const QLayoutItem* item : items_) size = size.expandedTo(item->minimumSize());
  return size;
}

int FlowLayout::heightForWidth(int width) const { return Lines({0, 0, width, 0}, false); }

void FlowLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  Lines(place, true);
}

int FlowLayout::Lines(const QRect& place, bool move) const {
  int top = place.top();
  auto item = items_.begin();
  while (item != items_.end()) {
    // As many as there is room for, and one at least.
    const auto first = item;
    int width = 0;
    int height = 0;
    int spaces = 0;
    for (; item != items_.end(); ++item) {
      if (IsSpace(**item)) {
        ++spaces;
        continue;
      }
      if ((*item)->isEmpty()) continue;
      const QSize wanted = (*item)->sizeHint();
      const int with = width + wanted.width() + (width > 0 ? spacing() : 0);
      if (width > 0 && with > place.width()) break;
      width = with;
      height = std::max(height, wanted.height());
    }
    if (width == 0) break;
    if (top > place.top()) top += spacing() / 2;
    const int share = spaces > 0 ? std::max(place.width() - width, 0) / spaces : 0;
    int left = place.left();
    for (auto placed = first; move && placed != item; ++placed) {
      if (IsSpace(**placed)) {
        left += share;
        continue;
      }
      if ((*placed)->isEmpty()) continue;
      const QSize size((*placed)->sizeHint().width(), height);
      (*placed)->setGeometry({QPoint(left, top), size});
      left += size.width() + spacing();
    }
    top += height;
  }
  return top - place.top();
}

}  // namespace zendara
