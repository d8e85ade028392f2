#include "fuzz/catalogue_checks.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/distinct_artists.h"
#include "catalogue/song_lookup.h"
#include "catalogue/song_name.h"
#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/naive_reader.h"

namespace plimo::fuzz {

namespace {

const std::string path = R"(C:\Plimo\plimo.kvx)";

// True if the call ends with error 62; any other error is passed on.
template <class Call>
bool endsEarly(Call call) {
  try {
    call();
    return false;
  } catch (const RuntimeError& error) {
    if (error.number() != ErrorNumber::inputPastEnd) throw;
    return true;
  }
}

void checkRecords(ExactFiles& files, const NaiveCatalogue& naive) {
  std::size_t count = 0;
  CatalogueFile file(files, path);
  const bool truncated = endsEarly([&] {
    file.read([&](const CatalogueRecord& record) {
      expect(count < naive.records.size(), "no record too many");
      const auto& [song, artist, second, title] = naive.records[count++];
      expect(record.path == song && record.artist == artist && record.second == second && record.title == title,
             "the record of the naive reader");
      return true;
    });
  });
  expect(count == naive.records.size(), "all records");
  expect(truncated == naive.truncated, "error 62 for a truncated record");
}

void checkArtists(ExactFiles& files, const NaiveCatalogue& naive) {
  std::vector<std::string> wanted;
  std::set<std::string> seen;
  for (const auto& record : naive.records) {
    std::string key;
    artistKey(record[1], key);
    if (seen.insert(key).second) wanted.push_back(key);
  }
  std::vector<std::string> artists;
  const bool truncated = endsEarly([&] { artists = distinctArtists(files, path); });
  expect(truncated == naive.truncated, "error 62 for a truncated record");
  expect(truncated || artists == wanted, "the artists in order of appearance");
}

void checkPaths(ExactFiles& files, const NaiveCatalogue& naive, std::span<const std::string_view> names) {
  const SongPaths paths(files, path, names, OnTruncation::ignore);
  if (!names.empty()) expect(paths.truncation().has_value() == naive.truncated, "the truncation is kept");
  for (std::size_t name = 0; name < names.size(); ++name) {
    std::vector<std::string> wanted;
    for (const auto& record : naive.records) {
      if (displayName(record[3]) == names[name]) wanted.push_back(record[0]);
    }
    const auto found = paths.of(name);
    expect(std::equal(found.begin(), found.end(), wanted.begin(), wanted.end(),
                      [](const StoredPath& stored, const std::string& text) { return stored.text() == text; }),
           "the paths of a name in record order");
  }
  if (names.empty()) return;
  std::optional<std::string> first;
  if (endsEarly([&] { first = firstPath(files, path, names.front()); })) {
    expect(naive.truncated && paths.of(0).empty(), "one song alone reads to its first match");
  } else {
    expect(first ? !paths.of(0).empty() && paths.of(0).front().text() == *first : paths.of(0).empty(),
           "the first path of a name");
  }
}

}  // namespace

void checkCatalogue(std::string_view content, std::span<const std::string_view> names) {
  ExactFiles files;
  files.addTextFile(path, std::string(content));
  const NaiveCatalogue naive = naiveCatalogue(content);
  checkRecords(files, naive);
  checkArtists(files, naive);
  checkPaths(files, naive, names);
}

}  // namespace plimo::fuzz
