// Helpers for tests on the real disk, defined for each operating system.
#pragma once

#include <string>

namespace plimo {

// A new folder, removed with its content by the destructor.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::string& path() const { return path_; }
  // A path in the folder; `name` may have several components, separated by "/" on every system.
  std::string operator/(const std::string& name) const;

 private:
  std::string path_;
};

// Paths are in the machine's own syntax.
void writeFile(const std::string& path, const std::string& content);
void makeFolders(const std::string& path);  // with missing parents

}  // namespace plimo
