#include "support/sample_settings.h"

#include "base/quoted_format.h"

namespace plimo {

std::string settingsText(const SampleSettings& settings) {
  std::string text;
  writeNumber(text, settings.winamp ? 1 : 0);
  writeBoolean(text, !settings.scanAtStart);
  writeBoolean(text, settings.scanAtStart);
  writeText(text, settings.drives);
  writeNumber(text, 0);
  writeNumber(text, 0);
  for (int i = 0; i < 2; ++i) {
    writeNumber(text, 65535);
    writeNumber(text, 4194304);
  }
  writeNumber(text, 65535);
  writeText(text, "4194304");
  return text;
}

}  // namespace plimo
