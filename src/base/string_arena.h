// Keeps texts.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace plimo {

// Copies of texts, close together and never moved: they stay good as long as the arena.
class StringArena {
 public:
  // One that has been moved from is not used any more.
  StringArena() = default;
  StringArena(StringArena&&) = default;
  StringArena& operator=(StringArena&&) = default;

  std::string_view store(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > left_) {
      left_ = std::max(text.size(), blockSize);
      blocks_.push_back(std::make_unique<char[]>(left_));
      free_ = blocks_.back().get();
    }
    char* const kept = free_;
    std::memcpy(kept, text.data(), text.size());
    free_ += text.size();
    left_ -= text.size();
    return {kept, text.size()};
  }

 private:
  static constexpr std::size_t blockSize = std::size_t{1} << 16;

  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace plimo
