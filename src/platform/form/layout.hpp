// Where the controls of a form stand, as structure: a front end turns it into widgets that scale with the font.
#pragma once

#include <string>
#include <vector>

#include "platform/form/control.hpp"

namespace zendara {

enum class LayoutKind {
  kColumn,   // children below each other, labels aligned
  kRow,      // children side by side
  kControl,  // one control; a field shows its caption as the label before it
  kFrame,    // a titled frame around its children; `control` is the frame
  kTabs,     // `control` is the tabs, one child a page
  kStrip,    // an empty strip for one control, as wide as there is room; gone while the control is hidden
  kSpace,    // what is left over goes here
};

struct Layout {
  LayoutKind kind = LayoutKind::kColumn;
  Control* control = nullptr;
  std::vector<Layout> children;
  // Controls shown right behind the field in the same line without a label of their own: its look-up image, a
  // description.
  std::vector<Control*> attached;
  int height = 0;  // of a strip, in twips, before scaling
};

inline Layout Column(std::vector<Layout> children) { return {LayoutKind::kColumn, nullptr, std::move(children), {}}; }
inline Layout Row(std::vector<Layout> children) { return {LayoutKind::kRow, nullptr, std::move(children), {}}; }
inline Layout Place(Control& control, std::vector<Control*> attached = {}) {
  return {LayoutKind::kControl, &control, {}, std::move(attached)};
}
inline Layout Framed(Frame& frame, std::vector<Layout> children) {
  return {LayoutKind::kFrame, &frame, std::move(children), {}};
}
inline Layout Pages(Tabs& tabs, std::vector<Layout> pages) { return {LayoutKind::kTabs, &tabs, std::move(pages), {}}; }
inline Layout Strip(Control& control, int height) { return {LayoutKind::kStrip, &control, {}, {}, height}; }
inline Layout Space() { return {LayoutKind::kSpace, nullptr, {}, {}}; }

}  // namespace zendara
