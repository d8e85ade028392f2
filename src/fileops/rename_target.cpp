#include "fileops/rename_target.h"

#include "base/errors.h"
#include "catalogue/song_name.h"

namespace plimo {

std::string_view proposedName(std::string_view fileName) { return fileName.substr(0, fileName.rfind('.')); }

std::string renamedPath(FileSystemObject& files, const std::string& path, const std::string& name) {
  if (files.holdsSeparator(name)) throw RuntimeError(ErrorNumber::badFileName, name);
  if (!isSongFile(files.fileName(path)) || !files.fileExists(path)) throw RuntimeError(ErrorNumber::fileNotFound, path);
  std::string renamed = files.join(files.folderOf(path), name + ".mp3");
  if (files.sameFile(path, renamed)) throw RuntimeError(ErrorNumber::permissionDenied, renamed);
  return renamed;
}

}  // namespace plimo
