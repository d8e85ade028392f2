// Preparing and examining files of the real disk, whatever their names and the length of their paths. Throw
// std::runtime_error if the disk is not in the state that the test expects.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace plimo {

// Also removes read-only files. Does not follow links.
void removeTree(const std::string& path);

std::optional<std::string> readFile(const std::string& path);

void setAttributes(const std::string& path, DWORD attributes);
DWORD attributesOf(const std::string& path);

// False if a file of this name cannot be made: Wine keeps the names of its files in UTF-8, without unpaired surrogates.
bool canBeNamed(const std::string& name);

// Denies these rights to everyone, in the file's access control list.
void denyAccess(const std::string& path, DWORD rights);
// False if access control lists have no effect here.
bool accessCanBeDenied();

}  // namespace plimo
