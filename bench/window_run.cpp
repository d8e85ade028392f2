// plimo-bench-window: the longest turn of the real window's message loop in each command, one line a command.
#include <QApplication>
#include <clocale>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "own_memory.h"
#include "platform/linux/linux_files.h"
#include "window_commands.h"
#include "window_work.h"

namespace {

using namespace plimo::bench;

constexpr const char* usage =
    "usage: plimo-bench-window lists SONGS FOLDER\n"
    "       plimo-bench-window scroll SONGS FOLDER\n"
    "       plimo-bench-window files SONGS BYTES FOLDER\n"
    "\n"
    "lists gives every command with a catalogue of SONGS songs; files scans SONGS real songs, copies them where they\n"
    "have BYTES bytes, and deletes them. FOLDER is an empty one. Prints for each command its name, the longest turn "
    "of\n"
    "the message loop (seconds by the wall, of the processor), the longest time between two paintings of the panel "
    "that\n"
    "shows how far it is, and how often that was painted. scroll prints the seconds from a key to the painted page, "
    "and at last what the process\n"
    "holds in memory with all songs listed, and at most (KiB).\n";

void tell(const Gap& gap, double betweenPaintings, std::size_t paintings) {
  if (!gap.done) throw std::runtime_error(gap.command + ": nothing came of it");
  std::printf("%s\t%.6f\t%.6f\t%.6f\t%zu\n", gap.command.c_str(), gap.longest.wall, gap.longest.processor,
              betweenPaintings, paintings);
}

Library libraryOf(std::size_t songs) { return {songs, songs / songsOfArtist, Order::grouped}; }

void lists(std::size_t songs, const std::string& folder) {
  const Library library = libraryOf(songs);
  prepareFolder(library, folder);
  plimo::LinuxFiles files({plimo::DriveRoot{'M', plimo::DriveType::fixed, "/srv"}});
  const auto gaps = playWindow(files, [&](Stage& stage) { giveCommands(stage, library, folder); });
  for (const Gap& gap : gaps) tell(gap, 0, 0);
}

void scroll(std::size_t songs, const std::string& folder) {
  constexpr std::size_t pages = 20;  // which 1,000 songs have
  const Library library = libraryOf(songs);
  prepareFolder(library, folder);
  plimo::LinuxFiles files({plimo::DriveRoot{'M', plimo::DriveType::fixed, "/srv"}});
  std::vector<double> times;
  OwnMemory memory;
  forgetMost();
  playWindow(files, [&](Stage& stage) {
    times = scrollByPages(stage, library, pages);
    memory = ownMemory();
  });
  for (const double time : times) std::printf("%.6f\n", time);
  std::printf("%ld %ld\n", memory.now, memory.most);
}

void work(std::size_t songs, std::size_t bytes, const std::string& folder) {
  prepareWork(songs, folder, bytes);
  plimo::LinuxFiles files(std::vector<plimo::DriveRoot>{{'M', plimo::DriveType::fixed, musicFolder(folder)}});
  std::vector<ProgressSample> told;
  playWindow(files, [&](Stage& stage) { told = giveWork(stage, songs, folder, bytes > 0); });
  for (const ProgressSample& one : told) tell(one.gap, one.seconds, one.paintings);
}

}  // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const bool inLists = words.size() == 3 && (words[0] == "lists" || words[0] == "scroll");
  if (!inLists && (words.size() != 4 || words[0] != "files")) {
    std::fputs(usage, stderr);
    return 2;
  }
  try {
    const std::size_t songs = std::stoul(words[1]);
    const std::string folder = std::filesystem::canonical(words.back());
    if (words[0] == "lists") {
      lists(songs, folder);
    } else if (words[0] == "scroll") {
      scroll(songs, folder);
    } else {
      work(songs, std::stoul(words[2]), folder);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "plimo-bench-window: %s\n", failure.what());
    return 1;
  }
}
