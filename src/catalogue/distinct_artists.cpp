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

// The artists of some of the records.
class Artists {
 public:
  void add(std::span<const CatalogueRecord> records) {
    const auto asItStands = [](std::string_view artist, std::string&) { return artist; };
    batch_.clear();
    for (const CatalogueRecord& record : records) batch_.add(record.artist, asItStands);
    batch_.look(spellings_);
    for (std::size_t i = 0; i < records.size(); ++i) {
      const std::string_view artist = records[i].artist;
      if (batch_.number(i) != StringInterner::none || (i > 0 && artist == records[i - 1].artist)) continue;
      if (spellings_.find(artist) != StringInterner::none) continue;  // new in this batch
      spellings_.add(kept_.store(artist));
      artistKey(artist, key_);
      addKey(key_);
    }
  }
  void add(const Artists& others) {
    for (const std::string_view key : others.keys_) addKey(key);
  }
  // In the order of first appearance.
  std::vector<std::string> keys() const { return {keys_.begin(), keys_.end()}; }

 private:
  void addKey(std::string_view key) {
    if (distinct_.find(key) != StringInterner::none) return;
    keys_.push_back(kept_.store(key));
    distinct_.add(keys_.back());
  }

  StringArena kept_;
  StringInterner spellings_;  // they stand for their keys: folding and comparing is needed for new ones only
  StringInterner distinct_;
  std::vector<std::string_view> keys_;
  std::string key_;
  KeyBatch batch_;
};

}  // namespace

std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue) {
  CatalogueFile open(files, catalogue);
  const auto add = [](Artists& artists, std::span<const CatalogueRecord> records) { artists.add(records); };
  std::vector<Artists> parts = open.parallelCollect<Artists>(OnTruncation::fail, add);
  for (std::size_t part = 1; part < parts.size(); ++part) parts.front().add(parts[part]);
  return parts.front().keys();
}

}  // namespace plimo
