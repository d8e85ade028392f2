// Loads the player's library, libmpv, when the first song is to be played.
#pragma once

#include <QLibrary>
#include <functional>

#include "desktop/shell/input_blocker.h"

namespace plimo {

// Loading takes a tenth of a second, and much longer from a slow disk. It runs in a thread, while the window is painted
// and input is blocked.
class MpvLoader {
 public:
  // `beforeWaiting` is called before loading, to paint pending changes.
  MpvLoader(InputBlocker& blocker, std::function<void()> beforeWaiting);

  // The address of a function; null if the library or the function is missing.
  void* function(const char* name);

 private:
  void load();

  InputBlocker& blocker_;
  std::function<void()> beforeWaiting_;
  QLibrary library_;
};

}  // namespace plimo
