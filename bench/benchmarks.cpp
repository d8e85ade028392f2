// plimo-benchmarks FOLDER: every command at every size, by Google Benchmark. FOLDER holds one folder a size, named by
// its number of songs, with a catalogue of so many in it.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "bench_shell.h"
#include "commands.h"
#include "stopwatch.h"

namespace {

using plimo::bench::BenchProgram;
using plimo::bench::Command;
using plimo::bench::Scene;

// One program at a time: a library of a million songs is not held beside others.
class Stage {
 public:
  explicit Stage(std::filesystem::path folder) : folder_(std::move(folder)) {}

  BenchProgram& withSongs(std::size_t songs) {
    std::filesystem::current_path(folder_ / std::to_string(songs));
    if (songs == songs_) return *program_;
    program_.reset();
    plimo::bench::writeSettings(plimo::bench::Start::readCatalogue);
    program_ = std::make_unique<BenchProgram>(std::string());
    songs_ = songs;
    return *program_;
  }

 private:
  std::filesystem::path folder_;
  std::size_t songs_ = 0;
  std::unique_ptr<BenchProgram> program_;
};

void run(benchmark::State& state, Stage& stage, const Command& command, std::size_t songs) {
  Scene scene{stage.withSongs(songs), songs};
  double processor = 0;
  for ([[maybe_unused]] const auto _ : state) {
    command.prepare(scene);
    const plimo::bench::Stopwatch watch;
    command.act(scene);
    const plimo::bench::Lap lap = watch.lap();
    state.SetIterationTime(lap.wall);
    processor += lap.processor;
  }
  state.counters["processor"] = benchmark::Counter(processor, benchmark::Counter::kAvgIterations);
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (count != 2) {
    std::fputs("usage: plimo-benchmarks [BENCHMARK_OPTION...] FOLDER\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = std::filesystem::absolute(arguments[1]);
  Stage stage(folder);
  for (const std::size_t songs : {1000, 10000, 100000, 1000000}) {
    if (!std::filesystem::exists(folder / std::to_string(songs))) continue;
    for (const Command& command : plimo::bench::commands()) {
      const std::string name = std::string(command.name) + "/" + std::to_string(songs);
      benchmark::RegisterBenchmark(
          name.c_str(), [&stage, &command, songs](benchmark::State& state) { run(state, stage, command, songs); })
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond)
          ->Iterations(static_cast<benchmark::IterationCount>(100000 / songs + 1));
    }
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
