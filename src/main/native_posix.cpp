#include <cstdlib>

#include "main/native.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_launcher.h"

namespace plimo {

namespace {

std::filesystem::path environmentPath(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

}  // namespace

std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named) {
  if (named.empty()) return std::make_unique<PosixFiles>();
  std::vector<DriveRoot> table;
  for (const NamedDrive& drive : named) table.push_back({drive.letter, drive.type, drive.root});
  return std::make_unique<PosixFiles>(table);
}

std::unique_ptr<Launcher> nativeLauncher() { return std::make_unique<PosixLauncher>(); }

std::filesystem::path ownFolder() {
  if (const auto data = environmentPath("XDG_DATA_HOME"); data.is_absolute()) return data / "plimo";
  const auto home = environmentPath("HOME");
  return home.empty() ? home : home / ".local" / "share" / "plimo";
}

}  // namespace plimo
