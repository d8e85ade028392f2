#include "prefs/settings_choice.h"

#include "base/quoted_format.h"
#include "base/text.h"

namespace plimo {

std::string settingsText(const SettingsChoice& choice) {
  std::string file;
  writeNumber(file, choice.useWinamp ? 1 : 0);
  writeBoolean(file, choice.noScan);
  writeBoolean(file, choice.scan);
  writeText(file, choice.drives);
  writeNumber(file, choice.splash ? 1 : 0);
  writeNumber(file, choice.compact ? 1 : 0);
  return file;
}

std::string_view driveLetterOf(std::string_view row) { return prefixBefore(row, ':'); }

std::string driveText(std::span<const std::string_view> rows) {
  std::string text;
  for (const std::string_view row : rows) text.append(driveLetterOf(row)).append(":");
  return text;
}

}  // namespace plimo
