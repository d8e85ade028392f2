#include "app/settings_file.h"

#include <cmath>
#include <utility>

#include "base/errors.h"
#include "base/quoted_format.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr Colour white = 16777215;

Colour toColour(double number, const std::string& path) {
  if (number < 0 || number > white) throw RuntimeError(ErrorNumber::overflow, path);
  return static_cast<Colour>(std::nearbyint(number));
}

UntypedValue untyped(const Field& item) { return {std::string(item.text), item.isTrue()}; }

double number(const Field& item, const std::string& path) {
  double value = 0;
  if (!parseNumber(item.text, value)) throw RuntimeError(ErrorNumber::typeMismatch, path);
  return value;
}

int shortInteger(const Field& item, const std::string& path) {
  const double value = number(item, path);
  if (std::nearbyint(value) != value) throw RuntimeError(ErrorNumber::typeMismatch, path);
  if (value < -32768 || value > 32767) throw RuntimeError(ErrorNumber::overflow, path);
  return static_cast<int>(value);
}

}  // namespace

bool UntypedValue::equals(int wanted) const {
  double value = 0;
  return parseNumber(text_, value) && value == wanted;
}

Colour UntypedValue::colour(const std::string& path) const {
  if (text_.empty()) return 0;
  double value = 0;
  if (!parseNumber(text_, value)) throw RuntimeError(ErrorNumber::typeMismatch, path);
  return toColour(value, path);
}

Colour SavedSettings::colour(std::size_t which, const std::string& path) const {
  return which < colours.size() ? colours[which].colour(path) : toColour(lastColour, path);
}

std::vector<std::string> splitDriveLetters(std::string_view drives) {
  const std::vector<std::string_view> pieces = split(drives, ':');
  return {pieces.begin(), pieces.end()};
}

SavedSettings readSettings(FileSystemObject& files, const std::string& path) {
  const auto view = files.openForReading(path);
  QuotedReader reader(view->bytes(), path);
  SavedSettings settings;
  settings.useWinamp = untyped(reader.next());
  settings.noScan = untyped(reader.next());
  settings.scan = untyped(reader.next());
  const Field drives = reader.next();
  if (drives.hashFramed()) throw RuntimeError(ErrorNumber::typeMismatch, path);
  settings.driveLetters = splitDriveLetters(drives.text);
  settings.splash = untyped(reader.next());
  settings.compact = shortInteger(reader.next(), path);
  for (UntypedValue& colour : settings.colours) colour = untyped(reader.next());
  settings.lastColour = number(reader.next(), path);
  return settings;
}

std::string readWinampPath(FileSystemObject& files, const std::string& path) {
  const auto view = files.openForReading(path);
  QuotedReader reader(view->bytes(), path);
  return std::string(reader.next().text);
}

}  // namespace plimo
