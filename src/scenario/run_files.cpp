#include "scenario/run_files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

#include "scenario/session.h"

namespace plimo::scenario {

namespace {

std::optional<std::string> contentOf(const std::string& file) {
  std::error_code unknown;
  if (std::filesystem::is_directory(file, unknown)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (stream.bad()) return std::nullopt;
  return content;
}

enum class Outcome { passed, failed, unreadable };

Outcome runFile(const std::string& file, const Vocabulary& vocabulary, std::ostream& err) {
  const auto content = contentOf(file);
  if (!content) {
    err << file << ": cannot be read\n";
    return Outcome::unreadable;
  }
  try {
    const Script script = readScript(*content, vocabulary);
    Session session(file, err);
    session.play(script);
    return session.verdicts.failures() == 0 ? Outcome::passed : Outcome::failed;
  } catch (const UnreadableLine& bad) {
    err << file << ':' << bad.line << ": cannot read '" << bad.word << "': " << bad.reason << '\n';
    return Outcome::unreadable;
  }
}

}  // namespace

int runScenarioFiles(std::span<const std::string> files, std::ostream& out, std::ostream& err) {
  // Only its control names are asked for, so that one world does for all files.
  Verdicts verdicts("", err);
  FakeFileSystem disk;
  FakePlayer player;
  ScriptedDialogs dialogs(verdicts);
  FakeLauncher launcher(disk);
  ScriptedProgress progress;
  const Vocabulary vocabulary(Platform{disk, player, dialogs, launcher, progress});

  std::size_t passed = 0;
  bool unreadable = false;
  for (const std::string& file : files) {
    const Outcome outcome = runFile(file, vocabulary, err);
    if (outcome == Outcome::passed) ++passed;
    if (outcome == Outcome::unreadable) unreadable = true;
  }
  out << passed << " passed, " << files.size() - passed << " failed\n";
  if (unreadable) return 2;
  return passed == files.size() ? 0 : 1;
}

}  // namespace plimo::scenario
