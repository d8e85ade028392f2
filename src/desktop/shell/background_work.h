// Work that would make the window wait.
#pragma once

#include <functional>

#include "desktop/shell/input_blocker.h"

namespace plimo {

// Runs the work on a thread of its own and returns when it has ended. Meanwhile the window is painted and input is
// blocked.
void runInBackground(InputBlocker& blocker, const std::function<void()>& work);

}  // namespace plimo
