// Keeps the windows of a modal chain together: whoever can be reached leads to the one that takes input.
#pragma once

class QWidget;

namespace zendara {

// When that window is minimised while it is the modal one, those that it blocks go with it, whose ever they are, since
// they would stand there and answer nothing. When one of them comes back, all do, and the modal one is in front.
void Chain(QWidget& window);

}  // namespace zendara
