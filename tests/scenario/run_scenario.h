// Runs scenarios given as text.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "scenario/runner.h"

namespace plimo::scenario {

struct ScenarioResult {
  int status = 0;
  std::string out;
  std::string err;  // file names without the temporary folder
};

struct TextFile {
  std::string path;  // relative to the temporary folder; its folders are made
  std::string content;
};

// Writes the files into a temporary folder and runs the first `scenarios` of them.
inline ScenarioResult runScenarioFiles(const std::vector<TextFile>& files, std::size_t scenarios = 1) {
  namespace fs = std::filesystem;
  std::string pattern = (fs::temp_directory_path() / "plimo-scenario-XXXXXX").string();
  const fs::path folder = mkdtemp(pattern.data());
  std::vector<std::string> paths;
  for (const TextFile& file : files) {
    const fs::path path = folder / file.path;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << file.content;
    if (paths.size() < scenarios) paths.push_back(path.string());
  }
  std::ostringstream out;
  std::ostringstream err;
  ScenarioResult result{runScenarios(paths, out, err), out.str(), err.str()};
  fs::remove_all(folder);
  const std::string prefix = folder.string() + "/";
  for (std::size_t at = 0; (at = result.err.find(prefix, at)) != std::string::npos;) {
    result.err.erase(at, prefix.size());
  }
  return result;
}

// The files are called "scenario", "scenario2", ...
inline ScenarioResult runScenarioTexts(const std::vector<std::string>& texts) {
  std::vector<TextFile> files;
  for (const std::string& text : texts) {
    const std::size_t number = files.size() + 1;
    files.push_back({number == 1 ? "scenario" : "scenario" + std::to_string(number), text});
  }
  return runScenarioFiles(files, files.size());
}

inline ScenarioResult runScenarioText(const std::string& text) { return runScenarioTexts({text}); }

}  // namespace plimo::scenario
