#include "support/native_files.h"

#include "platform/linux/linux_files.h"

namespace plimo {

const bool largeViewsAreMapped = true;

std::unique_ptr<FileSystemObject> nativeFilesIn(const std::string& root) {
  return std::make_unique<LinuxFiles>(std::vector<DriveRoot>{{'C', DriveType::fixed, root}});
}

}  // namespace plimo
