#include "platform/player/playlist_files.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace plimo {

CheckedEntry checkFile(std::string_view name, const std::string& folder) {
  if (name.empty()) return {Playable::missing, {}};
  std::error_code failed;
  const auto path = std::filesystem::absolute(std::filesystem::path(folder) / std::string(name), failed);
  if (failed) return {Playable::missing, {}};
  const std::filesystem::file_status status = std::filesystem::status(path, failed);
  if (!std::filesystem::exists(status)) return {Playable::missing, {}};
  if (!std::filesystem::is_regular_file(status)) return {Playable::notASong, {}};
  // Pseudo files as in /proc, which may block for ever when read, have the size 0 too.
  if (std::filesystem::file_size(path, failed) == 0) return {Playable::empty, {}};
  return {Playable::yes, path.string()};
}

std::optional<std::string> readPlaylistFile(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  // No more than its size, so that reading ends even if a device has taken the file's name meanwhile.
  const std::uintmax_t size = std::filesystem::file_size(path, ignored);
  std::string text(ignored ? 0 : static_cast<std::size_t>(size), '\0');
  std::ifstream stream(path, std::ios::binary);
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

std::string folderOfPlaylist(const std::string& path) { return std::filesystem::path(path).parent_path().string(); }

}  // namespace plimo
