// Creates the files of a sample library.
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/windows/native_path.h"
#include "support/sample_library.h"

namespace plimo {

void createTree(const SampleLibrary& library, const std::string& root) {
  std::filesystem::create_directory(root);
  std::size_t song = 0;
  for (std::size_t folder = 0; folder < library.folders; ++folder) {
    std::filesystem::path path = root + folderPath(folder);
    if (folder > 0) std::filesystem::create_directory(path);
    for (; song < library.songs && library.folderOf(song) == folder; ++song) {
      // A double quote cannot be part of a name here.
      std::string name = songFileName(library, song);
      for (char& letter : name) letter = letter == '"' ? '\'' : letter;
      const std::ofstream file(path / toWide(name));
      if (!file) throw std::system_error(std::make_error_code(std::errc::io_error), name);
    }
  }
}

}  // namespace plimo
