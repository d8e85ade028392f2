// Runs event handlers, one at a time, and is the one place where a failure that nobody caught becomes the run-time
// error report.
#pragma once

#include <functional>
#include <vector>

#include "base/errors.h"

namespace plimo {

class Dispatcher {
 public:
  // Called with each uncaught failure; set once by the program.
  std::function<void(const RuntimeError&)> failed;

  // Runs the handler of an event of the user or the machine. A RuntimeError ends it and is passed to `failed`. After
  // the outermost handler, the deferred actions run.
  void run(const std::function<void()>& handler);

  // True while a handler runs.
  bool busy() const { return depth_ > 0; }

  // Called at the end of each outermost handler.
  void atEnd(std::function<void()> action) { ends_.push_back(std::move(action)); }
  // Called whenever the window is about to be painted: at the end of each outermost handler, and by `flush`.
  void beforePaint(std::function<void()> action) { paints_.push_back(std::move(action)); }

  // Notifies the observers of all lists of the changes so far. A shell calls it before it paints or asks the user
  // something in the middle of a handler.
  void flush();

 private:
  int depth_ = 0;
  std::vector<std::function<void()>> ends_;
  std::vector<std::function<void()>> paints_;
};

}  // namespace plimo
