// Reports and counts failed expectations.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace plimo::scenario {

class FailureReporter {
 public:
  // `file` is the name used in reports, which go to `out`.
  FailureReporter(std::string file, std::ostream& out) : file_(std::move(file)), out_(out) {}

  // The line that later failures are reported for, from 1.
  void setLine(int line) { line_ = line; }
  // Writes "FILE:LINE: expected ..., got ...".
  void fail(std::string_view expected, std::string_view got) {
    ++count_;
    out_ << file_ << ':' << line_ << ": expected " << expected << ", got " << got << '\n';
  }
  std::size_t count() const { return count_; }

 private:
  std::string file_;
  std::ostream& out_;
  int line_ = 0;
  std::size_t count_ = 0;
};

}  // namespace plimo::scenario
