// The file of a song, as Windows sees it.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// An absolute path in UTF-16; in the extended form ("\\?\C:\...") if the system would change the plain one.
std::wstring widePath(std::string_view path);

// Why the song cannot be read, as a clause for the user; empty if it can. May wait for the disk.
std::string problemOfFile(const std::wstring& path);

}  // namespace plimo
