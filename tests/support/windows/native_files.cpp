#include "support/native_files.h"

#include "platform/windows/windows_files.h"

namespace plimo {

const bool largeViewsAreMapped = false;

std::unique_ptr<FileSystemObject> nativeFilesIn(const std::string& root) {
  return std::make_unique<WindowsFiles>(std::vector<DriveRoot>{{'C', DriveType::fixed, root}});
}

}  // namespace plimo
