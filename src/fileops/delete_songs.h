// Deletes the files of songs.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/song_lookup.h"
#include "platform/file_system_object.h"
#include "platform/progress.h"

namespace plimo {

// A number of song files and of the folders that contain them.
struct SongFiles {
  std::size_t files = 0;
  std::size_t folders = 0;
};

// The deletion of the files of all records that match some names, in the names' order, each name's in record order.
class SongDeletion {
 public:
  // Reads the catalogue once; without names, not at all. Throws as opening it does.
  SongDeletion(FileSystemObject& files, const std::string& catalogue, std::span<const std::string_view> names);

  // What `run` will delete, each record counted once. Whether the files exist is not checked: with a long list that
  // would delay the question.
  SongFiles extent() const { return extent_; }

  // Deletes only files named like songs; any other one counts as a file that does not exist. A read-only file stays.
  // The first failure is thrown and ends it: a file does not exist (for a name listed twice, the second time) or may
  // not be deleted, or a record of the catalogue is truncated. `deleted` counts the files deleted, also if it throws.
  void run(Progress& progress, std::size_t& deleted) const;

 private:
  FileSystemObject& files_;
  std::size_t names_;
  SongPaths paths_;
  SongFiles extent_;
};

}  // namespace plimo
