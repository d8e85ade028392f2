// plimo-bench-techniques FOLDER: each low-level technique against the plain code that would replace it, with Google
// Benchmark. FOLDER contains the catalogue of a large library, plimo.kvx. A benchmark's name is technique/variant.
#include <benchmark/benchmark.h>
#include <sched.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/case_insensitive_sort.h"
#include "base/string_interner.h"
#include "base/text.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/distinct_artists.h"
#include "catalogue/path_arena.h"
#include "platform/linux/linux_files.h"
#include "process_usage.h"

namespace {

using namespace plimo;
using namespace plimo::bench;

// The threads of the process run on one CPU as long as this object lives, as if the work was not divided.
class SingleCpu {
 public:
  SingleCpu() {
    ::sched_getaffinity(0, sizeof all_, &all_);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(::sched_getcpu(), &one);
    ::sched_setaffinity(0, sizeof one, &one);
  }
  SingleCpu(const SingleCpu&) = delete;
  SingleCpu& operator=(const SingleCpu&) = delete;
  ~SingleCpu() { ::sched_setaffinity(0, sizeof all_, &all_); }

 private:
  cpu_set_t all_{};
};

// Files without hints to the kernel.
class UnhintedFiles : public LinuxFiles {
 public:
  using LinuxFiles::LinuxFiles;
  std::unique_ptr<FileView> openForReading(std::string_view path) override {
    return std::make_unique<View>(LinuxFiles::openForReading(path));
  }

 private:
  class View : public FileView {
   public:
    explicit View(std::unique_ptr<FileView> view) : view_(std::move(view)) {}
    std::string_view bytes() const override { return view_->bytes(); }

   private:
    std::unique_ptr<FileView> view_;
  };
};

// The columns of the catalogue that the techniques work on.
struct Columns {
  explicit Columns(const std::string& path) {
    LinuxFiles files;
    CatalogueFile(files, path).read([this](const CatalogueRecord& record) {
      paths.emplace_back(record.path);
      artists.emplace_back(record.artist);
      titles.emplace_back(record.title);
      return true;
    });
    for (const std::string& title : titles) titleInterner.add(title);
    for (const std::string& artist : artists) artistInterner.add(artist);
  }

  std::vector<std::string> paths;
  std::vector<std::string> artists;
  std::vector<std::string> titles;
  StringInterner titleInterner;
  StringInterner artistInterner;
};

void lookUpBatched(benchmark::State& state, const Columns& columns) {
  constexpr std::size_t batch = 64;
  const std::vector<std::string_view> keys(columns.titles.begin(), columns.titles.end());
  std::vector<std::uint32_t> ids(batch);
  for ([[maybe_unused]] const auto _ : state) {
    for (std::size_t i = 0; i + batch <= keys.size(); i += batch) {
      columns.titleInterner.find(std::span(keys).subspan(i, batch), ids);
      benchmark::DoNotOptimize(ids.data());
    }
  }
}

void lookUpSingly(benchmark::State& state, const Columns& columns) {
  for ([[maybe_unused]] const auto _ : state) {
    for (const std::string& title : columns.titles) benchmark::DoNotOptimize(columns.titleInterner.find(title));
  }
}

void insertBatched(benchmark::State& state, const Columns& columns) {
  const std::vector<std::string_view> keys(columns.titles.begin(), columns.titles.end());
  std::vector<std::uint32_t> ids(keys.size());
  for ([[maybe_unused]] const auto _ : state) {
    StringInterner interner(keys.size());
    interner.add(keys, ids);
    benchmark::DoNotOptimize(ids.data());
  }
}

void insertSingly(benchmark::State& state, const Columns& columns) {
  const std::vector<std::string_view> keys(columns.titles.begin(), columns.titles.end());
  for ([[maybe_unused]] const auto _ : state) {
    StringInterner interner(keys.size());
    for (const std::string_view key : keys) benchmark::DoNotOptimize(interner.add(key));
  }
}

void lookUpSharing(benchmark::State& state, const Columns& columns) {
  KeyBatch batch;
  const auto unchanged = [](std::string_view source, std::string&) { return source; };
  for ([[maybe_unused]] const auto _ : state) {
    for (std::size_t i = 0; i + BatchReader::batchSize <= columns.artists.size(); i += BatchReader::batchSize) {
      batch.clear();
      for (std::size_t j = 0; j < BatchReader::batchSize; ++j) batch.add(columns.artists[i + j], unchanged);
      batch.lookUp(columns.artistInterner);
      benchmark::DoNotOptimize(batch.id(0));
    }
  }
}

void lookUpEach(benchmark::State& state, const Columns& columns) {
  constexpr std::size_t batch = BatchReader::batchSize;
  const std::vector<std::string_view> keys(columns.artists.begin(), columns.artists.end());
  std::vector<std::uint32_t> ids(batch);
  for ([[maybe_unused]] const auto _ : state) {
    for (std::size_t i = 0; i + batch <= keys.size(); i += batch) {
      columns.artistInterner.find(std::span(keys).subspan(i, batch), ids);
      benchmark::DoNotOptimize(ids.data());
    }
  }
}

void storePathsSharing(benchmark::State& state, const Columns& columns) {
  for ([[maybe_unused]] const auto _ : state) {
    PathArena arena;
    for (const std::string& path : columns.paths) benchmark::DoNotOptimize(arena.store(path).name.data());
  }
}

void storePathsWhole(benchmark::State& state, const Columns& columns) {
  for ([[maybe_unused]] const auto _ : state) {
    StringArena arena;
    for (const std::string& path : columns.paths) benchmark::DoNotOptimize(arena.store(path).data());
  }
}

void sortTitles(benchmark::State& state, const Columns& columns) {
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(caseInsensitiveOrder(columns.titles.size(),
                                                  [&](std::size_t i) { return std::string_view(columns.titles[i]); }));
  }
}

void sortTitlesOnOneCpu(benchmark::State& state, const Columns& columns) {
  const SingleCpu single;
  sortTitles(state, columns);
}

void sortTitlesByComparison(benchmark::State& state, const Columns& columns) {
  for ([[maybe_unused]] const auto _ : state) {
    std::vector<std::uint32_t> order(columns.titles.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t left, std::uint32_t right) {
      return compareFolded(columns.titles[left], columns.titles[right]) < 0;
    });
    benchmark::DoNotOptimize(order.data());
  }
}

void readArtists(benchmark::State& state, FileSystemObject& files, const std::string& catalogue) {
  const long before = processMemory().now;
  resetPeakMemory();
  for ([[maybe_unused]] const auto _ : state) benchmark::DoNotOptimize(distinctArtists(files, catalogue));
  state.counters["peakMiB"] = static_cast<double>(processMemory().peak - before) / 1024;
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  if (count != 2) {
    std::fputs("usage: plimo-bench-techniques [BENCHMARK_OPTION...] FOLDER\n", stderr);
    return 2;
  }
  const std::string catalogue = std::string(arguments[1]) + "/plimo.kvx";
  const Columns columns(catalogue);
  LinuxFiles files;
  UnhintedFiles unhintedFiles;

  const auto add = [&columns](const char* name, void (*run)(benchmark::State&, const Columns&)) {
    benchmark::RegisterBenchmark(name, [run, &columns](benchmark::State& state) { run(state, columns); })
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
  };
  const auto addReading = [](const char* name, auto run) {
    benchmark::RegisterBenchmark(name, run)->UseRealTime()->Unit(benchmark::kMillisecond);
  };
  add("batched lookups/technique", lookUpBatched);
  add("batched lookups/plain", lookUpSingly);
  add("batched insertions/technique", insertBatched);
  add("batched insertions/plain", insertSingly);
  add("shared lookups/technique", lookUpSharing);
  add("shared lookups/plain", lookUpEach);
  add("shared folders/technique", storePathsSharing);
  add("shared folders/plain", storePathsWhole);
  add("parallel sort/technique", sortTitles);
  add("parallel sort/plain", sortTitlesOnOneCpu);
  add("radix sort/technique", sortTitlesOnOneCpu);
  add("radix sort/plain", sortTitlesByComparison);
  addReading("two readers/technique", [&](benchmark::State& state) { readArtists(state, files, catalogue); });
  addReading("two readers/plain", [&](benchmark::State& state) {
    const SingleCpu single;
    readArtists(state, files, catalogue);
  });
  addReading("windowed hints/technique", [&](benchmark::State& state) { readArtists(state, files, catalogue); });
  addReading("windowed hints/plain", [&](benchmark::State& state) { readArtists(state, unhintedFiles, catalogue); });
  benchmark::RunSpecifiedBenchmarks();
}
