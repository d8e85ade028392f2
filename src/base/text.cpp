#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>

#include "base/swar.h"

namespace plimo {

namespace {

// Every `stride`th code point from first to last is folded by adding the offset.
struct FoldingRange {
  char32_t first;
  char32_t last;
  std::uint8_t stride;
  std::int32_t offset;
};

constexpr FoldingRange foldingRanges[] = {
#include "base/case_folding_table.inc"
};

constexpr char32_t foldByRange(char32_t codePoint) {
  const auto* range = std::upper_bound(std::begin(foldingRanges), std::end(foldingRanges), codePoint,
                                       [](char32_t value, const FoldingRange& r) { return value < r.first; });
  if (range == std::begin(foldingRanges)) return codePoint;
  --range;
  if (codePoint > range->last || (codePoint - range->first) % range->stride != 0) return codePoint;
  return static_cast<char32_t>(static_cast<std::int32_t>(codePoint) + range->offset);
}

// A lookup table for the code points of one or two UTF-8 bytes, which most names consist of.
constexpr std::size_t directTableSize = 0x800;
constexpr auto directTable = [] {
  std::array<char16_t, directTableSize> table{};
  for (char32_t codePoint = 0; codePoint < table.size(); ++codePoint) {
    table[codePoint] = static_cast<char16_t>(foldByRange(codePoint));
  }
  return table;
}();

char32_t foldCodePoint(char32_t codePoint) {
  return codePoint < directTableSize ? directTable[codePoint] : foldByRange(codePoint);
}

// Decodes the UTF-8 sequence at the start of the string. Returns its length; 0 if it is not valid.
std::size_t decode(std::string_view text, char32_t& codePoint) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) {
    codePoint = lead;
    return 1;
  }
  const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                             : lead >= 0xE0 && lead <= 0xEF ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (length == 0 || text.size() < length) return 0;
  codePoint = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    codePoint = (codePoint << 6) | (byte(i) & 0x3FU);
  }
  const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
  const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  return overlong || surrogate || codePoint > 0x10FFFF ? 0 : length;
}

// Writes the code point as UTF-8. Returns the end of the written bytes.
char* encode(char* target, char32_t codePoint) {
  const auto put = [&target](char32_t bits) { *target++ = static_cast<char>(static_cast<unsigned char>(bits)); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0 | (codePoint >> 6));
    put(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    put(0xE0 | (codePoint >> 12));
    put(0x80 | ((codePoint >> 6) & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  } else {
    put(0xF0 | (codePoint >> 18));
    put(0x80 | ((codePoint >> 12) & 0x3F));
    put(0x80 | ((codePoint >> 6) & 0x3F));
    put(0x80 | (codePoint & 0x3F));
  }
  return target;
}

char toUpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

}  // namespace

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

std::string upperAscii(std::string_view text) {
  std::string upper;
  appendUpperAscii(upper, text);
  return upper;
}

void appendUpperAscii(std::string& target, std::string_view text) {
  const std::size_t start = target.size();
  target.append(text);
  std::transform(target.begin() + static_cast<std::ptrdiff_t>(start), target.end(),
                 target.begin() + static_cast<std::ptrdiff_t>(start), toUpperAscii);
}

std::string foldCase(std::string_view text) {
  std::string folded;
  appendFolded(folded, text);
  return folded;
}

void appendFolded(std::string& target, std::string_view text) {
  // Fast path: a plain ASCII prefix is folded in place, eight bytes at a time.
  const std::size_t start = target.size();
  target.append(text);
  std::size_t folded = 0;
  for (std::uint64_t word = 0; text.size() - folded >= sizeof word; folded += sizeof word) {
    std::memcpy(&word, text.data() + folded, sizeof word);
    if (!isAllAscii(word)) break;
    word = asciiToLower(word);
    std::memcpy(target.data() + start + folded, &word, sizeof word);
  }
  text.remove_prefix(folded);
  // Folding adds at most half the length: no sequence of two bytes becomes longer than three.
  target.resize(start + folded + text.size() + text.size() / 2);
  char* end = target.data() + start + folded;
  while (!text.empty()) {
    char32_t codePoint = static_cast<unsigned char>(text.front());
    std::size_t length = 1;
    if (codePoint < 0x80) {
      *end++ = static_cast<char>(directTable[codePoint]);
    } else if ((length = decode(text, codePoint)) > 0) {
      end = encode(end, foldCodePoint(codePoint));
    } else {
      *end++ = text.front();
      length = 1;
    }
    text.remove_prefix(length);
  }
  target.resize(static_cast<std::size_t>(end - target.data()));
}

int compareFolded(std::string_view left, std::string_view right) {
  // Plain ASCII is compared without folded copies.
  const std::size_t commonLength = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < commonLength; ++i) {
    const auto a = static_cast<unsigned char>(left[i]);
    const auto b = static_cast<unsigned char>(right[i]);
    if ((a | b) >= 0x80) return foldCase(left).compare(foldCase(right));
    if (directTable[a] != directTable[b]) return directTable[a] < directTable[b] ? -1 : 1;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string_view prefixBefore(std::string_view text, char separator) { return text.substr(0, text.find(separator)); }

bool isSubview(std::string_view bytes, std::string_view text) {
  const std::less_equal<> notAfter;  // unlike <=, defined for pointers into different objects
  return notAfter(bytes.data(), text.data()) && notAfter(text.data() + text.size(), bytes.data() + bytes.size());
}

std::string counted(std::size_t count, std::string_view noun) {
  return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

std::string elideMiddle(std::string_view text, std::size_t most) {
  constexpr std::string_view dots = "...";
  if (text.size() <= most) return std::string(text);
  const auto continues = [text](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80; };
  std::size_t head = (most - dots.size()) / 2;
  std::size_t tail = text.size() - (most - dots.size() - head);
  while (head > 0 && continues(head)) --head;
  while (tail < text.size() && continues(tail)) ++tail;
  return std::string(text.substr(0, head)).append(dots).append(text.substr(tail));
}

std::string toValidUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    char32_t codePoint = 0;
    const std::size_t length = decode(bytes, codePoint);
    if (length == 0) {
      text += "\xEF\xBF\xBD";
      bytes.remove_prefix(1);
    } else {
      text.append(bytes.substr(0, length));
      bytes.remove_prefix(length);
    }
  }
  return text;
}

}  // namespace plimo
