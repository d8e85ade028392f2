#include "controls/dispatcher.h"

#include <new>

namespace plimo {

void Dispatcher::run(const std::function<void()>& handler) {
  ++depth_;
  try {
    handler();
  } catch (const RuntimeError& error) {
    if (failed) failed(error);
  } catch (const std::bad_alloc&) {
    if (failed) failed(RuntimeError(ErrorNumber::outOfMemory));
  } catch (...) {
    --depth_;
    throw;
  }
  if (--depth_ > 0) return;
  for (const auto& action : ends_) action();
  flush();
}

void Dispatcher::flush() {
  for (const auto& action : paints_) action();
}

}  // namespace plimo
