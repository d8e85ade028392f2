#include "platform/linux/path_text.h"

namespace plimo {

std::string joinPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '/') path += '/';
  return path.append(name);
}

std::string_view baseName(std::string_view path) {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

std::string parentPath(std::string_view path) {
  path.remove_suffix(baseName(path).size());
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

std::string normalizePath(std::string_view path) {
  std::string normalized;
  for (const char c : path) {
    if (c != '/' || !normalized.ends_with('/')) normalized += c;
  }
  if (normalized.size() > 1 && normalized.back() == '/') normalized.pop_back();
  return normalized;
}

bool folderContains(std::string_view folder, std::string_view path) {
  if (folder == "/") return path.starts_with('/');
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace plimo
