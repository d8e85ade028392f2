#include "platform/player/m3u_entries.h"

#include <algorithm>
#include <cctype>
#include <type_traits>

#include "base/text.h"
#include "platform/windows_paths/wtf8.h"

namespace plimo {

namespace {

using NativeCharacter = std::filesystem::path::value_type;

bool endsWithIgnoringCase(std::string_view text, std::string_view ending) {
  if (text.size() < ending.size()) return false;
  return foldCase(text.substr(text.size() - ending.size())) == ending;
}

// True for a URL such as "http://..." or "edl://...". A single letter before the colon is a drive.
bool hasUrlScheme(std::string_view entry) {
  const std::size_t colon = entry.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  const std::string_view scheme = entry.substr(0, colon);
  const auto isSchemeCharacter = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+' || c == '-' || c == '.';
  };
  return std::all_of(scheme.begin(), scheme.end(), isSchemeCharacter) && entry.substr(colon).starts_with("://");
}

std::string_view withoutQuotes(std::string_view item) {
  if (item.size() >= 2 && item.front() == '"' && item.back() == '"') return item.substr(1, item.size() - 2);
  return item;
}

}  // namespace

std::vector<std::string> m3uEntries(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::vector<std::string> entries;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    while (line.starts_with(' ')) line.remove_prefix(1);
    if (line.empty() || line.starts_with('#')) continue;
    entries.emplace_back(withoutQuotes(line));
  }
  return entries;
}

bool isPlaylistName(std::string_view name) {
  return endsWithIgnoringCase(name, ".m3u") || endsWithIgnoringCase(name, ".m3u8");
}

std::filesystem::path toFilesystemPath(std::string_view text) {
  if constexpr (std::is_same_v<NativeCharacter, char>) {
    return std::filesystem::path(std::string(text));
  } else {
    const std::u16string units = wtf8ToUtf16(text);
    return std::filesystem::path(std::basic_string<NativeCharacter>(units.begin(), units.end()));
  }
}

std::string fromFilesystemPath(const std::filesystem::path& path) {
  const auto& name = path.native();
  if constexpr (std::is_same_v<NativeCharacter, char>) {
    return path.string();
  } else {
    return utf16ToWtf8(std::u16string(name.begin(), name.end()));
  }
}

CheckedEntry checkEntry(std::string_view entry, const std::string& folder) {
  if (hasUrlScheme(entry) || entry.find('\0') != std::string_view::npos) return {Playable::notLocal, {}};
  if (isPlaylistName(entry)) return {Playable::notASong, {}};
  return checkFile(entry, folder);
}

}  // namespace plimo
