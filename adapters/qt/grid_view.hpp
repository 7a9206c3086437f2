// A grid as a table of cells, its fixed rows and columns shown as headings.
#pragma once

#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

std::unique_ptr<ControlView> MakeGridView(FormWindow& window, Grid& grid, QWidget& parent);

}  // namespace zendara
