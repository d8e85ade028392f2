#include "base/string_interner.h"

#include <array>
#include <bit>
#include <cstring>

namespace plimo {

namespace {

template <class Word>
Word load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

}  // namespace

StringInterner::StringInterner(std::size_t expected) {
  slots_.assign(std::bit_ceil(expected * 2 + 16), Slot{0, none});
  texts_.reserve(expected);
}

std::uint64_t StringInterner::hash(std::string_view text) {
  // Eight bytes a step, multiplied and folded, in two lanes that need not wait for each other. The last bytes may be
  // taken twice: that is quicker than to pick out the rest.
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
  const auto mixed = [](std::uint64_t value, std::uint64_t word) {
    value = (value ^ word) * factor;
    return value ^ (value >> 32);
  };
  const std::size_t size = text.size();
  const char* bytes = text.data();
  std::uint64_t value = size * factor;
  std::uint64_t other = factor;
  if (size >= 8) {
    const char* const lastWord = bytes + size - 8;
    for (; lastWord - bytes >= 8; bytes += 16) {
      value = mixed(value, load<std::uint64_t>(bytes));
      other = mixed(other, load<std::uint64_t>(bytes + 8));
    }
    if (bytes < lastWord) value = mixed(value, load<std::uint64_t>(bytes));
    other = mixed(other, load<std::uint64_t>(lastWord));
  } else if (size >= 4) {
    value = mixed(value, load<std::uint32_t>(bytes));
    other = mixed(other, load<std::uint32_t>(bytes + size - 4));
  } else if (size > 0) {
    value = mixed(value, load<std::uint8_t>(bytes) | load<std::uint8_t>(bytes + size / 2) << 8 |
                             load<std::uint8_t>(bytes + size - 1) << 16);
  }
  value = (value ^ (other << 1) ^ (other >> 63)) * factor;
  return (value ^ (value >> 29)) * factor;
}

std::uint32_t StringInterner::find(std::string_view text, std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  const auto tag = static_cast<std::uint32_t>(hash >> 32);
  for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
    const Slot& slot = slots_[i];
    if (slot.number == none) return none;
    if (slot.tag == tag && texts_[slot.number] == text) return slot.number;
  }
}

void StringInterner::find(std::span<const std::string_view> texts, std::span<std::uint32_t> numbers) const {
  constexpr std::size_t most = 64;
  for (; texts.size() > most; texts = texts.subspan(most), numbers = numbers.subspan(most)) {
    find(texts.first(most), numbers.first(most));
  }
  // Each loop touches memory that the next one needs, for all texts, before anything waits for it.
  std::array<std::uint64_t, most> hashes;
  std::array<Slot, most> slots;
  std::array<std::string_view, most> candidates;
  for (std::size_t i = 0; i < texts.size(); ++i) hashes[i] = hash(texts[i]);
  for (std::size_t i = 0; i < texts.size(); ++i) slots[i] = slots_[homeSlot(hashes[i])];
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool likely = slots[i].number != none && slots[i].tag == hashes[i] >> 32;
    candidates[i] = likely ? texts_[slots[i].number] : std::string_view();
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool same = candidates[i].data() != nullptr && candidates[i] == texts[i];
    numbers[i] = same || slots[i].number == none ? slots[i].number : find(texts[i], hashes[i]);
  }
}

void StringInterner::add(std::span<const std::string_view> texts, std::span<std::uint32_t> numbers) {
  constexpr std::size_t most = 64;
  for (; texts.size() > most; texts = texts.subspan(most), numbers = numbers.subspan(most)) {
    add(texts.first(most), numbers.first(most));
  }
  std::array<std::uint64_t, most> hashes;
  std::array<Slot, most> slots;  // as they stand before the first of these texts
  for (std::size_t i = 0; i < texts.size(); ++i) hashes[i] = hash(texts[i]);
  for (std::size_t i = 0; i < texts.size(); ++i) slots[i] = slots_[homeSlot(hashes[i])];
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool likely = slots[i].number != none && slots[i].tag == hashes[i] >> 32;
    numbers[i] = likely && texts_[slots[i].number] == texts[i] ? slots[i].number : add(texts[i], hashes[i]);
  }
}

std::uint32_t StringInterner::add(std::string_view text, std::uint64_t hash) {
  if ((texts_.size() + 1) * 2 > slots_.size()) grow();
  const std::size_t mask = slots_.size() - 1;
  const auto tag = static_cast<std::uint32_t>(hash >> 32);
  std::size_t slot = hash & mask;
  for (; slots_[slot].number != none; slot = (slot + 1) & mask) {
    if (slots_[slot].tag == tag && texts_[slots_[slot].number] == text) return slots_[slot].number;
  }
  const auto number = static_cast<std::uint32_t>(texts_.size());
  slots_[slot] = {tag, number};
  texts_.push_back(text);
  return number;
}

void StringInterner::grow() {
  std::vector<Slot> slots(slots_.size() * 2, Slot{0, none});
  const std::size_t mask = slots.size() - 1;
  for (std::uint32_t number = 0; number < texts_.size(); ++number) {
    const std::uint64_t hashed = hash(texts_[number]);
    std::size_t slot = hashed & mask;
    while (slots[slot].number != none) slot = (slot + 1) & mask;
    slots[slot] = {static_cast<std::uint32_t>(hashed >> 32), number};
  }
  slots_ = std::move(slots);
}

}  // namespace plimo
