#include "base/case_insensitive_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <numeric>
#include <span>
#include <string>
#include <tuple>
#include <utility>

#include "base/parallel.h"
#include "base/swar.h"
#include "base/text.h"

namespace plimo {

namespace {

using TextAt = std::function<std::string_view(std::size_t)>;

constexpr std::size_t wordSize = sizeof(std::uint64_t);

// What is sorted, and all that sorting moves.
struct Entry {
  std::uint64_t word;  // eight bytes, the first one highest; zeros behind the text's end
  std::uint32_t next;  // where the text's next word stands
  std::uint32_t index;
};

// A text's last word is the one that ends with a zero.
inline bool isLast(std::uint64_t word) { return (word & 0xFF) == 0; }

inline std::uint64_t wordAt(const char* bytes) {
  const auto byte = [bytes](int i) { return std::uint64_t{static_cast<unsigned char>(bytes[i])}; };
  // Written out, because then it becomes one load.
  return byte(0) << 56 | byte(1) << 48 | byte(2) << 40 | byte(3) << 32 | byte(4) << 24 | byte(5) << 16 | byte(6) << 8 |
         byte(7);
}

// The bytes of a text behind its last whole word.
inline std::uint64_t lastWord(std::string_view text) {
  const std::size_t rest = text.size() % wordSize;
  if (rest == 0) return 0;
  if (text.size() >= wordSize) return wordAt(text.data() + text.size() - wordSize) << (8 * (wordSize - rest));
  std::uint64_t word = 0;
  for (const char byte : text) word = word << 8 | static_cast<unsigned char>(byte);
  return word << (8 * (wordSize - rest));
}

// Texts folded into words, which stand one behind the other.
class FoldedKeys {
 public:
  FoldedKeys() = default;
  // Those of the texts from `first` on, as many as there are entries; each entry gets its text's first one.
  FoldedKeys(const TextAt& textAt, std::size_t first, std::span<Entry> entries) {
    words_.reserve(entries.size() * 3);
    // Those that are not plain ASCII come later: nothing tells the processor beforehand which they are, and each wrong
    // guess of its costs as much as a text. For the same reason the words that are of no use for them stay.
    std::vector<std::uint32_t> others(entries.size());
    std::size_t otherCount = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const auto index = static_cast<std::uint32_t>(first + i);
      const bool ascii = appendWords(textAt(index), index, entries[i], asciiToLower);
      others[otherCount] = static_cast<std::uint32_t>(i);
      otherCount += ascii ? 0 : 1;
    }
    std::string folded;
    for (const std::uint32_t i : std::span(others).first(otherCount)) {
      folded.clear();
      appendFolded(folded, textAt(first + i));
      appendWords(folded, static_cast<std::uint32_t>(first + i), entries[i], [](std::uint64_t word) { return word; });
    }
  }

  std::uint64_t operator[](std::size_t at) const { return words_[at]; }
  // True where a text holds a zero: its words do not tell where it ends then.
  bool ambiguous() const { return ambiguous_; }

 private:
  // Takes the words as `fold` makes them. False where the text is not plain ASCII: for one that is not folded yet they
  // are of no use then.
  template <class Fold>
  bool appendWords(std::string_view text, std::uint32_t index, Entry& entry, Fold fold) {
    const std::uint64_t last = lastWord(text);
    std::uint64_t zeros = zeroByteMask(last | ~std::uint64_t{0} >> 8 * (text.size() % wordSize));
    std::uint64_t all = last;
    entry.next = static_cast<std::uint32_t>(words_.size());
    entry.index = index;
    entry.word = fold(text.size() < wordSize ? last : wordAt(text.data()));
    for (std::size_t at = 0; text.size() - at >= wordSize; at += wordSize) {
      const std::uint64_t word = wordAt(text.data() + at);
      zeros |= zeroByteMask(word);
      all |= word;
      if (at > 0) words_.push_back(fold(word));
    }
    if (text.size() >= wordSize) words_.push_back(fold(last));
    ambiguous_ = ambiguous_ || zeros != 0;
    return isAllAscii(all);
  }

  std::vector<std::uint64_t> words_;
  bool ambiguous_ = false;
};

// Puts entries in order by their texts' words, and those that agree in all of them by their places.
class RadixSorter {
 public:
  // `words` holds those of the texts before the index `middle`, and those of the others. The spare room is for as many
  // entries as are sorted.
  RadixSorter(std::span<const FoldedKeys, 2> words, std::size_t middle, std::span<Entry> spare)
      : words_(words), middle_(middle), spare_(spare) {}

  bool less(const Entry& left, const Entry& right) const {
    if (left.word != right.word) return left.word < right.word;
    bool ended = isLast(left.word);
    for (std::uint32_t i = 0; !ended; ++i) {
      const std::uint64_t ours = word(left, left.next + i);
      const std::uint64_t theirs = word(right, right.next + i);
      if (ours != theirs) return ours < theirs;
      ended = isLast(ours);
    }
    return left.index < right.index;
  }

  // The entries stand by their places, and hold their texts' first words.
  void sort(std::span<Entry> entries) {
    constexpr std::size_t few = 16;
    constexpr std::size_t many = 4096;
    while (entries.size() > few) {
      std::uint64_t differing = 0;  // the bits in which the words are not all the same
      for (const Entry& entry : entries) differing |= entry.word ^ entries.front().word;
      if (differing != 0) {
        entries = entries.size() > many ? radixPass<11>(entries, differing) : radixPass<8>(entries, differing);
      } else if (!isLast(entries.front().word)) {
        for (Entry& entry : entries) entry.word = word(entry, entry.next++);
      } else {
        return;  // the same texts
      }
    }
    insertionSort(entries);
  }

 private:
  std::uint64_t word(const Entry& entry, std::size_t at) const { return words_[entry.index < middle_ ? 0 : 1][at]; }

  void insertionSort(std::span<Entry> entries) const {
    for (std::size_t i = 1; i < entries.size(); ++i) {
      const Entry entry = entries[i];
      std::size_t to = i;
      for (; to > 0 && less(entry, entries[to - 1]); --to) entries[to] = entries[to - 1];
      entries[to] = entry;
    }
  }

  // Parts the entries by the highest bits in which they differ, and sorts each part but the largest one. That one is
  // left to the caller, so that calls never go deep.
  template <int bits>
  std::span<Entry> radixPass(std::span<Entry> entries, std::uint64_t differing) {
    constexpr std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
    const int shift = std::max(static_cast<int>(std::bit_width(differing)) - bits, 0);
    const auto digit = [shift](const Entry& entry) { return entry.word >> shift & mask; };
    std::array<std::uint32_t, mask + 1> ends{};  // of each part; their beginnings while the entries are moved
    for (const Entry& entry : entries) ++ends[digit(entry)];
    std::exclusive_scan(ends.begin(), ends.end(), ends.begin(), 0U);
    for (const Entry& entry : entries) spare_[ends[digit(entry)]++] = entry;
    std::copy_n(spare_.begin(), entries.size(), entries.begin());

    std::span<Entry> most;
    std::size_t begin = 0;
    for (const std::uint32_t end : ends) {
      std::span<Entry> part = entries.subspan(begin, end - begin);
      begin = end;
      if (part.size() > most.size()) std::swap(part, most);
      if (part.size() > 1) sort(part);
    }
    return most;
  }

  std::span<const FoldedKeys, 2> words_;
  std::size_t middle_;
  std::span<Entry> spare_;
};

// A few of the entries, put in order, have it in their middle.
Entry medianOfSample(std::span<const Entry> entries, const RadixSorter& order) {
  std::array<Entry, 65> sample;
  for (std::size_t i = 0; i < sample.size(); ++i) sample[i] = entries[entries.size() / sample.size() * i];
  auto* const middle = sample.begin() + sample.size() / 2;
  std::nth_element(sample.begin(), middle, sample.end(),
                   [&order](const Entry& left, const Entry& right) { return order.less(left, right); });
  return *middle;
}

// Copies the entries that are wanted; how many they are. There must be room for all.
template <class Wanted>
std::size_t copyIf(std::span<const Entry> entries, Entry* to, Wanted wanted) {
  std::size_t count = 0;
  for (const Entry& entry : entries) {
    to[count] = entry;  // in any case: quicker than to guess
    count += wanted(entry) ? 1 : 0;
  }
  return count;
}

std::vector<std::uint32_t> comparisonSort(std::size_t count, const TextAt& textAt) {
  std::string folded;  // all texts, one behind the other
  std::vector<std::size_t> begins(count + 1);
  for (std::size_t index = 0; index < count; ++index) {
    appendFolded(folded, textAt(index));
    begins[index + 1] = folded.size();
  }
  const auto text = [&](std::uint32_t index) {
    return std::string_view(folded).substr(begins[index], begins[index + 1] - begins[index]);
  };
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(),
                   [&text](std::uint32_t left, std::uint32_t right) { return text(left) < text(right); });
  return order;
}

}  // namespace

std::vector<std::uint32_t> caseInsensitiveOrder(std::size_t count, const TextAt& textAt) {
  constexpr std::size_t worthTwoThreads = 32768;
  const std::size_t middle = count < worthTwoThreads ? count : count / 2;
  const auto room = [count] { return std::make_unique_for_overwrite<Entry[]>(count); };

  const auto given = room();
  const std::span<Entry> entries(given.get(), count);
  const auto read = [&](std::size_t first, std::size_t last) {
    return FoldedKeys(textAt, first, entries.subspan(first, last - first));
  };
  std::array<FoldedKeys, 2> words;
  if (middle == count) {
    words[0] = read(0, count);
  } else {
    std::tie(words[0], words[1]) =
        parallelResults([&] { return read(0, middle); }, [&] { return read(middle, count); });
  }
  if (words[0].ambiguous() || words[1].ambiguous()) return comparisonSort(count, textAt);

  std::vector<std::uint32_t> order(count);
  const auto sort = [&](std::span<Entry> some, std::span<Entry> spare, std::size_t first) {
    RadixSorter(words, middle, spare).sort(some);
    for (std::size_t i = 0; i < some.size(); ++i) order[first + i] = some[i].index;
  };
  const auto low = room();
  if (middle == count) {
    sort(entries, std::span(low.get(), count), 0);
    return order;
  }
  // One thread takes the texts before one in the middle of the order, the other one the rest.
  const auto high = room();
  const RadixSorter byWords(words, middle, {});
  const Entry divider = medianOfSample(entries, byWords);
  const auto below = [&](const Entry& entry) { return byWords.less(entry, divider); };
  const auto notBelow = [&](const Entry& entry) { return !byWords.less(entry, divider); };
  std::size_t lowCount = 0;
  std::size_t highCount = 0;
  parallelInvoke([&] { lowCount = copyIf(entries, low.get(), below); },
                 [&] { highCount = copyIf(entries, high.get(), notBelow); });
  parallelInvoke([&] { sort(std::span(low.get(), lowCount), entries.first(lowCount), 0); },
                 [&] { sort(std::span(high.get(), highCount), entries.subspan(lowCount), lowCount); });
  return order;
}

}  // namespace plimo
