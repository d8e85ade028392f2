// What tests on the real disk need.
#pragma once

#include <string>

namespace plimo {

// While it lives, a test that runs as root is an ordinary user to the kernel, whom permissions bind.
class OrdinaryUser {
 public:
  OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  ~OrdinaryUser();

 private:
  bool changed_ = false;
};

// A folder of the test's own, gone with all that is in it at the end.
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
void makeFolders(const std::string& path);  // those on the way too
void changeMode(const std::string& path, unsigned mode);

}  // namespace plimo
