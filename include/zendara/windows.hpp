// Ready-made windows for a host with a desktop: screens, boxes, lists, help; what they show can be kept as PDF. A host
// links libzendara-windows for them, which has all of libzendara in it.
#pragma once

#include <memory>

#include "zendara/platform.hpp"

namespace zendara {

class Windows {
 public:
  virtual ~Windows() = default;
  // Fills in what the windows serve: dialogs, forms, shell and components. They live as long as this object.
  virtual void Install(Platform& platform) = 0;
};

// REQUIRES: a QApplication of the host's, in whose thread the component is called. Sets its style, font and colours.
std::unique_ptr<Windows> MakeWindows();

}  // namespace zendara
