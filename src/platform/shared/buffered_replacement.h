// Collects small writes to a file that is being replaced.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/file_system_object.h"

namespace plimo {

class BufferedReplacement : public FileReplacement {
 public:
  void write(std::string_view bytes) final {
    if (bytes.size() >= bufferSize) {  // large pieces are not copied
      flush();
      if (!writeThrough(bytes)) throwWriteError();
      return;
    }
    buffer_.append(bytes);
    if (buffer_.size() >= bufferSize) flush();
  }

  void commit() final {
    flush();
    if (!replace()) throwWriteError();
  }

 protected:
  // Writes to the new file. False on failure, with the system's error code.
  virtual bool writeThrough(std::string_view bytes) = 0;
  // Flushes the new file to the disk and puts it in the place of the old one. False on failure likewise.
  virtual bool replace() = 0;
  // Throws the error for the system's error code.
  [[noreturn]] virtual void throwWriteError() = 0;

 private:
  static constexpr std::size_t bufferSize = 256 * 1024;

  void flush() {
    if (!writeThrough(buffer_)) throwWriteError();
    buffer_.clear();
  }

  std::string buffer_;
};

}  // namespace plimo
