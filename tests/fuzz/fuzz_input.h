// Cuts the bytes of a fuzz input into values, and ends the program if an expectation fails.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace plimo::fuzz {

// Values are taken from the front; an exhausted input gives zeros and empty texts.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  bool empty() const { return rest_.empty(); }
  std::uint8_t byte() {
    const std::string_view taken = take(1);
    return taken.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(taken.front());
  }
  // A text with its length in front: two bytes, the high one first.
  std::string_view text() {
    const std::size_t high = byte();
    return take(high << 8 | byte());
  }
  std::string_view rest() { return take(rest_.size()); }

 private:
  std::string_view take(std::size_t size) {
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

// The fuzzer keeps the input of a run that aborts.
inline void expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "expected: %s\n", what);
  std::abort();
}

}  // namespace plimo::fuzz
