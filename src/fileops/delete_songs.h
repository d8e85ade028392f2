// Deletes the files of songs.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/progress.h"

namespace plimo {

// The song files of all records that match some names, each record counted once. Whether the files exist is not
// checked: with a long list that would delay the question.
struct SongFiles {
  std::size_t files = 0;
  std::size_t folders = 0;
};

// Reads the catalogue once; without names, not at all. Throws as opening it does; a truncated record is ignored.
SongFiles countSongFiles(FileSystemObject& files, const std::string& catalogue,
                         std::span<const std::string_view> names);

// Deletes the files of all records that match the names: in the names' order, each name's in record order. Only files
// named like songs are deleted; any other one counts as a file that does not exist. A read-only file stays. The first
// failure is thrown and ends it: the catalogue cannot be read, a file does not exist (for a name listed twice, the
// second time) or may not be deleted. Without names nothing is read. `deleted` counts the files deleted, also if it
// throws.
void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names, std::size_t& deleted);

}  // namespace plimo
