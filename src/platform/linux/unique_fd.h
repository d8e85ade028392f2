// An open file's descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace plimo {

class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int number) : number_(number) {}
  UniqueFd(UniqueFd&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~UniqueFd() {
    if (number_ >= 0) ::close(number_);
  }

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

 private:
  int number_ = -1;
};

}  // namespace plimo
