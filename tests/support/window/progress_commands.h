// The commands that show their progress, performed through the real window on real files.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/window/window_fixture.h"

namespace plimo {

// A command and the repaints of its progress panel.
struct ProgressSample {
  CommandResult result;
  std::size_t repaints = 0;
  double longestGap = 0;         // seconds between two repaints
  std::size_t filesBetween = 0;  // the most files processed between two repaints
  std::size_t filesUnseen = 0;   // the same, including before the first and after the last repaint
};

// Creates a program folder with `songs` songs of `bytes` bytes in its folder "music", set up to be scanned as drive M,
// and makes it the current one.
void prepareProgressCommands(std::size_t songs, const std::string& folder, std::size_t bytes);
std::string musicFolder(const std::string& folder);

// Scans at the start and by command, copies all songs into the program's folder if `copying`, and deletes all songs.
// `processedFiles` counts the files processed so far; null if the caller does not count them.
std::vector<ProgressSample> runProgressCommands(WindowFixture& fixture, std::size_t songs, const std::string& folder,
                                                bool copying, const std::size_t* processedFiles = nullptr);

}  // namespace plimo
