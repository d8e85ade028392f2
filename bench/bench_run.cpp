// plimo-bench-run: one measurement in a process of its own, printed on one line.
#include <cstdio>
#include <string>
#include <vector>

#include "bench_program.h"
#include "commands.h"
#include "process_usage.h"
#include "stopwatch.h"
#include "system.h"

namespace {

using namespace plimo::bench;

constexpr const char* usage =
    "usage: plimo-bench-run scan ROOT\n"
    "       plimo-bench-run catalogue ROOT\n"
    "       plimo-bench-run start\n"
    "       plimo-bench-run COMMAND SONGS\n"
    "\n"
    "scan: start with a scan of ROOT. catalogue: the same, but the time ends when the catalogue is on the disk, "
    "before\n"
    "the artist list is read from it. start: start with the catalogue in the current folder. COMMAND: the command "
    "after\n"
    "such a start, with a catalogue of SONGS songs.\n"
    "Prints the wall-clock and CPU time (seconds), the memory held afterwards and the peak (KiB), and the numbers of "
    "rows\n"
    "of the artist list, the scratch and the final playlist.\n";

void print(const Elapsed& elapsed, BenchProgram& program) {
  plimo::Form1& form = program.form();
  const ProcessMemory memory = processMemory();
  std::printf("%.6f %.6f %ld %ld %zu %zu %zu\n", elapsed.wall, elapsed.cpu, memory.now, memory.peak, form.List2.count(),
              form.List1.count(), form.finalList().count());
}

void measure(const Command& command, std::size_t songs) {
  writeSettings(false);
  BenchProgram program;
  Fixture fixture{program, songs};
  command.prepare(fixture);
  resetPeakMemory();
  const Stopwatch stopwatch;
  command.act(fixture);
  print(stopwatch.elapsed(), program);
}

}  // namespace

int main(int count, char** arguments) {
  prepareProcess();
  const std::vector<std::string> words(arguments + 1, arguments + count);
  const std::string name = words.empty() ? "" : words[0];
  const Command* command = findCommand(name);
  const Stopwatch stopwatch;
  if (name == "scan" && words.size() == 2) {
    writeSettings(true);
    BenchProgram program(words[1]);
    print(stopwatch.elapsed(), program);
  } else if (name == "catalogue" && words.size() == 2) {
    writeSettings(true);
    Elapsed written;
    BenchProgram program(words[1], [&] { written = stopwatch.elapsed(); });
    print(written, program);
  } else if (name == "start" && words.size() == 1) {
    writeSettings(false);
    BenchProgram program;
    print(stopwatch.elapsed(), program);
  } else if (command != nullptr && words.size() == 2) {
    measure(*command, std::stoul(words[1]));
  } else {
    std::fputs(usage, stderr);
    return 2;
  }
}
