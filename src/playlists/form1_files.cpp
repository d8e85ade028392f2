// Opens a playlist and saves the final one.
#include <optional>

#include "base/text.h"
#include "catalogue/catalogue_join.h"
#include "catalogue/song_lookup.h"
#include "catalogue/song_name.h"
#include "playlists/artist_songs.h"
#include "playlists/m3u.h"
#include "window/form1.h"

namespace plimo {

namespace {

// The file name that the dialogs propose, and return if they are cancelled.
constexpr const char* anyPlaylist = "*.m3u";

struct Song {
  std::string_view artist;
  std::string_view title;
};

// Folds the strips and shows the play picture, however opening or saving is left.
class FoldStripsAtEnd {
 public:
  explicit FoldStripsAtEnd(Form1& form) : form_(form) {}
  FoldStripsAtEnd(const FoldStripsAtEnd&) = delete;
  FoldStripsAtEnd& operator=(const FoldStripsAtEnd&) = delete;
  ~FoldStripsAtEnd() {
    form_.foldAllStrips();
    form_.Picture7.setVisible(true);
  }

 private:
  Form1& form_;
};

}  // namespace

void Form1::Command3_Click() {
  const FoldStripsAtEnd foldStrips(*this);
  foldAllStrips();
  for (Picture* picture : {&Picture2, &Picture3, &Picture7}) picture->setVisible(false);
  List3.clear();
  const std::string name =
      platform.dialogs.openFile({"Open your play list file", anyPlaylist, platform.files.join(defdir, "")})
          .value_or(anyPlaylist);
  if (name != anyPlaylist) openPlaylist(name);
}

void Form1::openPlaylist(const std::string& name) {
  const FoldStripsAtEnd foldStrips(*this);
  List3.clear();
  if (!isPlaylistFile(name)) {
    foldAllStrips();
    Picture7.setVisible(true);
    platform.dialogs.message("Sorry, you can only open a playlist! Try again!");
    return;
  }
  List4.clear();
  List6.clear();
  List1.clear();
  untickArtists();
  // Copied, because the user may change the file before the catalogue is read.
  auto file = platform.files.openForReading(name);
  std::string content;
  StringArena texts;
  std::vector<std::string_view> paths;
  platform.files.runInBackground([&] {
    content = file->bytes();
    file->throwIfChanged();
    file.reset();
    paths = readPlaylist(content, name, texts);
  });
  fillFromPlaylist(paths);
}

// The scratch playlist is empty by now, so unticking has nothing to remove from it.
void Form1::untickArtists() {
  const std::vector<std::size_t> ticked = List2.selectedRows();
  List2.setSelectedWithoutEvents(ticked, false);
  if (!ticked.empty()) List1.setTop(0);
}

void Form1::fillFromPlaylist(std::span<const std::string_view> paths) {
  if (paths.empty()) return;
  CatalogueFile catalogue(platform.files, ownFile(catalogueName));
  std::optional<CatalogueJoin<Song>> songs;
  songs.emplace(
      catalogue, paths, OnTruncation::ignore, [](const CatalogueRecord& record) { return std::optional(record.path); },
      [](const CatalogueRecord& record, StringArena& texts) {
        return Song{texts.store(record.artist), texts.store(record.title)};
      });

  // The truncated record is read after the first item's songs, which are listed.
  const std::size_t items = catalogue.truncation() ? 1 : paths.size();
  StringArena texts;
  std::vector<std::string_view> artists;
  std::vector<std::string_view> names;
  platform.files.runInBackground([&] {
    std::string key;
    for (std::size_t item = 0; item < items; ++item) {
      for (const Song& song : songs->of(item)) {
        artistKey(song.artist, key);
        artists.push_back(!artists.empty() && artists.back() == key ? artists.back() : texts.store(key));
        if (const auto name = displayName(song.title)) names.push_back(*name);
      }
    }
  });
  List3.addAll(artists);
  finalList().addAll(names);
  if (catalogue.truncation()) throw RuntimeError(*catalogue.truncation());
  std::vector<std::size_t> rows;
  platform.files.runInBackground([&] {
    rows = rowsOfArtists();
    songs.reset();  // to release a million strings takes long, too
    names = {};
    artists = {};
  });
  tickArtists(rows);
}

// The rows of the artists in List3, in order of first appearance.
std::vector<std::size_t> Form1::rowsOfArtists() {
  StringInterner index(List2.count());
  std::vector<std::uint32_t> numbers(List2.count());
  index.add(List2.texts(), numbers);
  std::vector<std::size_t> rowOf;  // of each number
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    if (numbers[row] == rowOf.size()) rowOf.push_back(row);
  }
  std::vector<std::uint32_t> wanted(List3.count());
  index.find(List3.texts(), wanted);
  std::vector<bool> seen(rowOf.size());
  std::vector<std::size_t> found;
  for (const std::uint32_t number : wanted) {
    if (number == StringInterner::none || seen[number]) continue;
    seen[number] = true;
    found.push_back(rowOf[number]);
  }
  return found;
}

void Form1::Command4_Click() {
  const bool makeDefault = platform.dialogs.question("Would you like to make this the default play list ?");
  const FoldStripsAtEnd foldStrips(*this);
  foldAllStrips();
  Picture3.setVisible(false);
  std::string target;
  for (;;) {
    const std::string name =
        platform.dialogs.saveFile({"", anyPlaylist, platform.files.join(defdir, "")}).value_or(anyPlaylist);
    if (name == anyPlaylist) return;
    if (!checkedFileExists(platform.files, name)) {
      target = name + ".m3u";
      break;
    }
    if (platform.dialogs.question("There is already a file by this name. Overwrite ?")) {
      target = name;
      break;
    }
  }
  const SavedPlaylist saved = writePlaylist(platform.files, target, Force::yes, ownFile(catalogueName), List4.texts());
  const std::string standard = ownFile(defaultPlaylistName);
  if (makeDefault && !platform.files.sameFile(target, standard)) {
    const auto file = platform.files.replaceFile(standard, Force::own);
    platform.files.runInBackground([&] { writePlaylist(*file, saved.paths, List4.count()); });
  }
  setStatus(counted(saved.lines, "song") + " saved to " + std::string(platform.files.fileName(target)));
}

void Form1::open_Click() { Command3_Click(); }

void Form1::openyh_Click() { Command3_Click(); }

void Form1::save_Click() { Command4_Click(); }

void Form1::save2_Click() { Command4_Click(); }

}  // namespace plimo
