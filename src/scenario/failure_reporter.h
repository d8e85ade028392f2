// Reports and counts failed expectations.
#pragma once

#include <cstddef>
#include <ostream>
#include <string_view>

#include "scenario/source_location.h"

namespace plimo::scenario {

class FailureReporter {
 public:
  explicit FailureReporter(std::ostream& out) : out_(out) {}

  // The line that later failures are reported for.
  void setLocation(const SourceLocation& location) { location_ = location; }
  // Writes "FILE:LINE: expected ..., got ...".
  void fail(std::string_view expected, std::string_view got) {
    ++count_;
    out_ << location_.file << ':' << location_.line << ": expected " << expected << ", got " << got << '\n';
  }
  std::size_t count() const { return count_; }

 private:
  std::ostream& out_;
  SourceLocation location_;
  std::size_t count_ = 0;
};

}  // namespace plimo::scenario
