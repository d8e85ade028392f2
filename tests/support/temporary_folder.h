// Helpers for tests on the real disk.
#pragma once

#include <string>

namespace plimo {

// If the test runs as root, changes to an unprivileged user during its lifetime, so that permissions apply.
class UnprivilegedUser {
 public:
  UnprivilegedUser();
  UnprivilegedUser(const UnprivilegedUser&) = delete;
  UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;
  ~UnprivilegedUser();

 private:
  bool changed_ = false;
};

// A new folder, removed with its content by the destructor.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

void writeFile(const std::string& path, const std::string& content);
void makeFolders(const std::string& path);  // with missing parents
void changeMode(const std::string& path, unsigned mode);

}  // namespace plimo
