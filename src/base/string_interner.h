// String interning: gives each distinct string a small integer id.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// A hash table with open addressing and linear probing. Ids count from 0 in the order of first insertion. The table
// does not own the strings: they must outlive it.
class StringInterner {
 public:
  static constexpr std::uint32_t none = UINT32_MAX;

  explicit StringInterner(std::size_t expectedSize = 0);

  // The string's id; none if it has not been added.
  std::uint32_t find(std::string_view text) const { return find(text, hash(text)); }
  // Batched lookup, `ids` as long as `texts`: in a table larger than the caches, the cache misses of a batch overlap.
  void find(std::span<const std::string_view> texts, std::span<std::uint32_t> ids) const;
  // Adds the string if it is new. Returns its id either way.
  std::uint32_t add(std::string_view text) { return add(text, hash(text)); }
  // Batched insertion in order, `ids` as long as `texts`; the cache misses of a batch overlap as those of `find` do.
  void add(std::span<const std::string_view> texts, std::span<std::uint32_t> ids);
  std::size_t size() const { return texts_.size(); }
  std::string_view text(std::uint32_t id) const { return texts_[id]; }

 private:
  static std::uint64_t hash(std::string_view text);
  std::uint32_t find(std::string_view text, std::uint64_t hash) const;
  std::uint32_t add(std::string_view text, std::uint64_t hash);
  // The slot at which probing for this hash starts.
  std::size_t homeSlot(std::uint64_t hash) const { return hash & (slots_.size() - 1); }
  void grow();

  struct Slot {
    std::uint32_t tag;  // the hash's upper half: rejects nearly all other strings without reading them
    std::uint32_t id;   // none: the slot is free
  };
  std::vector<Slot> slots_;  // a power of two, at most half full
  std::vector<std::string_view> texts_;
};

}  // namespace plimo
