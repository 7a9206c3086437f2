// A text box: a line edit that shows the model and never edits by itself.
#pragma once

#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

std::unique_ptr<ControlView> MakeFieldView(FormWindow& window, TextBox& box, QWidget& parent);

}  // namespace zendara
