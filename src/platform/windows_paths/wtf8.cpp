#include "platform/windows_paths/wtf8.h"

#include <cstddef>
#include <cstdint>

namespace plimo {

namespace {

bool isLeadSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isTrailSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

struct CodePoint {
  std::uint32_t value = 0;
  std::size_t length = 0;  // in bytes; 0: not valid
};

// The first code point, surrogates included.
CodePoint decode(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])); };
  const std::uint32_t first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return {};
  std::uint32_t value = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return {};
    value = value << 6 | (byte(i) & 0x3FU);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  return overlong || value > 0x10FFFF ? CodePoint{} : CodePoint{value, length};
}

void encode(std::string& target, std::uint32_t value) {
  const auto append = [&](std::uint32_t byte) { target += static_cast<char>(byte); };
  const auto appendRest = [&](unsigned shift) { append(0x80U | (value >> shift & 0x3FU)); };
  if (value < 0x80) {
    append(value);
  } else if (value < 0x800) {
    append(0xC0U | value >> 6);
    appendRest(0);
  } else if (value < 0x10000) {
    append(0xE0U | value >> 12);
    appendRest(6);
    appendRest(0);
  } else {
    append(0xF0U | value >> 18);
    appendRest(12);
    appendRest(6);
    appendRest(0);
  }
}

}  // namespace

std::u16string wtf8ToUtf16(std::string_view text, char16_t replacement) {
  std::u16string units;
  units.reserve(text.size());
  while (!text.empty()) {
    const CodePoint point = decode(text);
    if (point.length == 0) {
      units += replacement;
    } else if (point.value < 0x10000) {
      units += static_cast<char16_t>(point.value);
    } else {
      units += static_cast<char16_t>(0xD800U + ((point.value - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00U + (point.value & 0x3FFU));
    }
    text.remove_prefix(point.length == 0 ? 1 : point.length);
  }
  return units;
}

void appendWtf8(std::string& target, std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t value = text[i];
    if (isLeadSurrogate(value) && i + 1 < text.size() && isTrailSurrogate(text[i + 1])) {
      value = 0x10000 + ((value - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    encode(target, value);
  }
}

std::string utf16ToWtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  appendWtf8(bytes, text);
  return bytes;
}

}  // namespace plimo
