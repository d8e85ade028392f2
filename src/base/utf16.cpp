#include "base/utf16.h"

#include <cstddef>

namespace plimo {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstSupplementary = 0x10000;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Removes one character from the front, or one byte if it is invalid.
char32_t takeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return first;
  std::size_t following = 0;
  if (first >= 0xC2 && first <= 0xDF) following = 1;
  if (first >= 0xE0 && first <= 0xEF) following = 2;
  if (first >= 0xF0 && first <= 0xF4) following = 3;
  if (following == 0 || text.size() < following) return replacement;
  char32_t result = first & (0x3Fu >> following);
  for (std::size_t i = 0; i < following; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return replacement;
    result = result << 6 | (byte & 0x3Fu);
  }
  constexpr char32_t smallest[] = {0, 0x80, 0x800, firstSupplementary};
  if (result < smallest[following] || result > 0x10FFFF) return replacement;
  text.remove_prefix(following);
  return result;
}

void append(std::string& text, char32_t character) {
  const auto following = [&text, character](int shift) {
    text.push_back(static_cast<char>(0x80 | (character >> shift & 0x3F)));
  };
  if (character < 0x80) {
    text.push_back(static_cast<char>(character));
  } else if (character < 0x800) {
    text.push_back(static_cast<char>(0xC0 | character >> 6));
    following(0);
  } else if (character < firstSupplementary) {
    text.push_back(static_cast<char>(0xE0 | character >> 12));
    following(6);
    following(0);
  } else {
    text.push_back(static_cast<char>(0xF0 | character >> 18));
    following(12);
    following(6);
    following(0);
  }
}

}  // namespace

std::u16string utf16FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    if (character < firstSupplementary) {
      result.push_back(static_cast<char16_t>(character));
    } else {
      const char32_t offset = character - firstSupplementary;
      result.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
      result.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
    }
  }
  return result;
}

std::string utf8FromUtf16(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t character = text[i];
    if (isHighSurrogate(character) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      character = firstSupplementary + ((character - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
      ++i;
    }
    append(result, character);
  }
  return result;
}

}  // namespace plimo
