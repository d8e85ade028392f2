// String operations on Linux paths; none of them accesses the disk.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

std::string joinPath(std::string_view folder, std::string_view name);
// The part after the last separator.
std::string_view baseName(std::string_view path);
// All components but the last: "/" for an entry of the root folder, empty for a bare name.
std::string parentPath(std::string_view path);
// With single separators, and none at the end except in "/". Does not resolve "." or "..".
std::string normalizePath(std::string_view path);
// True for the folder itself and everything below it. Both must be normalized.
bool folderContains(std::string_view folder, std::string_view path);

}  // namespace plimo
