// The names of temporary files, which are in the folder of the file that they are to replace.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plimo {

// A new name, different from all others of this process.
std::string makeTemporaryName(std::uint32_t processId);

// True for exactly the names that makeTemporaryName makes.
bool isTemporaryName(std::string_view name);

}  // namespace plimo
