#include "settings/winamp_path.h"

#include "base/quoted_format.h"

namespace plimo {

std::string readWinampPath(FileSystemObject& files, const std::string& file) {
  const std::string content = readWhole(files, file);
  QuotedReader reader(content, file);
  return std::string(reader.next().text);
}

void writeWinampPath(FileSystemObject& files, const std::string& file, std::string_view winamp) {
  std::string content;
  writeText(content, winamp);
  replaceWhole(files, file, content, Force::own);
}

}  // namespace plimo
