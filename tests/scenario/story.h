// Runs a scenario that stands in a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "scenario/run_files.h"

namespace plimo::scenario {

struct Told {
  int status = 0;
  std::string out;
  std::string err;  // without the folder of the file, which is called "story"
};

inline Told tellAll(const std::vector<std::string>& stories) {
  namespace fs = std::filesystem;
  std::string pattern = (fs::temp_directory_path() / "plimo-story-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  std::vector<std::string> files;
  for (std::size_t i = 0; i < stories.size(); ++i) {
    files.push_back((folder / (i == 0 ? "story" : "story" + std::to_string(i + 1))).string());
    std::ofstream(files.back(), std::ios::binary) << stories[i];
  }
  std::ostringstream out;
  std::ostringstream err;
  Told told{runScenarioFiles(files, out, err), out.str(), err.str()};
  fs::remove_all(folder);
  const std::string prefix = folder.string() + "/";
  for (std::size_t at = 0; (at = told.err.find(prefix, at)) != std::string::npos;) told.err.erase(at, prefix.size());
  return told;
}

inline Told tell(const std::string& story) { return tellAll({story}); }

}  // namespace plimo::scenario
