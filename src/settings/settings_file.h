// The settings file plimo.ini: twelve values in the quoted format. All of it is read and written here.
//
// Values 1 to 6 come from the settings panel, 7 to 12 are the colour scheme, the last of them a quoted text.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system_object.h"
#include "settings/colour_scheme.h"
#include "settings/untyped_value.h"

namespace plimo {

inline constexpr std::string_view settingsName = "plimo.ini";
inline constexpr std::string_view temporarySettingsName = "plimo2.ini";  // exists while the colour editor stores

// The twelve values as read.
struct SavedSettings {
  UntypedValue useWinamp;                 // 1: Winamp plays
  UntypedValue noScan;                    // true: "Do not scan" is chosen
  UntypedValue scan;                      // true: "Scan the following drives" is chosen
  std::vector<std::string> driveLetters;  // to scan at start; the last one is empty
  UntypedValue splash;                    // 1: ticked
  int compact = 0;                        // 1: start compact
  std::array<UntypedValue, 5> colours;    // of the scheme, all but the last
  double lastColour = 0;

  // Throws as UntypedValue::colour does; `path` is the file named in the error.
  ColourScheme scheme(const std::string& path) const;
};

// For a start: a drive that is not ready has no settings. Otherwise throws as checkedFileExists does, so that a disk
// that fails for a moment does not make it a first start.
bool hasSettings(FileSystemObject& files, const std::string& path);

// Throws RuntimeError: 53 (no file), 62 (fewer than twelve values), 13 (the fourth framed by hashes, the sixth or the
// last no number), 6 (the sixth beyond sixteen bits), and as FileSystemObject::openForReading does.
SavedSettings readSettings(FileSystemObject& files, const std::string& path);

// What an Accept of the settings panel chooses: values 1 to 6.
struct PanelSettings {
  bool useWinamp = false;
  bool noScan = false;
  bool scan = false;
  std::vector<std::string> driveLetters;
  bool splash = false;
  bool compact = false;
};

// Writes all twelve values in one replacement. Throws as FileSystemObject::replaceFile and its commit do.
void writeSettings(FileSystemObject& files, const std::string& path, const PanelSettings& panel,
                   const ColourScheme& scheme);
// Writes values 1 to 6 alone; the colour editor adds the scheme. Throws likewise.
void writePanelSettings(FileSystemObject& files, const std::string& path, const PanelSettings& panel);
// Replaces the scheme and keeps values 1 to 6, which are empty if there is no file. The new content is first written to
// `temporary`, which is deleted again. Throws as reading and writing do, 62 if there are fewer than six values, 13 if
// the fourth is framed by hashes.
void storeScheme(FileSystemObject& files, const std::string& path, const std::string& temporary,
                 const ColourScheme& scheme);

// --- The text of the file ---

// Values 1 to 6 if there is no settings file.
inline constexpr std::string_view emptyPanelText = "\r\n\r\n\r\n\"\"\r\n\r\n\r\n";
std::string panelText(const PanelSettings& panel);
// Values 1 to 6 of a settings file's content, each in the form in which it was read, the fourth as a text. Throws as
// storeScheme does; `path` is the file named in the error.
std::string panelTextOf(std::string_view content, const std::string& path);
std::string settingsText(std::string_view panelText, const ColourScheme& scheme);

}  // namespace plimo
