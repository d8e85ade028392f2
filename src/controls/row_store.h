// Storage for the texts of a list's rows.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace plimo {

// Concatenated strings, addressed by offset and length. Copy-on-write: copies share the bytes until one of them
// appends, so that filling a list from another one copies no text.
class RowStore {
 public:
  std::size_t size() const { return bytes_ ? bytes_->size() : 0; }
  // Valid until the next append, reserve or assignment. The range must be inside the store.
  std::string_view text(std::size_t offset, std::size_t length) const { return {bytes_->data() + offset, length}; }

  // Each append returns the offset of the first appended byte.
  std::size_t append(std::string_view text);
  std::size_t append(std::span<const std::string_view> texts);
  std::size_t append(const RowStore& other);
  // Makes room for `more` additional bytes.
  void reserve(std::size_t more);

 private:
  std::shared_ptr<std::string> bytes_;  // null: empty
};

}  // namespace plimo
