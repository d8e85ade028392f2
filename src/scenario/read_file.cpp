#include "scenario/read_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace plimo::scenario {

std::optional<std::string> readFile(const std::string& file) {
  std::error_code ignored;
  if (std::filesystem::is_directory(file, ignored)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (stream.bad()) return std::nullopt;
  return content;
}

}  // namespace plimo::scenario
