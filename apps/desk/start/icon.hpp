#pragma once

#include <QIcon>

namespace zendara {

// The program's mark, for windows and task bars: a Z on the accent colour.
QIcon DeskIcon();

}  // namespace zendara
