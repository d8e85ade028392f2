// plimo-platform-benchmarks [BENCHMARK_OPTION...] [TREE]: what the techniques of platform/linux are worth, by Google
// Benchmark. TREE is a folder of songs to walk, as plimo-bench-library makes it. Other files are created in the
// temporary folder (TMPDIR), which should be on a real disk.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/linux/linux_files.h"

namespace {

using plimo::Force;
using plimo::LinuxFiles;

constexpr std::size_t mebibyte = std::size_t{1} << 20;

class TemporaryFolder {
 public:
  TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "plimo-bench-XXXXXX") {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string operator/(std::string_view name) const { return std::string(path_).append("/").append(name); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

bool isSong(std::string_view name) { return name.ends_with(".mp3"); }

std::size_t countSongs(LinuxFiles& files, const std::string& folder) {
  const plimo::FolderContents contents = files.contents(folder);
  std::size_t songs = contents.files.size();
  for (const std::string& name : contents.folders) songs += countSongs(files, files.join(folder, name));
  return songs;
}

void walk(benchmark::State& state, const std::string& tree) {
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  for ([[maybe_unused]] const auto _ : state) {
    std::size_t songs = 0;
    files.walk(tree, 10, isSong, [&](std::string_view) { return ++songs != 0; });
    benchmark::DoNotOptimize(songs);
  }
}

// The same, folder by folder on one thread.
void walkSerially(benchmark::State& state, const std::string& tree) {
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  for ([[maybe_unused]] const auto _ : state) benchmark::DoNotOptimize(countSongs(files, tree));
}

void listFolder(benchmark::State& state) {
  const TemporaryFolder folder;
  for (std::int64_t i = 0; i < state.range(0); ++i) std::ofstream(folder / (std::to_string(i) + " A Song.mp3"));
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  for ([[maybe_unused]] const auto _ : state) benchmark::DoNotOptimize(files.contents(folder.path()));
}
BENCHMARK(listFolder)->Arg(10)->Arg(10000)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A file of range(0) MiB, in pieces as the catalogue is written.
void replaceFile(benchmark::State& state) {
  const TemporaryFolder folder;
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  const std::string piece(static_cast<std::size_t>(state.range(1)), 'x');
  const std::size_t size = static_cast<std::size_t>(state.range(0)) * mebibyte;
  for ([[maybe_unused]] const auto _ : state) {
    const auto file = files.replaceFile(folder / "catalogue", Force::no);
    for (std::size_t written = 0; written < size; written += piece.size()) file->write(piece);
    file->commit();
  }
}
BENCHMARK(replaceFile)
    ->Args({1, 100})
    ->Args({64, 100})
    ->Args({64, 65536})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Reads a file of range(0) MiB in windows of 4 MiB, as the catalogue is read; range(1): with willNeed and dontNeed.
void readInWindows(benchmark::State& state) {
  constexpr std::size_t window = 4 * mebibyte;
  const TemporaryFolder folder;
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  replaceWhole(files, folder / "catalogue", std::string(static_cast<std::size_t>(state.range(0)) * mebibyte, 'x'),
               Force::no);
  for ([[maybe_unused]] const auto _ : state) {
    const auto view = files.openForReading(folder / "catalogue");
    const std::string_view bytes = view->bytes();
    for (std::size_t begin = 0; begin < bytes.size(); begin += window) {
      const std::size_t end = std::min(begin + window, bytes.size());
      if (state.range(1) != 0) view->willNeed(begin, end);
      benchmark::DoNotOptimize(bytes.substr(begin, end - begin).find('\n'));
      if (state.range(1) != 0) view->dontNeed(begin, end);
    }
  }
}
BENCHMARK(readInWindows)->Args({64, 0})->Args({64, 1})->Unit(benchmark::kMillisecond)->UseRealTime();

// A copy of range(0) MiB; the longest time without a progress report is how long the window does not respond.
void copyFile(benchmark::State& state) {
  using Clock = std::chrono::steady_clock;
  const TemporaryFolder folder;
  LinuxFiles files(std::vector<plimo::DriveRoot>{{'C', plimo::DriveType::fixed, "/"}});
  {
    std::ofstream song(folder / "song.mp3", std::ios::binary);
    const std::string block(mebibyte, 'x');
    for (std::int64_t i = 0; i < state.range(0); ++i) song << block;
  }
  double longest = 0;
  for ([[maybe_unused]] const auto _ : state) {
    auto last = Clock::now();
    double gap = 0;
    const auto report = [&] {
      const auto now = Clock::now();
      gap = std::max(gap, std::chrono::duration<double, std::milli>(now - last).count());
      last = now;
      return true;
    };
    files.copyFile(folder / "song.mp3", folder / "copy.mp3", true,
                   [&](std::uint64_t, std::uint64_t) { return report(); });
    report();
    longest += gap;
  }
  state.counters["longest_gap_ms"] = benchmark::Counter(longest, benchmark::Counter::kAvgIterations);
}
BENCHMARK(copyFile)->Arg(5)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (count == 2) {
    const std::string tree = arguments[1];
    benchmark::RegisterBenchmark("walk", [tree](benchmark::State& state) { walk(state, tree); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("walkSerially", [tree](benchmark::State& state) { walkSerially(state, tree); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
