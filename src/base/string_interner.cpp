#include "base/string_interner.h"

#include <array>
#include <bit>
#include <cstring>

namespace plimo {

namespace {

constexpr std::size_t maxBatch = 64;

template <class Word>
Word load(const char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

}  // namespace

StringInterner::StringInterner(std::size_t expectedSize) {
  slots_.assign(std::bit_ceil(expectedSize * 2 + 16), Slot{0, none});
  texts_.reserve(expectedSize);
}

std::uint64_t StringInterner::hash(std::string_view text) {
  // Multiply and xor-shift, eight bytes per step, in two independent lanes so that the multiplications overlap. The
  // last word may overlap the one before it, which is cheaper than loading the remaining bytes one by one.
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
  const auto mix = [](std::uint64_t state, std::uint64_t word) {
    state = (state ^ word) * factor;
    return state ^ (state >> 32);
  };
  const std::size_t size = text.size();
  const char* bytes = text.data();
  std::uint64_t first = size * factor;
  std::uint64_t second = factor;
  if (size >= 8) {
    const char* const lastWord = bytes + size - 8;
    for (; lastWord - bytes >= 8; bytes += 16) {
      first = mix(first, load<std::uint64_t>(bytes));
      second = mix(second, load<std::uint64_t>(bytes + 8));
    }
    if (bytes < lastWord) first = mix(first, load<std::uint64_t>(bytes));
    second = mix(second, load<std::uint64_t>(lastWord));
  } else if (size >= 4) {
    first = mix(first, load<std::uint32_t>(bytes));
    second = mix(second, load<std::uint32_t>(bytes + size - 4));
  } else if (size > 0) {
    first = mix(first, load<std::uint8_t>(bytes) | load<std::uint8_t>(bytes + size / 2) << 8 |
                           load<std::uint8_t>(bytes + size - 1) << 16);
  }
  first = (first ^ (second << 1) ^ (second >> 63)) * factor;
  return (first ^ (first >> 29)) * factor;
}

std::uint32_t StringInterner::find(std::string_view text, std::uint64_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = homeSlot(hash);; i = (i + 1) & mask) {
    const Slot& slot = slots_[i];
    if (slot.id == none) return none;
    if (slot.tag == tagOf(hash) && texts_[slot.id] == text) return slot.id;
  }
}

void StringInterner::find(std::span<const std::string_view> texts, std::span<std::uint32_t> ids) const {
  for (; texts.size() > maxBatch; texts = texts.subspan(maxBatch), ids = ids.subspan(maxBatch)) {
    find(texts.first(maxBatch), ids.first(maxBatch));
  }
  // Each loop issues the independent loads that the next loop depends on, so that their cache misses overlap.
  std::array<std::uint64_t, maxBatch> hashes;
  std::array<Slot, maxBatch> slots;
  std::array<std::string_view, maxBatch> candidates;
  for (std::size_t i = 0; i < texts.size(); ++i) hashes[i] = hash(texts[i]);
  for (std::size_t i = 0; i < texts.size(); ++i) slots[i] = slots_[homeSlot(hashes[i])];
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool likely = slots[i].id != none && slots[i].tag == tagOf(hashes[i]);
    candidates[i] = likely ? texts_[slots[i].id] : std::string_view();
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool same = candidates[i].data() != nullptr && candidates[i] == texts[i];
    ids[i] = same || slots[i].id == none ? slots[i].id : find(texts[i], hashes[i]);
  }
}

void StringInterner::add(std::span<const std::string_view> texts, std::span<std::uint32_t> ids) {
  for (; texts.size() > maxBatch; texts = texts.subspan(maxBatch), ids = ids.subspan(maxBatch)) {
    add(texts.first(maxBatch), ids.first(maxBatch));
  }
  std::array<std::uint64_t, maxBatch> hashes;
  std::array<Slot, maxBatch> slots;  // as they are before the first insertion of the batch
  for (std::size_t i = 0; i < texts.size(); ++i) hashes[i] = hash(texts[i]);
  for (std::size_t i = 0; i < texts.size(); ++i) slots[i] = slots_[homeSlot(hashes[i])];
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool likely = slots[i].id != none && slots[i].tag == tagOf(hashes[i]);
    ids[i] = likely && texts_[slots[i].id] == texts[i] ? slots[i].id : add(texts[i], hashes[i]);
  }
}

std::uint32_t StringInterner::add(std::string_view text, std::uint64_t hash) {
  if ((texts_.size() + 1) * 2 > slots_.size()) grow();
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = homeSlot(hash);
  for (; slots_[slot].id != none; slot = (slot + 1) & mask) {
    if (slots_[slot].tag == tagOf(hash) && texts_[slots_[slot].id] == text) return slots_[slot].id;
  }
  const auto id = static_cast<std::uint32_t>(texts_.size());
  slots_[slot] = {tagOf(hash), id};
  texts_.push_back(text);
  return id;
}

void StringInterner::grow() {
  slots_.assign(slots_.size() * 2, Slot{0, none});
  const std::size_t mask = slots_.size() - 1;
  for (std::uint32_t id = 0; id < texts_.size(); ++id) {
    const std::uint64_t hashed = hash(texts_[id]);
    std::size_t slot = homeSlot(hashed);
    while (slots_[slot].id != none) slot = (slot + 1) & mask;
    slots_[slot] = {tagOf(hashed), id};
  }
}

}  // namespace plimo
