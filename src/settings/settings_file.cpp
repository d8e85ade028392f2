#include "settings/settings_file.h"

#include <cmath>

#include "base/errors.h"
#include "base/quoted_format.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr int panelValues = 6;
constexpr int driveValue = 4;

double number(const Field& field, const std::string& path) {
  double value = 0;
  if (!parseNumber(field.text, value)) throw RuntimeError(ErrorNumber::typeMismatch, path);
  return value;
}

int shortInteger(const Field& field, const std::string& path) {
  const double value = number(field, path);
  if (std::nearbyint(value) != value) throw RuntimeError(ErrorNumber::typeMismatch, path);
  if (value < INT16_MIN || value > INT16_MAX) throw RuntimeError(ErrorNumber::overflow, path);
  return static_cast<int>(value);
}

// Always a text: a truth value in its place is an error.
std::string_view driveText(const Field& field, const std::string& path) {
  if (field.hashFramed()) throw RuntimeError(ErrorNumber::typeMismatch, path);
  return field.text;
}

}  // namespace

ColourScheme SavedSettings::scheme(const std::string& path) const {
  ColourScheme scheme{};
  for (std::size_t i = 0; i < colours.size(); ++i) scheme[i] = colours[i].colour(path);
  scheme.back() = toColour(lastColour, path);
  return scheme;
}

bool hasSettings(FileSystemObject& files, const std::string& path) {
  try {
    return checkedFileExists(files, path);
  } catch (const RuntimeError& error) {
    if (error.number() != ErrorNumber::diskNotReady) throw;
    return false;
  }
}

SavedSettings readSettings(FileSystemObject& files, const std::string& path) {
  const std::string content = readWhole(files, path);
  QuotedReader reader(content, path);
  SavedSettings settings;
  settings.useWinamp = UntypedValue(reader.next());
  settings.noScan = UntypedValue(reader.next());
  settings.scan = UntypedValue(reader.next());
  const std::vector<std::string_view> letters = split(driveText(reader.next(), path), ':');
  settings.driveLetters.assign(letters.begin(), letters.end());
  settings.splash = UntypedValue(reader.next());
  settings.compact = shortInteger(reader.next(), path);
  for (UntypedValue& colour : settings.colours) colour = UntypedValue(reader.next());
  settings.lastColour = number(reader.next(), path);
  return settings;
}

void writeSettings(FileSystemObject& files, const std::string& path, const PanelSettings& panel,
                   const ColourScheme& scheme) {
  replaceWhole(files, path, settingsText(panelText(panel), scheme), Force::own);
}

void writePanelSettings(FileSystemObject& files, const std::string& path, const PanelSettings& panel) {
  replaceWhole(files, path, panelText(panel), Force::own);
}

void storeScheme(FileSystemObject& files, const std::string& path, const std::string& temporary,
                 const ColourScheme& scheme) {
  std::string panel(emptyPanelText);
  if (checkedFileExists(files, path)) panel = panelTextOf(readWhole(files, path), path);
  const std::string content = settingsText(panel, scheme);
  replaceWhole(files, temporary, content, Force::own);
  try {
    replaceWhole(files, path, content, Force::own);
  } catch (const RuntimeError&) {
    deleteIfPresent(files, temporary);
    throw;
  }
  deleteIfPresent(files, temporary);
}

std::string panelText(const PanelSettings& panel) {
  std::string drives;
  for (const std::string& letter : panel.driveLetters) drives.append(letter).append(":");
  std::string file;
  writeNumber(file, panel.useWinamp ? 1 : 0);
  writeBoolean(file, panel.noScan);
  writeBoolean(file, panel.scan);
  writeText(file, drives);
  writeNumber(file, panel.splash ? 1 : 0);
  writeNumber(file, panel.compact ? 1 : 0);
  return file;
}

std::string panelTextOf(std::string_view content, const std::string& path) {
  std::string panel;
  QuotedReader reader(content, path);
  for (int value = 1; value <= panelValues; ++value) {
    const Field field = reader.next();
    if (value == driveValue) {
      writeText(panel, driveText(field, path));
    } else {
      UntypedValue(field).appendTo(panel);
    }
  }
  return panel;
}

std::string settingsText(std::string_view panelText, const ColourScheme& scheme) {
  std::string file(panelText);
  for (std::size_t i = 0; i + 1 < scheme.size(); ++i) writeNumber(file, scheme[i]);
  writeText(file, std::to_string(scheme.back()));
  return file;
}

}  // namespace plimo
