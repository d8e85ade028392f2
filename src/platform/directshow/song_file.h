// The file of a song, as Windows sees it.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// The absolute path in UTF-16; in the long form ("\\?\C:\...") if older functions would not take it.
std::wstring widePath(std::string_view path);

// Why the song cannot be read, as a clause for the user; empty if it can. May wait for the disk.
std::string problemOfFile(const std::wstring& path);

}  // namespace plimo
