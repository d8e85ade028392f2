// Deletes the files of songs.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/progress.h"

namespace plimo {

// Deletes the files of all records that match the names: in the names' order, each name's in record order. A
// read-only file stays. The first failure is thrown and ends it: the catalogue cannot be read, a file does not exist
// (for a name listed twice, the second time) or may not be deleted. Without names nothing is read.
void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names);

}  // namespace plimo
