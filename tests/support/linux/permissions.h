// Permissions of Linux files, for tests on the real disk.
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

void changeMode(const std::string& path, unsigned mode);

}  // namespace plimo
