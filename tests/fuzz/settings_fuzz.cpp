// plimo.ini and path.kvx. The input is the content of both.
#include <optional>
#include <string>

#include "base/text.h"
#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/naive_reader.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"

using namespace plimo;

namespace {

const std::string settings = R"(C:\Plimo\plimo.ini)";
const std::string winampPath = R"(C:\Plimo\path.kvx)";

template <class Call>
bool succeeds(Call call) {
  try {
    call();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const std::string path(input.text());
  const std::string content(input.rest());
  fuzz::ExactFiles files;
  files.addTextFile(settings, content);
  files.addTextFile(winampPath, path);

  std::string program;
  const bool named = succeeds([&] { program = readWinampPath(files, winampPath); });
  const auto values = fuzz::naiveValues(path);
  fuzz::expect(named == !values.empty() && (!named || program == values.front()), "the first value of path.kvx");

  SavedSettings saved;
  const bool readable = succeeds([&] { saved = readSettings(files, settings); });
  if (readable) fuzz::expect(fuzz::naiveValues(content).size() >= 12, "twelve values");
  std::optional<ColourScheme> scheme;
  if (readable) succeeds([&] { scheme = saved.scheme(settings); });

  // A scheme replaces values 7 to 12 and keeps the others; a refused one leaves the file.
  const ColourScheme stored = scheme.value_or(ColourScheme());
  if (succeeds([&] { storeScheme(files, settings, R"(C:\Plimo\plimo2.ini)", stored); })) {
    const auto before = fuzz::naiveValues(content);
    const auto after = fuzz::naiveValues(files.fileContent(settings).value());
    fuzz::expect(after.size() == 12 && before.size() >= 6, "twelve values after storing a scheme");
    for (std::size_t i = 0; i < 6; ++i) {
      fuzz::expect(trimBlanks(before[i]) == trimBlanks(after[i]), "the values of the panel");
    }
  } else {
    fuzz::expect(files.fileContent(settings) == content, "the old settings after a failure");
  }
  fuzz::expect(!files.fileExists(R"(C:\Plimo\plimo2.ini)"), "no second settings file");
  return 0;
}
