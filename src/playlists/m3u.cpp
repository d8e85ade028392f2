#include "playlists/m3u.h"

#include "base/quoted_format.h"
#include "base/text.h"

namespace plimo {

bool isPlaylistFile(std::string_view name) {
  return name.size() >= 3 && upperAscii(name.substr(name.size() - 3)) == "M3U";
}

std::vector<std::string_view> readPlaylist(std::string_view content, const std::string& path, StringArena& unescaped) {
  QuotedReader reader(content, path);
  std::vector<std::string_view> values;
  while (!reader.atEnd()) {
    const std::string_view value = reader.next().text;
    values.push_back(isSubview(content, value) ? value : unescaped.store(value));
  }
  return values;
}

SavedPlaylist writePlaylist(FileSystemObject& files, const std::string& playlist, Force force,
                            const std::string& catalogue, std::span<const std::string_view> songs) {
  const auto file = files.replaceFile(playlist, force);  // a target that cannot be written is reported first
  SongPaths paths(files, catalogue, songs);
  std::size_t lines = 0;
  files.runInBackground([&] { lines = writePlaylist(*file, paths, songs.size()); });
  return {std::move(paths), lines};
}

std::size_t writePlaylist(FileReplacement& file, const SongPaths& paths, std::size_t songs) {
  constexpr std::size_t pieceSize = std::size_t{1} << 20;  // bytes per write
  std::string piece;
  std::size_t written = 0;
  for (std::size_t song = 0; song < songs; ++song) {
    for (const StoredPath& path : paths.of(song)) {
      append(piece, path);
      piece += "\r\n";
      ++written;
    }
    if (piece.size() >= pieceSize) {
      file.write(piece);
      piece.clear();
    }
  }
  file.write(piece);
  file.commit();
  return written;
}

}  // namespace plimo
