// What an Accept of the settings panel writes.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace plimo {

struct SettingsChoice {
  bool useWinamp = false;
  bool noScan = false;
  bool scan = false;
  std::string drives;  // as driveText builds it
  bool splash = false;
  bool compact = false;
};

// The settings file's first six values.
std::string settingsText(const SettingsChoice& choice);

// What stands before the first colon of a drive list's row ("C: Hard Drive").
std::string_view driveLetterOf(std::string_view row);

// The letters of these rows, each followed by a colon ("C:E:").
std::string driveText(std::span<const std::string_view> rows);

}  // namespace plimo
