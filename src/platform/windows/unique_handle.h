// Owns a handle of the system and closes it.
#pragma once

#include <windows.h>

#include <utility>

namespace plimo {

class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(HANDLE handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~UniqueHandle() { close(); }

  // False if there is no handle, as after a failed CreateFile.
  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  HANDLE get() const { return handle_; }
  // Keeps the thread's last error.
  void close() {
    if (!*this) return;
    const DWORD error = ::GetLastError();
    ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
    ::SetLastError(error);
  }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

}  // namespace plimo
