#include "main/native.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_launcher.h"

namespace plimo {

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<PosixFiles>();
  std::vector<DriveRoot> table;
  for (const NamedDrive& drive : named) table.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<PosixFiles>(table);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<PosixLauncher>(); }

}  // namespace plimo
