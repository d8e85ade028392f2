// What may wait until the user sees the window.
#pragma once

#include <functional>

class QWidget;

namespace plimo {

// Calls the action once, after the window has been painted for the first time. The window's end cancels it.
void afterFirstPaint(QWidget& window, std::function<void()> action);

}  // namespace plimo
