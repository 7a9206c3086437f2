// A picture box: a pixmap that the form's painter draws on, drawn anew when its size changes.
#pragma once

#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

// Property of a picture that takes the size that its layout gives it; the others are as wide as a caption upwards.
inline constexpr char kBeside[] = "beside";

std::unique_ptr<ControlView> MakePictureView(FormWindow& window, Picture& picture, QWidget& parent);

}  // namespace zendara
