#include "base/folded_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <deque>
#include <span>
#include <string>
#include <utility>

#include "base/at_once.h"
#include "base/eight_bytes.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr std::size_t wordSize = 8;       // bytes that are compared at once
constexpr std::size_t deepEnough = 1024;  // bytes behind which texts that still agree are compared as a whole

// What is sorted, and all that sorting moves.
struct Entry {
  std::uint64_t word;  // eight bytes, the first one highest; zeros behind the text's end
  std::uint32_t place;
  bool folded;  // a folded copy stands for the text already
};

std::uint64_t load(const char* bytes) {
  const auto byte = [bytes](int i) { return std::uint64_t{static_cast<unsigned char>(bytes[i])}; };
  // Written out, because then it becomes one load.
  return byte(0) << 56 | byte(1) << 48 | byte(2) << 40 | byte(3) << 32 | byte(4) << 24 | byte(5) << 16 | byte(6) << 8 |
         byte(7);
}

// Eight bytes of a text from `depth` on, which is not behind its end.
std::uint64_t wordAt(std::string_view text, std::size_t depth) {
  const std::size_t rest = text.size() - depth;
  if (rest >= wordSize) return load(text.data() + depth);
  if (rest == 0) return 0;
  if (text.size() >= wordSize) return load(text.data() + text.size() - wordSize) << (8 * (wordSize - rest));
  std::uint64_t word = 0;
  for (const char byte : text.substr(depth)) word = word << 8 | static_cast<unsigned char>(byte);
  return word << (8 * (wordSize - rest));
}

// Sorts entries eight bytes at a time: those that agree are told apart by the next eight. Nothing is folded before it
// is looked at, and a text is copied only where its folding is not that of plain ASCII.
class FoldedSort {
 public:
  // A folded copy, good as long as this object, takes its text's place in `texts`.
  explicit FoldedSort(std::span<std::string_view> texts) : texts_(texts) {}

  // The entries' words from `depth` on; up to there their texts agree.
  void readWords(std::span<Entry> entries, std::size_t depth) {
    for (Entry& entry : entries) entry.word = foldedWord(entry, depth);
  }

  // Sorts entries that stand as their texts were given and hold their words from `depth` on. There is spare room for as
  // many.
  void sort(std::span<Entry> entries, std::span<Entry> spare, std::size_t depth) {
    sortByWord(entries, spare);
    for (std::size_t first = 0; first < entries.size();) {
      std::size_t last = first + 1;
      while (last < entries.size() && entries[last].word == entries[first].word) ++last;
      if (last - first > 1) sortAgreeing(entries.subspan(first, last - first), spare, depth);
      first = last;
    }
  }

 private:
  // The same for texts with one word: those that end in it come first, the shorter before the longer.
  void sortAgreeing(std::span<Entry> entries, std::span<Entry> spare, std::size_t depth) {
    const auto rest = [this, depth](const Entry& entry) {
      return std::min(texts_[entry.place].size() - depth, wordSize + 1);
    };
    const auto goesOn = [rest](const Entry& entry) { return rest(entry) > wordSize; };
    if (!std::all_of(entries.begin(), entries.end(), goesOn)) {
      std::stable_sort(entries.begin(), entries.end(),
                       [rest](const Entry& left, const Entry& right) { return rest(left) < rest(right); });
      entries = {std::find_if(entries.begin(), entries.end(), goesOn), entries.end()};
    }
    if (entries.size() < 2) return;
    if (depth >= deepEnough) {
      std::stable_sort(entries.begin(), entries.end(), [this](const Entry& left, const Entry& right) {
        return compareFolded(texts_[left.place], texts_[right.place]) < 0;
      });
      return;
    }
    readWords(entries, depth + wordSize);
    sort(entries, spare, depth + wordSize);
  }

  std::uint64_t foldedWord(Entry& entry, std::size_t depth) {
    std::string_view& text = texts_[entry.place];
    const std::uint64_t word = wordAt(text, depth);
    if (entry.folded) return word;
    if (allAscii(word)) return lowered(word);
    // Folding changes nothing before the first letter beyond ASCII, so that what was compared so far holds.
    text = copies_.emplace_back(foldCase(text));
    entry.folded = true;
    return wordAt(text, depth);
  }

  // By counting, from the lowest bits to the highest, or by comparing where that is quicker; equal words stay as they
  // stand.
  void sortByWord(std::span<Entry> entries, std::span<Entry> spare) {
    constexpr std::size_t worthCounting = 30;    // entries to a byte that has to be counted
    constexpr std::size_t worthTwoBytes = 8192;  // entries from which on two bytes are counted at once
    std::uint64_t differing = 0;                 // the bits in which the words are not all the same
    for (const Entry& entry : entries) differing |= entry.word ^ entries.front().word;
    std::size_t bytes = 0;
    for (int shift = 0; shift < 64; shift += 8) bytes += (differing >> shift & 0xFF) != 0 ? 1 : 0;
    if (entries.size() < worthCounting * bytes) {
      std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return left.word != right.word ? left.word < right.word : left.place < right.place;
      });
    } else if (entries.size() < worthTwoBytes) {
      sortByCounting<8>(entries, spare, differing);
    } else {
      sortByCounting<16>(entries, spare, differing);
    }
  }

  template <int bits>
  void sortByCounting(std::span<Entry> entries, std::span<Entry> spare, std::uint64_t differing) {
    constexpr std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
    starts_.resize(mask + 1);
    std::span<Entry> from = entries;
    std::span<Entry> to = spare.first(entries.size());
    for (int shift = 0; shift < 64; shift += bits) {
      if ((differing >> shift & mask) == 0) continue;
      const auto digit = [shift](const Entry& entry) { return entry.word >> shift & mask; };
      std::fill(starts_.begin(), starts_.end(), 0U);
      for (const Entry& entry : from) ++starts_[digit(entry)];
      std::uint32_t start = 0;
      for (std::uint32_t& count : starts_) start += std::exchange(count, start);
      for (const Entry& entry : from) to[starts_[digit(entry)]++] = entry;
      std::swap(from, to);
    }
    if (from.data() != entries.data()) std::copy(from.begin(), from.end(), entries.begin());
  }

  std::span<std::string_view> texts_;
  std::deque<std::string> copies_;
  std::vector<std::uint32_t> starts_;  // of the entries with each digit, where they are going to stand
};

constexpr std::size_t worthTwoThreads = 32768;

// A word that about half of the entries' words are below.
std::uint64_t middleWord(std::span<const Entry> entries) {
  std::array<std::uint64_t, 65> sample;
  for (std::size_t i = 0; i < sample.size(); ++i) sample[i] = entries[entries.size() / sample.size() * i].word;
  auto* const middle = sample.begin() + sample.size() / 2;
  std::nth_element(sample.begin(), middle, sample.end());
  return *middle;
}

// Sorts on two threads: one takes the texts below a word in the middle, the other one the rest.
void sortInTwo(std::span<std::string_view> texts, std::vector<Entry>& entries) {
  std::array<FoldedSort, 2> sorts = {FoldedSort(texts), FoldedSort(texts)};
  const auto halves = [](std::vector<Entry>& whole, std::size_t half) {
    return std::array{std::span(whole).first(half), std::span(whole).subspan(half)};
  };
  const auto given = halves(entries, entries.size() / 2);
  atOnce([&] { sorts[0].readWords(given[0], 0); }, [&] { sorts[1].readWords(given[1], 0); });

  const auto below = [middle = middleWord(entries)](const Entry& entry) { return entry.word < middle; };
  std::vector<Entry> parted(entries.size());
  const auto lower = static_cast<std::size_t>(std::count_if(entries.begin(), entries.end(), below));
  std::partition_copy(entries.begin(), entries.end(), parted.begin(),
                      parted.begin() + static_cast<std::ptrdiff_t>(lower), below);
  entries.swap(parted);
  const auto wanted = halves(entries, lower);
  const auto spare = halves(parted, lower);
  atOnce([&] { sorts[0].sort(wanted[0], spare[0], 0); }, [&] { sorts[1].sort(wanted[1], spare[1], 0); });
}

}  // namespace

std::vector<std::uint32_t> foldedOrder(std::vector<std::string_view> texts) {
  std::vector<Entry> entries(texts.size());
  for (std::size_t place = 0; place < texts.size(); ++place) entries[place].place = static_cast<std::uint32_t>(place);
  if (texts.size() < worthTwoThreads) {
    std::vector<Entry> spare(texts.size());
    FoldedSort sort(texts);
    sort.readWords(entries, 0);
    sort.sort(entries, spare, 0);
  } else {
    sortInTwo(texts, entries);
  }
  std::vector<std::uint32_t> order(texts.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = entries[i].place;
  return order;
}

}  // namespace plimo
