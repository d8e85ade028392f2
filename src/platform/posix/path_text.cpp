#include "platform/posix/path_text.h"

#include <cstddef>

namespace plimo {

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

std::string_view lastPiece(std::string_view path) {
  const std::size_t end = path.rfind('/');
  return end == std::string_view::npos ? path : path.substr(end + 1);
}

std::string parentOf(std::string_view path) {
  path.remove_suffix(lastPiece(path).size());
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

std::string tidyPath(std::string_view path) {
  std::string tidy;
  for (const char c : path) {
    if (c != '/' || !tidy.ends_with('/')) tidy += c;
  }
  if (tidy.size() > 1 && tidy.back() == '/') tidy.pop_back();
  return tidy;
}

bool liesIn(std::string_view path, std::string_view folder) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace plimo
