// Reads scenario files.
#pragma once

#include <optional>
#include <string>

namespace plimo::scenario {

// The whole content. Empty if the file is missing, is a folder or cannot be read.
std::optional<std::string> readFile(const std::string& file);

}  // namespace plimo::scenario
