// Where the controls of a form stand, as structure: a front end turns it into widgets that scale with the font.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/form/control.hpp"

namespace zendara {

enum class LayoutKind {
  kColumn,    // children below each other; their labels and those of the frames among them are aligned
  kRow,       // children side by side
  kFlow,      // the same, on further lines where there is no room
  kJoined,    // buttons side by side that belong together, each as narrow as its words
  kControl,   // one control; a field shows its caption as the label before it
  kFrame,     // a titled frame around its children; `control` is the frame
  kTabs,      // `control` is the tabs, one child a page
  kTable,     // fields under `headings`: each child is a frame, whose caption stands before its row
  kScrolled,  // its children, scrolled where there is no room, so that what stands around them stays in view
  kHeading,   // the form's subject, or its title when it has none
  kBeside,    // a part and a picture at its right, which is left out where there is no room for both
  kStrip,     // an empty strip for one control, as wide as there is room; gone while the control is hidden
  kSpace,     // what is left over goes here
};

struct Layout {
  LayoutKind kind = LayoutKind::kColumn;
  Control* control = nullptr;
  std::vector<Layout> children;
  // Controls shown right behind the field in the same line without a label of their own: its look-up image, the words
  // that its code stands for.
  std::vector<Control*> attached;
  int height = 0;                       // of a strip or of a picture beside, in twips, before scaling
  int width = 0;                        // of a picture beside
  int lines = 0;                        // of a label: room for that many, in which its words are wrapped
  bool labelled = true;                 // a field shows its caption
  bool main = false;                    // the button that the work on the form ends with
  std::vector<std::string> headings{};  // of a table, one a field
};

inline Layout Column(std::vector<Layout> children) { return {LayoutKind::kColumn, nullptr, std::move(children), {}}; }
inline Layout Row(std::vector<Layout> children) { return {LayoutKind::kRow, nullptr, std::move(children), {}}; }
inline Layout Flow(std::vector<Layout> children) { return {LayoutKind::kFlow, nullptr, std::move(children), {}}; }
inline Layout Joined(std::vector<Layout> children) { return {LayoutKind::kJoined, nullptr, std::move(children), {}}; }
inline Layout Place(Control& control, std::vector<Control*> attached = {}) {
  return {LayoutKind::kControl, &control, {}, std::move(attached)};
}
inline Layout Unlabelled(Layout field) {
  field.labelled = false;
  return field;
}
inline Layout Words(Label& label, int lines) {
  Layout words = Place(label);
  words.lines = lines;
  return words;
}
inline Layout MainButton(Button& button) {
  Layout place = Place(button);
  place.main = true;
  return place;
}
inline Layout Framed(Frame& frame, std::vector<Layout> children) {
  return {LayoutKind::kFrame, &frame, std::move(children), {}};
}
inline Layout Pages(Tabs& tabs, std::vector<Layout> pages) { return {LayoutKind::kTabs, &tabs, std::move(pages), {}}; }
inline Layout Table(std::vector<std::string> headings, std::vector<Layout> rows) {
  Layout table{LayoutKind::kTable, nullptr, std::move(rows), {}};
  table.headings = std::move(headings);
  return table;
}
inline Layout Scrolled(Layout child) { return {LayoutKind::kScrolled, nullptr, {std::move(child)}, {}}; }
inline Layout Heading() { return {LayoutKind::kHeading, nullptr, {}, {}}; }
inline Layout Strip(Control& control, int height) { return {LayoutKind::kStrip, &control, {}, {}, height}; }
// The picture has that size in twips, before scaling, down to three quarters of both where the window is small, and
// more height where there is some. Gone while it is hidden.
inline Layout Beside(Layout part, Picture& picture, int width, int height) {
  Layout both{LayoutKind::kBeside, nullptr, {std::move(part), Place(picture)}, {}, height};
  both.width = width;
  return both;
}
inline Layout Space() { return {LayoutKind::kSpace, nullptr, {}, {}}; }

}  // namespace zendara
