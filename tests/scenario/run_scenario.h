// Runs scenarios given as text.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "scenario/runner.h"
#include "support/temporary_folder.h"

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
  const TemporaryFolder folder;
  const std::string prefix = std::filesystem::path(folder.path()).generic_string() + "/";
  std::vector<std::string> paths;
  for (const TextFile& file : files) {
    const std::string path = prefix + file.path;
    writeFile(path, file.content);
    if (paths.size() < scenarios) paths.push_back(path);
  }
  std::ostringstream out;
  std::ostringstream err;
  ScenarioResult result{runScenarios(paths, out, err), out.str(), err.str()};
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
