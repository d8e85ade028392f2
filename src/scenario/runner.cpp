#include "scenario/runner.h"

#include "scenario/parse_error.h"
#include "scenario/parser.h"
#include "scenario/read_file.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

enum class Outcome { passed, failed, unreadable };

Outcome runFile(const std::string& file, const ControlNames& names, std::ostream& err) {
  const auto content = readFile(file);
  if (!content) {
    err << file << ": cannot be read\n";
    return Outcome::unreadable;
  }
  try {
    const Scenario scenario = parseScenario(file, *content, names);
    Session session(err);
    session.execute(scenario);
    return session.reporter.count() == 0 ? Outcome::passed : Outcome::failed;
  } catch (const ParseError& error) {
    err << error.location.file << ':' << error.location.line << ": cannot read '" << error.word << "': " << error.reason
        << '\n';
    return Outcome::unreadable;
  }
}

}  // namespace

int runScenarios(std::span<const std::string> files, std::ostream& out, std::ostream& err) {
  // Only looked up, never started: one instance serves all files.
  FailureReporter reporter(err);
  FakeFileSystem disk;
  FakePlayer player;
  ScriptedDialogs dialogs(reporter);
  FakeLauncher launcher(disk);
  ScriptedProgress progress;
  const ControlNames names(Platform{disk, player, dialogs, launcher, progress});

  std::size_t passed = 0;
  bool unreadable = false;
  for (const std::string& file : files) {
    const Outcome outcome = runFile(file, names, err);
    if (outcome == Outcome::passed) ++passed;
    if (outcome == Outcome::unreadable) unreadable = true;
  }
  out << passed << " passed, " << files.size() - passed << " failed\n";
  if (unreadable) return 2;
  return passed == files.size() ? 0 : 1;
}

}  // namespace plimo::scenario
