// SIGTERM and SIGINT as something that an event loop can wait for.
#pragma once

#include "platform/linux/unique_fd.h"

namespace plimo {

// One object at a time. While it exists, the signals do not end the program.
class TerminationSignals {
 public:
  TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  ~TerminationSignals();

  // Readable after a signal, until `take`; -1 if the signals could not be caught.
  int fd() const { return readEnd_.get(); }
  // True if a signal has arrived since the last call.
  bool take();

 private:
  UniqueFd readEnd_;
  UniqueFd writeEnd_;
};

}  // namespace plimo
