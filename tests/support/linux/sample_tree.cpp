// Creates the files of a sample library.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "support/sample_library.h"

namespace plimo {

namespace {

[[noreturn]] void fail(const std::string& path) { throw std::system_error(errno, std::generic_category(), path); }

class Folder {
 public:
  explicit Folder(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0) fail(path);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { ::close(descriptor_); }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace

void createTree(const SampleLibrary& library, const std::string& root) {
  if (::mkdir(root.c_str(), S_IRWXU) != 0) fail(root);
  std::size_t song = 0;
  for (std::size_t folder = 0; folder < library.folders; ++folder) {
    const std::string path = root + folderPath(folder);
    if (folder > 0 && ::mkdir(path.c_str(), S_IRWXU) != 0) fail(path);
    const Folder open(path);
    for (; song < library.songs && library.folderOf(song) == folder; ++song) {
      const std::string name = songFileName(library, song);
      if (::mknodat(open.descriptor(), name.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) != 0) fail(path + '/' + name);
    }
  }
}

}  // namespace plimo
