// A file mapped for reading, which survives that another program truncates it.
//
// Reading a page of a mapping that is no longer in the file raises SIGBUS. A signal handler, installed with the first
// mapping, then replaces the rest of that mapping by zero pages and marks it, so that the read continues. Any other
// SIGBUS goes to the handler that was installed before.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace plimo {

struct MappedRange;  // what the signal handler knows of a mapping

class MappedFile {
 public:
  // Maps the first `size` bytes, at least one. Null if that fails or if too many files are mapped already.
  static std::unique_ptr<MappedFile> map(int fd, std::size_t size);

  // Takes over a mapping and its range.
  MappedFile(MappedRange& range, void* start, std::size_t size);
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  ~MappedFile();

  std::string_view bytes() const { return {static_cast<const char*>(start_), size_}; }
  // True if a page was read that is no longer in the file.
  bool truncated() const;
  // Applies the advice of madvise(2) to whole pages. Only an optimisation, so errors are ignored.
  void advise(std::size_t begin, std::size_t end, int advice);

 private:
  MappedRange& range_;
  void* start_;
  std::size_t size_;
};

}  // namespace plimo
