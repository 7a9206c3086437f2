// Real key and mouse events to a widget, as a user's hands would send them.
#pragma once

#include <QPoint>

#include "zendara/forms/control.hpp"

class QWidget;

namespace zendara {

// Moves the mouse over the widget without a button held, then clicks it with the left one.
void ClickWidget(QWidget& widget, QPoint place);
// Presses and releases the key.
void PressKey(QWidget& widget, const Key& key);

}  // namespace zendara
