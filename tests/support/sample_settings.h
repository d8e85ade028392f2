// Settings files for tests and benchmarks.
#pragma once

#include <string>

namespace plimo {

struct SampleSettings {
  bool winamp = false;  // play with Winamp instead of the built-in player
  bool scanAtStart = false;
  std::string drives;  // to scan, such as "M:"
};

// The content of plimo.ini with these settings and the default colours.
std::string settingsText(const SampleSettings& settings);

}  // namespace plimo
