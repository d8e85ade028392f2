#include "playlists/m3u.h"

#include <string>

namespace plimo {

void writePlaylist(FileReplacement& file, const SongPaths& paths, std::size_t songs) {
  constexpr std::size_t pieceSize = std::size_t{1} << 20;  // bytes that go to the disk at once
  std::string piece;
  for (std::size_t song = 0; song < songs; ++song) {
    for (const StoredPath& path : paths.of(song)) {
      append(piece, path);
      piece += "\r\n";
    }
    if (piece.size() >= pieceSize) {
      file.write(piece);
      piece.clear();
    }
  }
  file.write(piece);
  file.commit();
}

}  // namespace plimo
