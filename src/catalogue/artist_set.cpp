#include "catalogue/artist_set.h"

#include <cstddef>
#include <span>
#include <string_view>

#include "base/text_arena.h"
#include "base/text_index.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/song_name.h"

namespace plimo {

std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue) {
  OpenCatalogue open(files, catalogue);
  // Spellings seen so far stand for their keys: folding and comparing is needed for new ones only.
  TextArena kept;
  TextIndex spellings;
  TextIndex distinct;
  std::vector<std::string> artists;
  std::string key;
  KeyBatch batch;
  const auto asItStands = [](std::string_view artist, std::string&) { return artist; };
  open.readBatches(BrokenEnd::fails, [&](std::span<const CatalogueRecord> records) {
    batch.clear();
    for (const CatalogueRecord& record : records) batch.add(record.artist, asItStands);
    batch.look(spellings);
    for (std::size_t i = 0; i < records.size(); ++i) {
      const std::string_view artist = records[i].artist;
      if (batch.number(i) != TextIndex::none || (i > 0 && artist == records[i - 1].artist)) continue;
      if (spellings.find(artist) != TextIndex::none) continue;  // new in this batch
      spellings.add(kept.keep(artist));
      artistKey(artist, key);
      if (distinct.find(key) != TextIndex::none) continue;
      distinct.add(kept.keep(key));
      artists.push_back(key);
    }
  });
  return artists;
}

}  // namespace plimo
