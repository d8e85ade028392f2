#include "main/native.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/linux_launcher.h"

namespace plimo {

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<LinuxFiles>();
  std::vector<DriveRoot> drives;
  for (const NamedDrive& drive : named) drives.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<LinuxFiles>(drives);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<LinuxLauncher>(); }

}  // namespace plimo
