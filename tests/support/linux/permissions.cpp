#include "support/linux/permissions.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

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

void changeMode(const std::string& path, unsigned mode) { require(::chmod(path.c_str(), mode) == 0, "chmod " + path); }

}  // namespace plimo
