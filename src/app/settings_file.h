// The settings file: twelve values in the quoted notation.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "platform/file_system_object.h"

namespace plimo {

inline constexpr std::string_view settingsName = "plimo.ini";
inline constexpr std::string_view newSettingsName = "plimo2.ini";  // the colour editor's, while it stores
inline constexpr std::string_view winampPathName = "path.kvx";     // one text: the full path of Winamp

// An untyped value: a text that may be a number, or true or false.
class UntypedValue {
 public:
  UntypedValue() = default;
  UntypedValue(std::string text, bool isTrue) : text_(std::move(text)), true_(isTrue) {}
  // A number that equals this one.
  bool equals(int number) const;
  bool isTrue() const { return true_; }
  // A colour number, 0 to 16777215; nothing read is 0. Throws RuntimeError 13 for no number, 6 for one out of range,
  // naming `path`.
  Colour colour(const std::string& path) const;

 private:
  std::string text_;
  bool true_ = false;
};

struct SavedSettings {
  UntypedValue useWinamp;                 // 1: Winamp plays
  UntypedValue noScan;                    // true: "Do not scan" is chosen
  UntypedValue scan;                      // true: "Scan the following drives" is chosen
  std::vector<std::string> driveLetters;  // to scan at start; the last one is empty
  UntypedValue splash;                    // 1: ticked
  int compact = 0;                        // 1: start compact
  std::array<UntypedValue, 5> colours;    // text and background of List2 and List1, text of List4
  double lastColour = 0;                  // background of List4, which stands in the file as a text

  // Of the six, in the file's order; throws as UntypedValue::colour does.
  Colour colour(std::size_t which, const std::string& path) const;
};

// Throws RuntimeError: 53 (no file), 62 (fewer than twelve values), 13 (the fourth framed by hashes, the sixth or the
// last no number), 6 (the sixth beyond sixteen bits), and as FileSystemObject::openForReading does.
SavedSettings readSettings(FileSystemObject& files, const std::string& path);

// The drive letters that value four tells: what stands between its colons.
std::vector<std::string> splitDriveLetters(std::string_view drives);

// The one value of path.kvx. Throws as opening it does, and 62 where it is empty.
std::string readWinampPath(FileSystemObject& files, const std::string& path);

}  // namespace plimo
