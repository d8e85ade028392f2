// Copying the files behind songs.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"
#include "platform/progress.h"

namespace plimo {

// What is to be copied out of a list of songs: the selected rows' names, and whether the first row is among them.
struct CopyRequest {
  std::span<const std::string_view> names;
  bool firstRowSelected = false;
};

// Copies the files of all records that match the names into the folder: in the names' request, each name's in record
// request. A file whose name stands there already is not copied; `present` hears of its name. Throws where the
// catalogue cannot be read, 53 where the first file to be copied is gone, and 76 where the folder is gone when its turn
// comes; from then on, every failure is ignored.
void copySongs(FileSystemObject& files, Progress& progress, const std::string& catalogue, const CopyRequest& request,
               const std::string& folder, const std::function<void(std::string_view name)>& present);

}  // namespace plimo
