#include "base/text_index.h"

#include <bit>
#include <cstring>

namespace plimo {

TextIndex::TextIndex(std::size_t expected) {
  slots_.assign(std::bit_ceil(expected * 2 + 16), Slot{0, none});
  texts_.reserve(expected);
}

std::uint64_t TextIndex::hash(std::string_view text) {
  // Eight bytes a step, multiplied and folded; names are short, so that the end matters as much as the middle.
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
  std::uint64_t value = text.size() * factor;
  const char* bytes = text.data();
  std::size_t left = text.size();
  const auto mix = [&value](std::uint64_t word) {
    value = (value ^ word) * factor;
    value ^= value >> 32;
  };
  for (; left >= 8; bytes += 8, left -= 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, 8);
    mix(word);
  }
  if (left > 0) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, left);
    mix(word);
  }
  return (value ^ (value >> 29)) * factor;
}

std::uint32_t TextIndex::find(std::string_view text, std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  const auto tag = static_cast<std::uint32_t>(hash >> 32);
  for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.number == none) return none;
    if (slot.tag == tag && texts_[slot.number] == text) return slot.number;
  }
}

std::uint32_t TextIndex::add(std::string_view text) {
  const std::uint64_t hashed = hash(text);
  const std::uint32_t found = find(text, hashed);
  if (found != none) return found;
  if ((texts_.size() + 1) * 2 > slots_.size()) grow();
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hashed & mask;
  while (slots_[place].number != none) place = (place + 1) & mask;
  const auto number = static_cast<std::uint32_t>(texts_.size());
  slots_[place] = {static_cast<std::uint32_t>(hashed >> 32), number};
  texts_.push_back(text);
  return number;
}

void TextIndex::grow() {
  std::vector<Slot> slots(slots_.size() * 2, Slot{0, none});
  const std::size_t mask = slots.size() - 1;
  for (std::uint32_t number = 0; number < texts_.size(); ++number) {
    const std::uint64_t hashed = hash(texts_[number]);
    std::size_t place = hashed & mask;
    while (slots[place].number != none) place = (place + 1) & mask;
    slots[place] = {static_cast<std::uint32_t>(hashed >> 32), number};
  }
  slots_ = std::move(slots);
}

}  // namespace plimo
