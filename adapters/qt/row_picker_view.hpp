// A list of rows with headings, to choose one from.
#pragma once

#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

std::unique_ptr<ControlView> MakeRowPickerView(FormWindow& window, RowPicker& picker, QWidget& parent);

}  // namespace zendara
