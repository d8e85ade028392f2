// Expectations of files, program starts, the player, and the end of the program.
#include <algorithm>
#include <array>

#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/paths.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

void file(Session& session, const Line& line) {
  if (!session.files.fileFlags(line.arguments[0])) {
    session.reporter.fail("the file " + quoted(line.arguments[0]), "none");
  }
}

void noFile(Session& session, const Line& line) {
  if (session.files.fileFlags(line.arguments[0])) session.reporter.fail("no file " + quoted(line.arguments[0]), "one");
}

void spelled(Session& session, const Line& line) {
  const std::string& path = line.arguments[0];
  const std::string_view wanted = session.files.fileName(path);
  const auto got = session.files.spelledName(path);
  if (got != wanted) {
    session.reporter.fail("a file spelled " + quoted(wanted), got ? quoted(*got) : "none");
  }
}

// The text from the first line that differs, shortened.
std::string fromDifference(std::string_view text, std::string_view other) {
  constexpr std::size_t shown = 300;
  const auto mismatch = std::mismatch(text.begin(), text.end(), other.begin(), other.end()).first;
  std::size_t start = static_cast<std::size_t>(mismatch - text.begin());
  const std::size_t lineEnd = text.substr(0, start).rfind('\n');
  start = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
  const std::string_view rest = text.substr(start);
  return (start > 0 ? "... " : "") + quoted(rest.substr(0, shown)) + (rest.size() > shown ? " ..." : "");
}

void text(Session& session, const Line& line) {
  std::string wanted;
  for (const std::string& row : line.block) wanted.append(row).append("\r\n");
  const auto got = session.files.fileContent(line.arguments[0]);
  if (!got) {
    session.reporter.fail("the file " + quoted(line.arguments[0]), "none");
  } else if (*got != wanted) {
    session.reporter.fail("the text " + fromDifference(wanted, *got), fromDifference(*got, wanted));
  }
}

void started(Session& session, const Line& line) {
  const bool minimised = line.arguments.size() > 1;
  const std::string expected = "the start " + quoted(line.arguments[0]) + (minimised ? " minimised" : "");
  auto& starts = session.started();
  if (starts.empty()) {
    session.reporter.fail(expected, "none");
    return;
  }
  const FakeLauncher::Started got = std::move(starts.front());
  starts.pop_front();
  if (got.commandLine != line.arguments[0] || (minimised && !got.minimised)) {
    session.reporter.fail(expected, quoted(got.commandLine) + (got.minimised ? " minimised" : ""));
  }
}

void notStarted(Session& session, const Line&) {
  if (!session.started().empty()) {
    session.reporter.fail("no program start", quoted(session.started().front().commandLine));
  }
}

void opened(Session& session, const Line& line) {
  auto& openings = session.opened();
  const std::string expected = "the opening of " + quoted(line.arguments[0]);
  if (openings.empty()) {
    session.reporter.fail(expected, "none");
    return;
  }
  const std::string got = std::move(openings.front());
  openings.pop_front();
  if (!samePath(got, line.arguments[0])) session.reporter.fail(expected, quoted(got));
}

void notOpened(Session& session, const Line&) {
  if (!session.opened().empty()) session.reporter.fail("no opening by the player", quoted(session.opened().front()));
}

void expectPlayer(Session& session, const std::string& property, const std::string& wanted, const std::string& got) {
  if (got != wanted) session.reporter.fail("the player's " + property + " " + quoted(wanted), quoted(got));
}

// Before the first start: a failed expectation, and false.
bool hasPlayer(Session& session) {
  if (!session.run) session.reporter.fail("the program to have been started", "no start");
  return session.run != nullptr;
}

void player(Session& session, const Line& line) {
  if (!hasPlayer(session)) return;
  const std::string& property = line.arguments[0];
  const FakePlayer& player = session.run->player;
  const bool on = property == "visible"        ? session.visible(session.run->program.form1().MediaPlayer1)
                  : property == "AutoStart"    ? player.autoStart()
                  : property == "ShowControls" ? player.showControls()
                                               : player.enabled();
  expectPlayer(session, property, line.arguments[1], on ? "true" : "false");
}

void playerFileName(Session& session, const Line& line) {
  if (hasPlayer(session)) expectPlayer(session, "filename", line.arguments[0], session.run->player.fileName());
}

void playerState(Session& session, const Line& line) {
  if (!hasPlayer(session)) return;
  const bool playing = session.run->player.state() == FakePlayer::State::playing;
  expectPlayer(session, "state", line.arguments[0], playing ? "playing" : "stopped");
}

void running(Session& session, const Line&) {
  if (!session.running()) session.reporter.fail("a program that is running", session.run ? "its end" : "no start");
}

void ended(Session& session, const Line& line) {
  const std::string expected =
      "the program's end" + (line.arguments.empty() ? "" : " with status " + line.arguments[0]);
  if (!session.run || session.running()) {
    session.reporter.fail(expected, session.run ? "it running" : "no start");
    return;
  }
  const int status = session.run->program.status();
  if (!line.arguments.empty() && *parseInteger(line.arguments[0]) != status) {
    session.reporter.fail(expected, "status " + std::to_string(status));
  }
}

constexpr std::array commands{
    Command{"expect file", "PATH", file},
    Command{"expect no file", "PATH", noFile},
    Command{"expect spelled", "PATH", spelled},
    Command{"expect text", "PATH", text, Block::always},
    Command{"expect started", "TEXT minimised?", started},
    Command{"expect not started", "", notStarted},
    Command{"expect opened", "PATH", opened},
    Command{"expect not opened", "", notOpened},
    Command{"expect player", "visible|AutoStart|ShowControls|Enabled true|false", player},
    Command{"expect player filename", "TEXT", playerFileName},
    Command{"expect player state", "stopped|playing", playerState},
    Command{"expect running", "", running},
    Command{"expect ended", "WHOLE?", ended},
};

}  // namespace

std::span<const Command> machineExpectations() { return commands; }

}  // namespace plimo::scenario
