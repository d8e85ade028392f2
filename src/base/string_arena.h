// A bump allocator for strings.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace plimo {

// Owns copies of strings in large blocks that are never moved: the views it returns are valid as long as the arena,
// also after the arena has been moved.
class StringArena {
 public:
  // A moved-from arena may only be destroyed or assigned to.
  StringArena() = default;
  StringArena(StringArena&&) = default;
  StringArena& operator=(StringArena&&) = default;

  std::string_view store(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > available_) {
      available_ = std::max(text.size(), blockSize);
      blocks_.push_back(std::make_unique<char[]>(available_));
      next_ = blocks_.back().get();
    }
    char* const copy = next_;
    std::memcpy(copy, text.data(), text.size());
    next_ += text.size();
    available_ -= text.size();
    return {copy, text.size()};
  }

 private:
  static constexpr std::size_t blockSize = std::size_t{1} << 16;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  std::size_t available_ = 0;  // bytes after next_ in the last block
};

}  // namespace plimo
