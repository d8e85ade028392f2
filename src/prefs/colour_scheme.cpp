#include "prefs/colour_scheme.h"

#include "base/errors.h"
#include "base/quoted_format.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr int settingsBeforeScheme = 6;
constexpr int driveSetting = 4;  // a text, whatever it looks like

// An untyped value goes back as what it was read as: nothing, a truth value, a number or a text.
void rewriteField(std::string& file, const Field& item) {
  double number = 0;
  if (item.form == Field::Form::bare && (item.text.empty() || item.hashFramed() || parseNumber(item.text, number))) {
    file.append(trimBlanks(item.text)).append("\r\n");
  } else {
    writeText(file, item.text);
  }
}

}  // namespace

std::string rewriteFirstSix(std::string_view content, const std::string& path) {
  std::string firstSix;
  QuotedReader reader(content, path);
  for (int setting = 1; setting <= settingsBeforeScheme; ++setting) {
    const Field item = reader.next();
    if (setting != driveSetting) {
      rewriteField(firstSix, item);
    } else if (item.hashFramed()) {
      throw RuntimeError(ErrorNumber::typeMismatch, path);
    } else {
      writeText(firstSix, item.text);
    }
  }
  return firstSix;
}

std::string settingsWithScheme(std::string_view firstSix, const ColourScheme& scheme) {
  std::string file(firstSix);
  for (std::size_t i = 0; i + 1 < scheme.size(); ++i) writeNumber(file, scheme[i]);
  writeText(file, std::to_string(scheme.back()));
  return file;
}

}  // namespace plimo
