// How widgets are drawn: flat, in the colours of the look's table, and with a ring around what has the focus.
#pragma once

class QStyle;

namespace zendara {

// The caller owns it.
QStyle* MakeStyle();

}  // namespace zendara
