// Numbers texts: each distinct text gets the next number from 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace plimo {

// An open-addressing hash table over texts that it does not own: they must outlive it.
class StringInterner {
 public:
  static constexpr std::uint32_t none = UINT32_MAX;

  explicit StringInterner(std::size_t expected = 0);

  // The text's number; none where it has not been added.
  std::uint32_t find(std::string_view text) const { return find(text, hash(text)); }
  // The same for many texts, into as many numbers: in a large index quicker than one after the other, because the waits
  // for the memory overlap.
  void find(std::span<const std::string_view> texts, std::span<std::uint32_t> numbers) const;
  // Adds the text where it is new; its number either way.
  std::uint32_t add(std::string_view text) { return add(text, hash(text)); }
  // The same for many texts, one after the other, into as many numbers: quicker for the same reason.
  void add(std::span<const std::string_view> texts, std::span<std::uint32_t> numbers);
  std::size_t size() const { return texts_.size(); }
  std::string_view text(std::uint32_t number) const { return texts_[number]; }

 private:
  static std::uint64_t hash(std::string_view text);
  std::uint32_t find(std::string_view text, std::uint64_t hash) const;
  std::uint32_t add(std::string_view text, std::uint64_t hash);
  // The table's slot where to look first for a text with this hash.
  std::size_t homeSlot(std::uint64_t hash) const { return hash & (slots_.size() - 1); }
  void grow();

  struct Slot {
    std::uint32_t tag;     // the hash's upper half: most texts that differ are told apart without a look at them
    std::uint32_t number;  // none: free
  };
  std::vector<Slot> slots_;
  std::vector<std::string_view> texts_;
};

}  // namespace plimo
