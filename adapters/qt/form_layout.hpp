// Turns the structure of a form's layout into widgets.
#pragma once

#include <functional>
#include <memory>

#include "adapters/qt/form_window.hpp"

namespace zendara {

// Property of a frame's widget that has neither title nor border, and so no margin.
inline constexpr char kBare[] = "bare";

// Name of the widget that heads the form.
inline constexpr char kHeadingName[] = "heading";

// The view of a control by its kind.
std::unique_ptr<ControlView> MakeView(FormWindow& window, Control& control, QWidget& parent);

using Keep = std::function<void(std::unique_ptr<ControlView> view, Control& control)>;
void BuildLayout(FormWindow& window, const Layout& layout, QWidget& content, const Keep& keep);

// Whether a part of the form scrolls by itself, so that the rest stays in view.
bool HasScrolledPart(const Layout& layout);

// What is hidden, as are the pages behind, does not pass a new size on to its container by itself.
void RenewSizes(QWidget& content);

// Distances follow the font.
void RescaleSpacing(QWidget& content);

}  // namespace zendara
