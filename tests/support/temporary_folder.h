// Helpers for tests on the real file system.
#pragma once

#include <string>

namespace plimo {

// During its lifetime a test that runs as root has the effective ids of an ordinary user, so that permissions apply.
class OrdinaryUser {
 public:
  OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser();

 private:
  bool changed_ = false;
};

// A temporary folder that is removed with its content at the end.
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
