// plimo-bench-run: one measurement in a process of its own, told on one line.
#include <cstdio>
#include <string>
#include <vector>

#include "bench_shell.h"
#include "commands.h"
#include "own_memory.h"
#include "stopwatch.h"

namespace {

using plimo::bench::BenchProgram;
using plimo::bench::Command;
using plimo::bench::Lap;
using plimo::bench::Scene;
using plimo::bench::Stopwatch;

constexpr const char* usage =
    "usage: plimo-bench-run scan ROOT\n"
    "       plimo-bench-run catalogue ROOT\n"
    "       plimo-bench-run start\n"
    "       plimo-bench-run COMMAND SONGS\n"
    "\n"
    "scan starts the program with a scan of ROOT; catalogue does the same and counts the time until the catalogue is\n"
    "on the disk, before the artist list is read from it; start starts it with the catalogue in the current folder; a "
    "command\n"
    "is given after such a start, with a catalogue of SONGS songs. Prints the seconds that it took\n"
    "(by the wall, of the processor), the memory held afterwards and at most meanwhile (KiB), and the rows of the "
    "artist "
    "list, the scratch and the final list.\n";

void tell(const Lap& lap, BenchProgram& program) {
  plimo::Form1& form = program.form();
  const plimo::bench::OwnMemory memory = plimo::bench::ownMemory();
  std::printf("%.6f %.6f %ld %ld %zu %zu %zu\n", lap.wall, lap.processor, memory.now, memory.most, form.List2.count(),
              form.List1.count(), form.finalList().count());
}

void measure(const Command& command, std::size_t songs) {
  plimo::bench::writeSettings(plimo::bench::Start::readCatalogue);
  BenchProgram program({});
  Scene scene{program, songs};
  command.prepare(scene);
  plimo::bench::forgetMost();
  const Stopwatch watch;
  command.act(scene);
  tell(watch.lap(), program);
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const std::string name = words.empty() ? "" : words[0];
  const Command* command = plimo::bench::findCommand(name);
  const Stopwatch watch;
  if (name == "scan" && words.size() == 2) {
    plimo::bench::writeSettings(plimo::bench::Start::scan);
    BenchProgram program(words[1]);
    tell(watch.lap(), program);
  } else if (name == "catalogue" && words.size() == 2) {
    plimo::bench::writeSettings(plimo::bench::Start::scan);
    Lap written;
    BenchProgram program(words[1], [&] { written = watch.lap(); });
    tell(written, program);
  } else if (name == "start" && words.size() == 1) {
    plimo::bench::writeSettings(plimo::bench::Start::readCatalogue);
    BenchProgram program({});
    tell(watch.lap(), program);
  } else if (command != nullptr && words.size() == 2) {
    measure(*command, std::stoul(words[1]));
  } else {
    std::fputs(usage, stderr);
    return 2;
  }
}
