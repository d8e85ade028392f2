#include "playback/play_queue.h"

#include "catalogue/song_lookup.h"
#include "playlists/m3u.h"

namespace plimo {

void writePlayQueue(FileSystemObject& files, const std::string& playlist, const std::string& catalogue,
                    std::span<const std::string_view> names) {
  const auto replacement = files.replaceFile(playlist, Force::no);
  const SongPaths paths(files, catalogue, names);
  writePlaylist(*replacement, paths, names.size());
}

}  // namespace plimo
