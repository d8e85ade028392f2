#include "platform/memory/short_name.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace plimo {

namespace {

bool isAllowed(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte > ' ' && byte != 0x7F && std::string_view(".+,;=[]\"*/:<>?\\|").find(c) == std::string_view::npos;
}

// A byte of a UTF-8 character after its first.
bool isContinuationByte(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t countCharacters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !isContinuationByte(c); }));
}

// The first `limit` allowed characters, in upper case.
std::string firstAllowed(std::string_view text, std::size_t limit) {
  std::string result;
  std::size_t count = 0;
  for (const char c : text) {
    if (!isAllowed(c)) continue;
    if (!isContinuationByte(c) && ++count > limit) break;
    result += c;
  }
  return upperAscii(result);
}

struct NameParts {
  std::string_view stem;
  std::string_view extension;
  bool hasDot = false;
};

NameParts splitName(std::string_view name) {
  name.remove_prefix(std::min(name.find_first_not_of('.'), name.size()));
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return {name, {}, false};
  return {name.substr(0, dot), name.substr(dot + 1), true};
}

}  // namespace

bool fitsShortName(std::string_view name) {
  if (name.empty() || name.front() == '.') return false;
  const NameParts parts = splitName(name);
  const auto fits = [](std::string_view text, std::size_t limit) {
    return !text.empty() && countCharacters(text) <= limit && std::all_of(text.begin(), text.end(), isAllowed);
  };
  return fits(parts.stem, 8) && (!parts.hasDot || fits(parts.extension, 3));
}

std::string ShortNames::nameFor(std::string_view name, const std::function<bool(std::string_view)>& taken) {
  if (fitsShortName(name)) return std::string(name);
  const NameParts parts = splitName(name);
  std::string extension = firstAllowed(parts.extension, 3);
  if (!extension.empty()) extension.insert(0, 1, '.');
  const std::string stem = firstAllowed(parts.stem, 6);
  for (unsigned long& number = nextNumber_.try_emplace(stem + extension, 1).first->second;; ++number) {
    const std::string tail = "~" + std::to_string(number);
    std::string candidate = firstAllowed(stem, 8 - std::min<std::size_t>(tail.size(), 8));
    candidate.append(tail).append(extension);
    if (!taken(candidate)) return candidate;
  }
}

void ShortNames::release(std::string_view shortName) {
  if (shortName.find('~') != std::string_view::npos) nextNumber_.clear();
}

}  // namespace plimo
