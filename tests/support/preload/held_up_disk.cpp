// Loaded before a program (LD_PRELOAD), this holds up its calls on the file or folder $PLIMO_HELD_UP, and on what is
// below it, for a minute, as a network drive that does not answer does. Unlike a tracer, it does not hold up the end of
// the program.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdarg>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

namespace {

constexpr timespec hang = {60, 0};

std::string_view heldUpPath() {
  static const char* const path = std::getenv("PLIMO_HELD_UP");
  return path != nullptr ? path : "";
}

void holdUp(std::string_view path) {
  const std::string_view held = heldUpPath();
  if (held.empty() || !path.starts_with(held)) return;
  if (path.size() == held.size() || path[held.size()] == '/') ::nanosleep(&hang, nullptr);
}

std::string pathOf(int fd) {
  std::array<char, 4096> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(fd);
  const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
  return length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : std::string();
}

void holdUp(int folder, const char* path) {
  if (path[0] == '/' || folder == AT_FDCWD) {
    holdUp(path);
  } else {
    holdUp(pathOf(folder) + "/" + path);
  }
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  holdUp(path);
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  static const auto real = next<int (*)(const char*, int, ...)>("open");
  return real(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  holdUp(folder, path);
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = va_arg(rest, mode_t);
  va_end(rest);
  static const auto real = next<int (*)(int, const char*, int, ...)>("openat");
  return real(folder, path, flags, mode);
}

int stat(const char* path, struct stat* status) noexcept {
  holdUp(path);
  static const auto real = next<int (*)(const char*, struct stat*)>("stat");
  return real(path, status);
}

ssize_t read(int fd, void* buffer, std::size_t size) {
  if (!heldUpPath().empty()) holdUp(pathOf(fd));
  static const auto real = next<ssize_t (*)(int, void*, std::size_t)>("read");
  return real(fd, buffer, size);
}

ssize_t getdents64(int fd, void* buffer, std::size_t size) noexcept {
  holdUp(pathOf(fd));
  static const auto real = next<ssize_t (*)(int, void*, std::size_t)>("getdents64");
  return real(fd, buffer, size);
}

ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset, std::size_t size, unsigned flags) {
  holdUp(pathOf(from));
  holdUp(pathOf(to));
  static const auto real = next<ssize_t (*)(int, off64_t*, int, off64_t*, std::size_t, unsigned)>("copy_file_range");
  return real(from, fromOffset, to, toOffset, size, flags);
}
}
