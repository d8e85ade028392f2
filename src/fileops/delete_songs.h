// Deleting the files behind songs.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/progress.h"

namespace plimo {

// Deletes the files of all records that match the names: in the names' order, each name's in record order. A file that
// is read-only stays. The first failure ends it and is thrown: of the catalogue, a file that is gone or may not be
// deleted (a name listed twice meets its own deleted file). Without names nothing is read.
void deleteSongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                 std::span<const std::string_view> names);

}  // namespace plimo
