// Ready-made windows for a host with a desktop: screens, boxes, lists, help; what they show can be kept as PDF. In
// libzendara-windows, a front end on top of libzendara.
#pragma once

#include <memory>

#include "zendara/export.h"
#include "zendara/platform.hpp"

namespace zendara {

// Whose style, font and colours the application has: its own, or Zendara's.
enum class Look { kHost, kZendara };

// REQUIRES: a QApplication of the host's, in whose thread the component is called. Only Look::kZendara changes
// something of it, for good: style, font, palette, hints, the language of the toolkit's own words. With Look::kHost the
// windows have font and colours of the application, and a style of their own that shows which fields have the focus and
// which are only shown; their text has a size of its own, which the user chooses (Ctrl++). A style sheet of the
// application holds for these windows too. No window of these ends the application when it closes. When the
// application ends (QApplication::quit) the screens close, unless a question waits for its answer; what was typed and
// not saved is kept. Destroyed while a screen is shown, the front end stays in memory, and the log says so.
// Error 51 when libzendara is of another version than this library.
ZENDARA_EXPORT std::unique_ptr<FrontEnd> MakeWindows(Look look = Look::kHost);

}  // namespace zendara
