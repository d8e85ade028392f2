#include "platform/linux/path_text.h"

#include <cstddef>
#include <cstring>

namespace plimo {

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

std::string_view lastPiece(std::string_view path) {
  const void* const end = path.empty() ? nullptr : ::memrchr(path.data(), '/', path.size());
  return end == nullptr ? path : path.substr(static_cast<std::size_t>(static_cast<const char*>(end) + 1 - path.data()));
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
