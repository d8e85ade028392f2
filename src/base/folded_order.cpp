#include "base/folded_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "base/text.h"

namespace plimo {

namespace {

constexpr std::size_t wordSize = 8;       // bytes that are compared at once
constexpr std::size_t fewEntries = 1024;  // up to here comparing is quicker than counting

struct Entry {
  std::uint64_t word;  // the bytes compared, the first one highest; zeros behind the text's end
  std::size_t begin;   // of the text, in the folded ones
  std::uint32_t length;
  std::uint32_t place;
};

// The folded texts, and their entries sorted eight bytes at a time: those that agree are told apart by the next eight.
class FoldedSort {
 public:
  explicit FoldedSort(std::span<const std::string_view> texts) {
    std::size_t bytes = 0;
    for (const std::string_view text : texts) bytes += text.size();
    folded_.reserve(bytes);
    entries_.reserve(texts.size());
    for (const std::string_view text : texts) {
      const std::size_t begin = folded_.size();
      appendFolded(folded_, text);
      const auto length = static_cast<std::uint32_t>(folded_.size() - begin);
      entries_.push_back({0, begin, length, static_cast<std::uint32_t>(entries_.size())});
    }
  }

  std::vector<std::uint32_t> order() {
    sort(entries_, 0);
    std::vector<std::uint32_t> places(entries_.size());
    for (std::size_t i = 0; i < places.size(); ++i) places[i] = entries_[i].place;
    return places;
  }

 private:
  // Sorts texts that agree in their first `depth` bytes and stand as they were given.
  void sort(std::span<Entry> entries, std::size_t depth) {
    for (Entry& entry : entries) entry.word = wordAt(entry, depth);
    if (entries.size() > fewEntries) {
      sortByWord(entries);
    } else {
      std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return left.word != right.word ? left.word < right.word : left.place < right.place;
      });
    }
    for (std::size_t first = 0; first < entries.size();) {
      std::size_t last = first + 1;
      while (last < entries.size() && entries[last].word == entries[first].word) ++last;
      if (last - first > 1) sortAgreeing(entries.subspan(first, last - first), depth);
      first = last;
    }
  }

  // The same for texts with one word: those that end in it come first, the shorter before the longer.
  void sortAgreeing(std::span<Entry> entries, std::size_t depth) {
    const auto rest = [depth](const Entry& entry) { return std::min(entry.length - depth, wordSize + 1); };
    const auto shorter = [rest](const Entry& left, const Entry& right) {
      return rest(left) != rest(right) ? rest(left) < rest(right) : left.place < right.place;
    };
    if (!std::is_sorted(entries.begin(), entries.end(), shorter)) std::sort(entries.begin(), entries.end(), shorter);
    const auto longer = std::partition_point(entries.begin(), entries.end(),
                                             [rest](const Entry& entry) { return rest(entry) <= wordSize; });
    const std::span<Entry> going(longer, entries.end());
    if (going.size() > 1) sort(going, depth + wordSize);
  }

  std::uint64_t wordAt(const Entry& entry, std::size_t depth) const {
    const std::string_view text = std::string_view(folded_).substr(entry.begin + depth, entry.length - depth);
    const auto shifted = [text](std::size_t i) {
      return std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * (wordSize - 1 - i));
    };
    std::uint64_t word = 0;
    if (text.size() >= wordSize) {  // told apart so that it becomes one load
      for (std::size_t i = 0; i < wordSize; ++i) word |= shifted(i);
    } else {
      for (std::size_t i = 0; i < text.size(); ++i) word |= shifted(i);
    }
    return word;
  }

  // By counting, byte after byte from the lowest; equal words stay as they stand.
  void sortByWord(std::span<Entry> entries) {
    std::array<std::array<std::uint32_t, 256>, wordSize> counts{};
    for (const Entry& entry : entries) {
      for (std::size_t byte = 0; byte < wordSize; ++byte) ++counts[byte][entry.word >> (8 * byte) & 0xFF];
    }
    spare_.resize(entries.size());
    std::span<Entry> from = entries;
    std::span<Entry> to(spare_);
    for (std::size_t byte = 0; byte < wordSize; ++byte) {
      const auto digit = [byte](const Entry& entry) { return entry.word >> (8 * byte) & 0xFF; };
      std::array<std::uint32_t, 256>& starts = counts[byte];
      if (starts[digit(from.front())] == from.size()) continue;  // all the same here
      std::uint32_t start = 0;
      for (std::uint32_t& count : starts) start += std::exchange(count, start);
      for (const Entry& entry : from) to[starts[digit(entry)]++] = entry;
      std::swap(from, to);
    }
    if (from.data() != entries.data()) std::copy(from.begin(), from.end(), entries.begin());
  }

  std::string folded_;
  std::vector<Entry> entries_;
  std::vector<Entry> spare_;
};

}  // namespace

std::vector<std::uint32_t> foldedOrder(std::span<const std::string_view> texts) { return FoldedSort(texts).order(); }

}  // namespace plimo
