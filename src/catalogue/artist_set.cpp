#include "catalogue/artist_set.h"

#include <deque>
#include <optional>
#include <utility>

#include "base/text_index.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/song_name.h"

namespace plimo {

std::vector<std::string> distinctArtists(FileSystemObject& files, const std::string& catalogue) {
  OpenCatalogue open(files, catalogue);
  // Spellings seen so far stand for their keys: folding and comparing is needed for new ones only.
  std::deque<std::string> keys;
  TextIndex spellings;
  TextIndex distinct;
  std::string key;
  std::optional<std::string_view> last;  // none at first: an empty artist is an artist too
  open.read(BrokenEnd::fails, [&](const CatalogueRecord& record) {
    if (last == record.artist) return true;  // an artist's songs mostly stand together
    const std::size_t known = spellings.size();
    const std::string_view artist = open.keep(record.artist);
    last = artist;
    if (spellings.add(artist) < known) return true;
    artistKey(artist, key);
    if (distinct.find(key) == TextIndex::none) distinct.add(keys.emplace_back(key));
    return true;
  });
  return {std::make_move_iterator(keys.begin()), std::make_move_iterator(keys.end())};
}

}  // namespace plimo
