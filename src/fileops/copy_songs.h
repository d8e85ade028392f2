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

// What became of the files.
struct CopyResult {
  std::size_t copied = 0;
  std::size_t alreadyThere = 0;
  std::size_t missing = 0;
  std::size_t failed = 0;
  std::string reason;  // of the first failure
};

// Called with the name of a file that is already in the folder.
using PresentFile = std::function<void(std::string_view name)>;

// Copies the files of all records that match the names into the folder: in the names' order, each name's in record
// order. A file whose name is already there is not copied. Throws if the catalogue cannot be read, 53 if the first file
// to be copied does not exist, 76 if the folder does not exist by then; after the first file, failures are only
// counted. Ends early if the user cancels.
CopyResult copySongs(FileSystemObject& files, Progress& progress, const std::string& catalogue,
                     const CopyRequest& request, const std::string& folder, const PresentFile& present);

// "12 songs copied to D:\\Stick, 3 left out: already there 2, failed 1 (disk full)"
std::string copyStatus(const CopyResult& result, std::string_view folder);

}  // namespace plimo
