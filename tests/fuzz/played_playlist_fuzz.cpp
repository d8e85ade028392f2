// The player's reader of playlists. The input is the playlist.
#include <optional>
#include <string>
#include <vector>

#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "platform/player/m3u_entries.h"

using namespace plimo;

namespace {

std::optional<std::string> entryOfLine(std::string line) {
  if (!line.empty() && line.back() == '\r') line.pop_back();
  line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
  if (line.empty() || line[0] == '#') return std::nullopt;
  const bool quoted = line.size() > 1 && line[0] == '"' && line.back() == '"';
  return quoted ? line.substr(1, line.size() - 2) : line;
}

std::vector<std::string> naiveEntries(std::string_view text) {
  std::vector<std::string> entries;
  std::string line;
  const auto endLine = [&] {
    if (const auto entry = entryOfLine(line)) entries.push_back(*entry);
    line.clear();
  };
  for (std::size_t i = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0; i < text.size(); ++i) {
    if (text[i] == '\n') {
      endLine();
    } else {
      line += text[i];
    }
  }
  endLine();
  return entries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const fuzz::ExactView view(input.rest());
  const auto entries = m3uEntries(view.bytes());
  fuzz::expect(entries == naiveEntries(view.bytes()), "the entries of the playlist");
  for (const std::string& entry : entries) isPlaylistName(entry);
  return 0;
}
