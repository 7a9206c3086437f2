// Where the controls of a form stand, as structure: a front end turns it into widgets that scale with the font.
#pragma once

#include <string>
#include <vector>

#include "zendara/forms/control.hpp"

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

}  // namespace zendara
