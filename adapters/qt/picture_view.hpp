// A picture box: a pixmap that the form's painter draws on, drawn anew when its size changes.
#pragma once

#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

std::unique_ptr<ControlView> MakePictureView(FormWindow& window, Picture& picture, QWidget& parent);

}  // namespace zendara
