// What all windows of this front end begin with.
#pragma once

class QWidget;

namespace zendara {

// The look, the chain of modal windows, and no say in when the application ends. Best before anything stands in it.
void BeginOwnWindow(QWidget& window);

}  // namespace zendara
