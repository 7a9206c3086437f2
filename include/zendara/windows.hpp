// Ready-made windows for a host with a desktop: screens, boxes, lists, help; what they show can be kept as PDF. In
// libzendara-windows, a front end on top of libzendara.
#pragma once

#include <memory>

#include "zendara/export.h"
#include "zendara/platform.hpp"

namespace zendara {

// Whose style, font and colours the application has: those of the host, which the windows take over, or Zendara's.
enum class Look { kHost, kZendara };

// REQUIRES: a QApplication of the host's, in whose thread the component is called. Only Look::kZendara changes its
// style, font and colours. Error 51 when libzendara is of another version than this library.
ZENDARA_EXPORT std::unique_ptr<FrontEnd> MakeWindows(Look look = Look::kHost);

}  // namespace zendara
