// The bytes behind a list's rows.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace plimo {

// Texts one behind the other, told by offset and length. Copies share the bytes until one of them appends: to fill a
// list from another one costs nothing for the texts.
class RowStore {
 public:
  std::size_t size() const { return bytes_ ? bytes_->size : 0; }
  // Good until the next append, makeRoom or assignment. There must be such a text.
  std::string_view text(std::size_t offset, std::size_t length) const { return {bytes_->data.get() + offset, length}; }

  // Where the text begins from now on.
  std::size_t append(std::string_view text);
  // The same for many texts, one behind the other.
  std::size_t append(std::span<const std::string_view> texts);
  // All of the other's texts; what is to be added to their offsets from now on.
  std::size_t append(const RowStore& other);
  // Makes room for so many more bytes: at least half as much again, so that many small steps do not move all bytes each
  // time.
  void makeRoom(std::size_t more);

 private:
  struct Free {
    void operator()(char* data) const;
  };
  // Grown by std::realloc: it can move large memory to another place without a copy.
  struct Bytes {
    std::unique_ptr<char, Free> data;
    std::size_t size = 0;
    std::size_t capacity = 0;
  };

  std::shared_ptr<Bytes> bytes_;  // none: no texts
};

}  // namespace plimo
