// What a scenario's expectations came to.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

namespace plimo::scenario {

class Verdicts {
 public:
  // `file` as it is named in reports, which go to `out`.
  Verdicts(std::string file, std::ostream& out) : file_(std::move(file)), out_(out) {}

  // The line at work, from 1.
  void at(int line) { line_ = line; }
  // "FILE:LINE: expected ..., got ...".
  void fail(std::string_view expected, std::string_view got) {
    ++failures_;
    out_ << file_ << ':' << line_ << ": expected " << expected << ", got " << got << '\n';
  }
  std::size_t failures() const { return failures_; }

 private:
  std::string file_;
  std::ostream& out_;
  int line_ = 0;
  std::size_t failures_ = 0;
};

}  // namespace plimo::scenario
