// The player's library, loaded when the first song is to be played.
#pragma once

#include <QLibrary>
#include <functional>

#include "desktop/shell/input_blocker.h"

namespace plimo {

// Loading takes a tenth of a second, and many times that from a slow disk: it is done aside, while the window lives and
// nothing that the user does gets through.
class MpvLoader {
 public:
  // `beforeWaiting` shows what has changed so far.
  MpvLoader(InputBlocker& blocker, std::function<void()> beforeWaiting);

  // One of its functions; null where the library or the function is missing.
  void* function(const char* name);

 private:
  void load();

  InputBlocker& blocker_;
  std::function<void()> beforeWaiting_;
  QLibrary library_;
};

}  // namespace plimo
