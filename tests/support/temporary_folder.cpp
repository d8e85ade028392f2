#include "support/temporary_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace plimo {

namespace {

constexpr uid_t nobody = 65534;

void require(bool condition, const std::string& message) {
  if (!condition) throw std::runtime_error(message);
}

}  // namespace

UnprivilegedUser::UnprivilegedUser() {
  if (::geteuid() != 0) return;
  require(::setegid(nobody) == 0 && ::seteuid(nobody) == 0, "cannot drop root privileges");
  changed_ = true;
}

UnprivilegedUser::~UnprivilegedUser() {
  if (changed_ && (::seteuid(0) != 0 || ::setegid(0) != 0)) std::abort();
}

TemporaryFolder::TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "plimo-test-XXXXXX") {
  require(::mkdtemp(path_.data()) != nullptr, "cannot create a temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  namespace fs = std::filesystem;
  std::error_code ignored;
  // Restores access to all folders, or their content could not be removed.
  fs::permissions(path_, fs::perms::owner_all, ignored);
  for (fs::recursive_directory_iterator entry(path_, ignored), end; entry != end; entry.increment(ignored)) {
    if (!entry->is_symlink(ignored) && entry->is_directory(ignored)) {
      fs::permissions(entry->path(), fs::perms::owner_all, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

void writeFile(const std::string& path, const std::string& content) {
  makeFolders(std::filesystem::path(path).parent_path());
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  require(static_cast<bool>(file), "cannot write " + path);
}

void makeFolders(const std::string& path) { std::filesystem::create_directories(path); }

void changeMode(const std::string& path, unsigned mode) { require(::chmod(path.c_str(), mode) == 0, "chmod " + path); }

}  // namespace plimo
