#include "support/temporary_folder.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <system_error>

namespace plimo {

namespace {

namespace fs = std::filesystem;

std::string newName() {
  static const unsigned process = std::random_device{}();
  static std::atomic<unsigned> count{0};
  return "plimo-test-" + std::to_string(process) + "-" + std::to_string(count++);
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_((fs::temp_directory_path() / newName()).string()) {
  if (!fs::create_directory(path_)) throw std::runtime_error("cannot create a temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::operator/(const std::string& name) const {
  std::string path = path_ + "\\" + name;
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

void writeFile(const std::string& path, const std::string& content) {
  makeFolders(fs::path(path).parent_path().string());
  std::ofstream file(fs::path(path), std::ios::binary);
  file << content;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

void makeFolders(const std::string& path) { fs::create_directories(path); }

}  // namespace plimo
