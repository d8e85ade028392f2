// The bytes behind a list's rows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace plimo {

// Texts one behind the other, told by offset and length. Copies share the bytes until one of them appends: to fill a
// list from another one costs nothing for the texts.
class RowTexts {
 public:
  std::size_t size() const { return bytes_->size(); }
  // Good until the next append, makeRoom or assignment.
  std::string_view text(std::size_t offset, std::size_t length) const { return {bytes_->data() + offset, length}; }

  // Where the text begins from now on.
  std::size_t append(std::string_view text) {
    if (shared()) separate(text.size());
    const std::size_t offset = bytes_->size();
    bytes_->append(text);
    return offset;
  }
  // All of the other's texts; what is to be added to their offsets from now on.
  std::size_t append(const RowTexts& other) { return append(std::string_view(*other.bytes_)); }
  // Makes room for so many more bytes: at least half as much again, so that many small steps do not copy all bytes each
  // time.
  void makeRoom(std::size_t more) {
    if (shared()) separate(more);
    const std::size_t needed = size() + more;
    if (needed > bytes_->capacity()) bytes_->reserve(std::max(needed, bytes_->capacity() + bytes_->capacity() / 2));
  }

 private:
  bool shared() const { return bytes_.use_count() > 1; }
  void separate(std::size_t more) {
    auto own = std::make_shared<std::string>();
    own->reserve(size() + more);
    own->append(*bytes_);
    bytes_ = std::move(own);
  }

  std::shared_ptr<std::string> bytes_ = std::make_shared<std::string>();
};

}  // namespace plimo
