// The commands that build and change the world.
#include <array>
#include <map>

#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

bool hasKeyword(const Line& line, std::string_view keyword) {
  for (std::size_t i = 1; i < line.arguments.size(); ++i) {
    if (line.arguments[i] == keyword) return true;
  }
  return false;
}

double number(const Line& line, std::size_t index) { return *parseDecimal(line.arguments[index]); }

void drive(Session& session, const Line& line) {
  static const std::map<std::string_view, DriveType> types{
      {"fixed", DriveType::fixed},     {"cdrom", DriveType::cdrom},     {"removable", DriveType::removable},
      {"network", DriveType::network}, {"ramdisk", DriveType::ramdisk}, {"unknown", DriveType::unknown}};
  if (!session.run && !session.drivesNamed) session.files.removeDrives();
  session.drivesNamed = true;
  session.files.addDrive(line.arguments[0][0], types.at(line.arguments[1]), line.arguments.size() < 3);
}

void here(Session& session, const Line& line) { session.files.setCurrentDirectory(line.arguments[0]); }

void folder(Session& session, const Line& line) {
  session.files.addFolder(line.arguments[0],
                          {.unreadable = hasKeyword(line, "unreadable"), .unwritable = hasKeyword(line, "unwritable")});
}

void file(Session& session, const Line& line) {
  const long long size = line.arguments.size() > 1 ? parseInteger(line.arguments[1]).value_or(0) : 0;
  session.files.addFile(line.arguments[0], static_cast<std::uint64_t>(size),
                        {.readOnly = hasKeyword(line, "readonly"),
                         .locked = hasKeyword(line, "locked"),
                         .unreadable = hasKeyword(line, "unreadable")});
}

void text(Session& session, const Line& line) {
  const std::string_view lineEnd = hasKeyword(line, "lf") ? "\n" : "\r\n";
  std::string content;
  for (const std::string& row : line.block) content.append(row).append(lineEnd);
  if (hasKeyword(line, "open") && !content.empty()) content.resize(content.size() - lineEnd.size());
  session.files.addTextFile(line.arguments[0], std::move(content), {.readOnly = hasKeyword(line, "readonly")});
}

void remove(Session& session, const Line& line) {
  if (!session.files.remove(line.arguments[0])) {
    session.reporter.fail("something to remove at " + quoted(line.arguments[0]), "nothing there");
  }
}

void disk(Session& session, const Line& line) {
  session.files.setDiskFull(line.arguments[0][0], line.arguments[1] == "full");
}

void screen(Session& session, const Line& line) {
  session.screen = {number(line, 0), number(line, 1)};
  if (session.running()) session.run->mainWindow.screenChanged();
}

void design(Session& session, const Line& line) {
  if (session.running()) {
    session.reporter.fail("a program that has not been started", "it running");
    return;
  }
  session.designs[line.arguments[0]] = {number(line, 1), number(line, 2), number(line, 3), number(line, 4)};
}

void playerDuration(Session& session, const Line& line) {
  session.duration = number(line, 0);
  if (session.run) session.run->player.setDuration(session.duration);
}

void playerPosition(Session& session, const Line& line) {
  session.position = number(line, 0);
  if (session.run) session.run->player.setCurrentPosition(session.position);
}

constexpr std::array commands{
    Command{"drive", "LETTER fixed|cdrom|removable|network|ramdisk|unknown notready?", drive},
    Command{"here", "PATH", here},
    Command{"folder", "PATH unreadable|unwritable?", folder},
    Command{"file", "PATH COUNT? readonly|locked|unreadable?", file},
    Command{"text", "PATH readonly|lf|open*", text, Block::always},
    Command{"remove", "PATH", remove},
    Command{"disk", "LETTER full|free", disk},
    Command{"screen", "MEASURE MEASURE", screen},
    Command{"design", "FORM1OR NUMBER NUMBER MEASURE MEASURE", design},
    Command{"player duration", "NUMBER", playerDuration},
    Command{"player position", "NUMBER", playerPosition},
};

}  // namespace

std::span<const Command> worldCommands() { return commands; }

}  // namespace plimo::scenario
