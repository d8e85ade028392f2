#include "support/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace plimo {

namespace {

void require(bool condition, const std::string& message) {
  if (!condition) throw std::runtime_error(message);
}

}  // namespace

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

std::string TemporaryFolder::operator/(const std::string& name) const { return path_ + "/" + name; }

void writeFile(const std::string& path, const std::string& content) {
  makeFolders(std::filesystem::path(path).parent_path());
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  require(static_cast<bool>(file), "cannot write " + path);
}

void makeFolders(const std::string& path) { std::filesystem::create_directories(path); }

}  // namespace plimo
