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

// The sort moves these small records; the strings themselves stay in place.
struct Entry {
  std::uint64_t word;      // eight bytes of the key in big-endian order, padded with zeros
  std::uint32_t nextWord;  // index of the key's following word
  std::uint32_t index;     // index of the string
};

// Only the last word of a key ends with a zero byte.
inline bool isLastWord(std::uint64_t word) { return (word & 0xFF) == 0; }

inline std::uint64_t loadBigEndian(const char* bytes) {
  const auto byte = [bytes](int i) { return std::uint64_t{static_cast<unsigned char>(bytes[i])}; };
  // Written out, because compilers turn this form into one load and a byte swap.
  return byte(0) << 56 | byte(1) << 48 | byte(2) << 40 | byte(3) << 32 | byte(4) << 24 | byte(5) << 16 | byte(6) << 8 |
         byte(7);
}

// The bytes after the last whole word, padded with zeros.
inline std::uint64_t lastWord(std::string_view text) {
  const std::size_t tail = text.size() % wordSize;
  if (tail == 0) return 0;
  const std::size_t padding = 8 * (wordSize - tail);
  if (text.size() >= wordSize) return loadBigEndian(text.data() + text.size() - wordSize) << padding;
  std::uint64_t word = 0;
  for (const char byte : text) word = word << 8 | static_cast<unsigned char>(byte);
  return word << padding;
}

// The case-folded sort keys of a range of strings, as contiguous 64-bit words that compare like the bytes.
class FoldedKeys {
 public:
  FoldedKeys() = default;
  // Builds the keys of the strings [first, first + entries.size()) and sets each entry to its key's first word.
  FoldedKeys(const TextAt& textAt, std::size_t first, std::span<Entry> entries) {
    words_.reserve(entries.size() * 3);
    // Non-ASCII strings are collected without a branch and folded in a second pass: a branch on isAllAscii is
    // mispredicted often, and a branch misprediction costs as much as folding a string. Their first, unusable words are
    // left in place for the same reason.
    std::vector<std::uint32_t> nonAscii(entries.size());
    std::size_t nonAsciiCount = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const auto index = static_cast<std::uint32_t>(first + i);
      const bool ascii = appendWords(textAt(index), index, entries[i], asciiToLower);
      nonAscii[nonAsciiCount] = static_cast<std::uint32_t>(i);
      nonAsciiCount += ascii ? 0 : 1;
    }
    std::string folded;
    for (const std::uint32_t i : std::span(nonAscii).first(nonAsciiCount)) {
      folded.clear();
      appendFolded(folded, textAt(first + i));
      appendWords(folded, static_cast<std::uint32_t>(first + i), entries[i], [](std::uint64_t word) { return word; });
    }
  }

  std::uint64_t operator[](std::size_t wordIndex) const { return words_[wordIndex]; }
  // True if a string contains a NUL byte, which cannot be told from the padding.
  bool containsNul() const { return containsNul_; }

 private:
  // Appends the string's words, transformed by `fold`. Returns false if the string is not plain ASCII; asciiToLower has
  // then produced unusable words.
  template <class Fold>
  bool appendWords(std::string_view text, std::uint32_t index, Entry& entry, Fold fold) {
    const std::uint64_t last = lastWord(text);
    std::uint64_t nulBytes = zeroByteMask(last | ~std::uint64_t{0} >> 8 * (text.size() % wordSize));
    std::uint64_t allBits = last;
    entry.nextWord = static_cast<std::uint32_t>(words_.size());
    entry.index = index;
    entry.word = fold(text.size() < wordSize ? last : loadBigEndian(text.data()));
    for (std::size_t offset = 0; text.size() - offset >= wordSize; offset += wordSize) {
      const std::uint64_t word = loadBigEndian(text.data() + offset);
      nulBytes |= zeroByteMask(word);
      allBits |= word;
      if (offset > 0) words_.push_back(fold(word));
    }
    if (text.size() >= wordSize) words_.push_back(fold(last));
    containsNul_ = containsNul_ || nulBytes != 0;
    return isAllAscii(allBits);
  }

  std::vector<std::uint64_t> words_;
  bool containsNul_ = false;
};

// A stable MSD radix sort over the keys' words. Each pass skips the bits that all entries have in common; small ranges
// are sorted by insertion.
class RadixSorter {
 public:
  // keys[0] holds the keys of the strings before the index `middle`, keys[1] those of the others. `scratch` must be at
  // least as large as the range to sort.
  RadixSorter(std::span<const FoldedKeys, 2> keys, std::size_t middle, std::span<Entry> scratch)
      : keys_(keys), middle_(middle), scratch_(scratch) {}

  bool less(const Entry& left, const Entry& right) const {
    if (left.word != right.word) return left.word < right.word;
    bool ended = isLastWord(left.word);
    for (std::uint32_t i = 0; !ended; ++i) {
      const std::uint64_t leftWord = wordAt(left, left.nextWord + i);
      const std::uint64_t rightWord = wordAt(right, right.nextWord + i);
      if (leftWord != rightWord) return leftWord < rightWord;
      ended = isLastWord(leftWord);
    }
    return left.index < right.index;
  }

  // The entries must be ordered by index and hold the first words of their keys.
  void sort(std::span<Entry> entries) {
    constexpr std::size_t insertionSortLimit = 16;
    constexpr std::size_t wideDigitLimit = 4096;  // below it, clearing 2048 counters costs more than a second pass
    while (entries.size() > insertionSortLimit) {
      std::uint64_t differingBits = 0;
      for (const Entry& entry : entries) differingBits |= entry.word ^ entries.front().word;
      if (differingBits != 0) {
        entries = entries.size() > wideDigitLimit ? radixPass<11>(entries, differingBits)
                                                  : radixPass<8>(entries, differingBits);
      } else if (!isLastWord(entries.front().word)) {
        for (Entry& entry : entries) entry.word = wordAt(entry, entry.nextWord++);
      } else {
        return;  // all keys are equal
      }
    }
    insertionSort(entries);
  }

 private:
  std::uint64_t wordAt(const Entry& entry, std::size_t wordIndex) const {
    return keys_[entry.index < middle_ ? 0 : 1][wordIndex];
  }

  void insertionSort(std::span<Entry> entries) const {
    for (std::size_t i = 1; i < entries.size(); ++i) {
      const Entry entry = entries[i];
      std::size_t target = i;
      for (; target > 0 && less(entry, entries[target - 1]); --target) entries[target] = entries[target - 1];
      entries[target] = entry;
    }
  }

  // Distributes the entries into buckets by the highest differing bits and sorts every bucket except the largest, which
  // is returned to the caller's loop. That bounds the recursion depth to the logarithm of the number of entries.
  template <int bits>
  std::span<Entry> radixPass(std::span<Entry> entries, std::uint64_t differingBits) {
    constexpr std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
    const int shift = std::max(static_cast<int>(std::bit_width(differingBits)) - bits, 0);
    const auto digit = [shift](const Entry& entry) { return entry.word >> shift & mask; };
    // Counts, then the buckets' begins, and after the entries are distributed their ends.
    std::array<std::uint32_t, mask + 1> bucketEnds{};
    for (const Entry& entry : entries) ++bucketEnds[digit(entry)];
    std::exclusive_scan(bucketEnds.begin(), bucketEnds.end(), bucketEnds.begin(), 0U);
    for (const Entry& entry : entries) scratch_[bucketEnds[digit(entry)]++] = entry;
    std::copy_n(scratch_.begin(), entries.size(), entries.begin());

    std::span<Entry> largest;
    std::size_t begin = 0;
    for (const std::uint32_t end : bucketEnds) {
      std::span<Entry> bucket = entries.subspan(begin, end - begin);
      begin = end;
      if (bucket.size() > largest.size()) std::swap(bucket, largest);
      if (bucket.size() > 1) sort(bucket);
    }
    return largest;
  }

  std::span<const FoldedKeys, 2> keys_;
  std::size_t middle_;
  std::span<Entry> scratch_;
};

// The median of an evenly spaced sample, as the pivot that divides the work between two threads.
Entry medianOfSample(std::span<const Entry> entries, const RadixSorter& order) {
  std::array<Entry, 65> sample;
  for (std::size_t i = 0; i < sample.size(); ++i) sample[i] = entries[entries.size() / sample.size() * i];
  auto* const median = sample.begin() + sample.size() / 2;
  std::nth_element(sample.begin(), median, sample.end(),
                   [&order](const Entry& left, const Entry& right) { return order.less(left, right); });
  return *median;
}

// Copies the entries that satisfy the predicate and returns their number. `target` must have room for all entries: each
// one is written unconditionally, which avoids branch mispredictions.
template <class Predicate>
std::size_t copyIf(std::span<const Entry> entries, Entry* target, Predicate predicate) {
  std::size_t count = 0;
  for (const Entry& entry : entries) {
    target[count] = entry;
    count += predicate(entry) ? 1 : 0;
  }
  return count;
}

// The fallback for strings with NUL bytes.
std::vector<std::uint32_t> comparisonSort(std::size_t count, const TextAt& textAt) {
  std::string folded;  // all keys, concatenated
  std::vector<std::size_t> offsets(count + 1);
  for (std::size_t index = 0; index < count; ++index) {
    appendFolded(folded, textAt(index));
    offsets[index + 1] = folded.size();
  }
  const auto key = [&](std::uint32_t index) {
    return std::string_view(folded).substr(offsets[index], offsets[index + 1] - offsets[index]);
  };
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(),
                   [&key](std::uint32_t left, std::uint32_t right) { return key(left) < key(right); });
  return order;
}

}  // namespace

std::vector<std::uint32_t> caseInsensitiveOrder(std::size_t count, const TextAt& textAt) {
  constexpr std::size_t parallelThreshold = 32768;
  const std::size_t middle = count < parallelThreshold ? count : count / 2;
  const auto allocate = [count] { return std::make_unique_for_overwrite<Entry[]>(count); };

  const auto unsorted = allocate();
  const std::span<Entry> entries(unsorted.get(), count);
  const auto buildKeys = [&](std::size_t first, std::size_t last) {
    return FoldedKeys(textAt, first, entries.subspan(first, last - first));
  };
  std::array<FoldedKeys, 2> keys;
  if (middle == count) {
    keys[0] = buildKeys(0, count);
  } else {
    std::tie(keys[0], keys[1]) =
        parallelResults([&] { return buildKeys(0, middle); }, [&] { return buildKeys(middle, count); });
  }
  if (keys[0].containsNul() || keys[1].containsNul()) return comparisonSort(count, textAt);

  std::vector<std::uint32_t> order(count);
  const auto sort = [&](std::span<Entry> range, std::span<Entry> scratch, std::size_t first) {
    RadixSorter(keys, middle, scratch).sort(range);
    for (std::size_t i = 0; i < range.size(); ++i) order[first + i] = range[i].index;
  };
  const auto lower = allocate();
  if (middle == count) {
    sort(entries, std::span(lower.get(), count), 0);
    return order;
  }
  // A stable partition around a pivot gives each thread a range of its own; no merge is needed.
  const auto upper = allocate();
  const RadixSorter comparator(keys, middle, {});
  const Entry pivot = medianOfSample(entries, comparator);
  std::size_t lowerCount = 0;
  std::size_t upperCount = 0;
  parallelInvoke(
      [&] {
        lowerCount = copyIf(entries, lower.get(), [&](const Entry& entry) { return comparator.less(entry, pivot); });
      },
      [&] {
        upperCount = copyIf(entries, upper.get(), [&](const Entry& entry) { return !comparator.less(entry, pivot); });
      });
  // The unsorted entries are no longer needed: each thread uses its part of them as scratch space.
  parallelInvoke([&] { sort(std::span(lower.get(), lowerCount), entries.first(lowerCount), 0); },
                 [&] { sort(std::span(upper.get(), upperCount), entries.subspan(lowerCount), lowerCount); });
  return order;
}

}  // namespace plimo
