// Operations on the texts of POSIX paths; none looks at the disk.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

std::string joinPath(std::string_view folder, std::string_view name);
std::string_view lastPiece(std::string_view path);
// All pieces but the last: "/" for a file that stands there, empty for a bare name.
std::string parentOf(std::string_view path);
// Doubled separators made one, and none at the end but that of "/".
std::string tidyPath(std::string_view path);
// True for the folder itself and all below it; both tidy.
bool liesIn(std::string_view path, std::string_view folder);

}  // namespace plimo
