// The scenario language: the input is a scenario, which is parsed and run.
#include <sstream>
#include <string>

#include "fuzz/fuzz_input.h"
#include "platform/memory/fake_file_system.h"
#include "scenario/control_names.h"
#include "scenario/parse_error.h"
#include "scenario/parser.h"
#include "scenario/session.h"

using namespace plimo;
using namespace plimo::scenario;

namespace {

// Looks up names in a program that is never started.
struct NameTable {
  FakeFileSystem files;
  FakePlayer player;
  std::ostringstream unused;
  FailureReporter reporter{unused};
  ScriptedDialogs dialogs{reporter};
  FakeLauncher launcher{files};
  ScriptedProgress progress;
  ControlNames names{Platform{files, player, dialogs, launcher, progress}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const std::string_view content = input.rest();
  if (content.find("include") != std::string_view::npos) return 0;  // would read files of this machine
  static const NameTable table;
  Scenario scenario;
  try {
    scenario = parseScenario("fuzz.txt", content, table.names);
  } catch (const ParseError&) {
    return 0;
  }
  std::ostringstream failures;
  Session session(failures);
  session.execute(scenario);
  return 0;
}
