// Copies the files of songs.
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

// Copies the files of all records that match the names into the folder: in the names' order, each name's in record
// order. A file whose name is already present there is not copied; `present` is called with its name.
// Throws if the catalogue cannot be read, 53 if the first file to be copied does not exist, 76 if the folder does not
// exist by then; after the first file, every failure is ignored.
void copySongs(FileSystemObject& files, Progress& progress, const std::string& catalogue, const CopyRequest& request,
               const std::string& folder, const std::function<void(std::string_view name)>& present);

}  // namespace plimo
