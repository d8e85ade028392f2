#include "catalogue/distinct_artists.h"

#include <cstddef>
#include <span>
#include <string_view>

#include "base/string_arena.h"
#include "base/string_interner.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/song_name.h"

namespace plimo {

namespace {

// The distinct artists of a range of the records.
class Artists {
 public:
  void add(std::span<const CatalogueRecord> records) {
    const auto unchanged = [](std::string_view artist, std::string&) { return artist; };
    batch_.clear();
    for (const CatalogueRecord& record : records) batch_.add(record.artist, unchanged);
    batch_.lookUp(spellings_);
    for (std::size_t i = 0; i < records.size(); ++i) {
      const std::string_view artist = records[i].artist;
      if (batch_.id(i) != StringInterner::none || (i > 0 && artist == records[i - 1].artist)) continue;
      if (spellings_.find(artist) != StringInterner::none) continue;  // added earlier in this batch
      spellings_.add(strings_.store(artist));
      artistKey(artist, key_);
      addKey(key_);
    }
  }
  void add(const Artists& others) {
    for (const std::string_view key : others.keys_) addKey(key);
  }
  // In order of first appearance.
  std::vector<std::string> keys() const { return {keys_.begin(), keys_.end()}; }

 private:
  void addKey(std::string_view key) {
    if (distinctKeys_.find(key) != StringInterner::none) return;
    keys_.push_back(strings_.store(key));
    distinctKeys_.add(keys_.back());
  }

  StringArena strings_;
  StringInterner spellings_;  // a cache: the key of each distinct spelling is computed only once
  StringInterner distinctKeys_;
  std::vector<std::string_view> keys_;
  std::string key_;
  KeyBatch batch_;
};

}  // namespace

std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue) {
  CatalogueFile file(files, catalogue);
  const auto add = [](Artists& artists, std::span<const CatalogueRecord> records) { artists.add(records); };
  std::vector<std::string> keys;
  file.runInBackground([&] {
    std::vector<Artists> parts = file.parallelCollect<Artists>(OnTruncation::fail, add);
    for (std::size_t part = 1; part < parts.size(); ++part) parts.front().add(parts[part]);
    keys = parts.front().keys();
  });
  return keys;
}

}  // namespace plimo
