// plimo-benchmarks FOLDER: every command at every size, with Google Benchmark. FOLDER contains one folder per size,
// named after its number of songs, with a catalogue of that size.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "bench_program.h"
#include "commands.h"
#include "stopwatch.h"
#include "system.h"

namespace {

using namespace plimo::bench;

// Keeps one program at a time, so that a library of a million songs is not in memory beside others.
class ProgramCache {
 public:
  explicit ProgramCache(std::filesystem::path folder) : folder_(std::move(folder)) {}

  BenchProgram& withSongs(std::size_t songs) {
    std::filesystem::current_path(folder_ / std::to_string(songs));
    if (songs == songs_) return *program_;
    program_.reset();
    writeSettings(false);
    program_ = std::make_unique<BenchProgram>();
    songs_ = songs;
    return *program_;
  }

 private:
  std::filesystem::path folder_;
  std::size_t songs_ = 0;
  std::unique_ptr<BenchProgram> program_;
};

void run(benchmark::State& state, ProgramCache& programs, const Command& command, std::size_t songs) {
  Fixture fixture{programs.withSongs(songs), songs};
  double cpu = 0;
  for ([[maybe_unused]] const auto _ : state) {
    command.prepare(fixture);
    const Stopwatch stopwatch;
    command.act(fixture);
    const Elapsed elapsed = stopwatch.elapsed();
    state.SetIterationTime(elapsed.wall);
    cpu += elapsed.cpu;
  }
  state.counters["cpu"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
}

}  // namespace

int main(int count, char** arguments) {
  prepareProcess();
  benchmark::Initialize(&count, arguments);
  if (count != 2) {
    std::fputs("usage: plimo-benchmarks [BENCHMARK_OPTION...] FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = std::filesystem::absolute(arguments[1]);
  ProgramCache programs(folder);
  for (const std::size_t songs : {1000, 10000, 100000, 1000000}) {
    if (!std::filesystem::exists(folder / std::to_string(songs))) continue;
    for (const Command& command : commands()) {
      const std::string name = std::string(command.name) + "/" + std::to_string(songs);
      benchmark::RegisterBenchmark(
          name.c_str(), [&programs, &command, songs](benchmark::State& state) { run(state, programs, command, songs); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond)
          ->Iterations(static_cast<benchmark::IterationCount>(100000 / songs + 1));
    }
  }
  benchmark::RunSpecifiedBenchmarks();
}
