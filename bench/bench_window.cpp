// plimo-bench-window: the event loop latency of each command in the real window, and the time to scroll by a page.
#include <QApplication>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "latency_phases.h"
#include "process_usage.h"
#include "stopwatch.h"
#include "support/window/list_commands.h"
#include "support/window/progress_commands.h"
#include "system.h"

namespace {

using namespace plimo;
using bench::ProcessMemory;

constexpr const char* usage =
    "usage: plimo-bench-window lists SONGS FOLDER\n"
    "       plimo-bench-window scroll SONGS FOLDER\n"
    "       plimo-bench-window files SONGS BYTES FOLDER\n"
    "\n"
    "lists runs every command with a catalogue of SONGS songs; files scans SONGS real songs, copies them if they have\n"
    "BYTES > 0 bytes, and deletes them. FOLDER is an empty folder. Prints the reference time of this machine (CPU "
    "seconds\n"
    "to sort 100,000 strings), then for each command its name, the longest\n"
    "iteration of the event loop (wall-clock and CPU seconds), the longest time between two repaints of the progress\n"
    "panel, the number of repaints, and the seconds of that iteration in files, list notifications and painting.\n"
    "scroll prints the seconds from each key press to the painted page, and the memory of the process with all songs\n"
    "listed, now and at its peak (KiB).\n";

// Prints the CPU seconds of sorting a fixed set of strings. The report divides latencies by it, which makes them
// comparable between machines.
void printReference() {
  std::vector<std::string> strings(100'000);
  for (std::size_t i = 0; i < strings.size(); ++i) strings[i] = "Song number " + std::to_string(i * 7919 % 100'019);
  const bench::Stopwatch stopwatch;
  std::sort(strings.begin(), strings.end());
  std::printf("reference\t%.6f\n", stopwatch.elapsed().cpu);
}

void print(const CommandResult& result, double betweenRepaints, std::size_t repaints) {
  if (!result.done) throw std::runtime_error(result.command + " had no effect");
  std::printf("%s\t%.6f\t%.6f\t%.6f\t%zu\t%.6f\t%.6f\t%.6f\n", result.command.c_str(), result.latency.wall,
              result.latency.cpu, betweenRepaints, repaints, result.phases[0], result.phases[1], result.phases[2]);
}

SampleLibrary libraryOf(std::size_t songs) { return {songs, songs / songsPerArtist, ArtistOrder::grouped}; }

LinuxFiles filesWithDrive(const std::string& folder) { return LinuxFiles({DriveRoot{'M', DriveType::fixed, folder}}); }

void listCommands(std::size_t songs, const std::string& folder) {
  const SampleLibrary library = libraryOf(songs);
  prepareListCommands(library, folder);
  bench::TimedFiles files(std::make_shared<LinuxFiles>(std::vector<DriveRoot>{{'M', DriveType::fixed, "/srv"}}));
  const auto results = runInWindow(files, [&](WindowFixture& fixture) {
    bench::LatencyPhases phases(fixture);
    runListCommands(fixture, library, folder);
  });
  printReference();
  for (const CommandResult& result : results) print(result, 0, 0);
}

// The seconds from each key press to the painted page.
std::vector<double> scrollByPages(WindowFixture& fixture, std::size_t songs, std::size_t pages) {
  UiDriver& driver = fixture.driver;
  fixture.run(
      "start", [] {}, [&] { return driver.isVisible("List2"); });
  driver.click("Picture1");
  driver.click("Command13");
  const auto allListed = [&] { return fixture.form().List1.count() == songs; };
  if (!driver.waitUntil(allListed)) throw std::runtime_error("not all songs are listed");
  driver.clickRow("List1", 0);
  const QWidget* viewport = driver.list("List1").viewport();
  std::vector<double> times;
  for (std::size_t page = 0; page < pages; ++page) {
    driver.runEventLoop(5);
    bool painted = false;
    fixture.latency.onPaint = [&](const QWidget& widget) { painted = painted || &widget == viewport; };
    const auto start = std::chrono::steady_clock::now();
    driver.press("List1", Qt::Key_PageDown);
    std::chrono::duration<double> elapsed{};
    do {
      QCoreApplication::processEvents();  // returns after the page has been painted and flushed
      elapsed = std::chrono::steady_clock::now() - start;
      if (elapsed > std::chrono::seconds(10)) throw std::runtime_error("no page is painted");
    } while (!painted);
    times.push_back(elapsed.count());
  }
  fixture.latency.onPaint = nullptr;
  return times;
}

void scroll(std::size_t songs, const std::string& folder) {
  constexpr std::size_t pages = 20;  // 1,000 songs have as many
  prepareListCommands(libraryOf(songs), folder);
  LinuxFiles files = filesWithDrive("/srv");
  std::vector<double> times;
  ProcessMemory memory;
  bench::resetPeakMemory();
  runInWindow(files, [&](WindowFixture& fixture) {
    times = scrollByPages(fixture, songs, pages);
    memory = bench::processMemory();
  });
  for (const double time : times) std::printf("%.6f\n", time);
  std::printf("%ld %ld\n", memory.now, memory.peak);
}

void progressCommands(std::size_t songs, std::size_t bytes, const std::string& folder) {
  prepareProgressCommands(songs, folder, bytes);
  LinuxFiles files = filesWithDrive(musicFolder(folder));
  std::vector<ProgressSample> samples;
  runInWindow(files, [&](WindowFixture& fixture) { samples = runProgressCommands(fixture, songs, folder, bytes > 0); });
  printReference();
  for (const ProgressSample& sample : samples) print(sample.result, sample.longestGap, sample.repaints);
}

}  // namespace

int main(int count, char** arguments) {
  bench::prepareProcess();
  bench::TimedApplication application(count, arguments);
  std::setlocale(LC_NUMERIC, "C");  // required by libmpv
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
      listCommands(songs, folder);
    } else if (words[0] == "scroll") {
      scroll(songs, folder);
    } else {
      progressCommands(songs, std::stoul(words[2]), folder);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "plimo-bench-window: %s\n", failure.what());
    return 1;
  }
}
