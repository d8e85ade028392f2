// Writes the catalogue from the songs found, and reads the artist list from it.
#include <algorithm>
#include <memory>

#include "base/parallel.h"
#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/distinct_artists.h"
#include "catalogue/song_name.h"
#include "window/form1.h"

namespace plimo {

namespace {

// Records per write, about two megabytes.
constexpr std::size_t recordsInPiece = 8192;

// Formats the records of these rows; none after the last row.
void putTogether(std::string& piece, FileSystemObject& files, const ListBox& paths, std::size_t first) {
  piece.clear();
  const std::size_t end = std::min(first + recordsInPiece, paths.count());
  for (std::size_t row = first; row < end; ++row) {
    const std::string_view path = paths.text(row);
    const SongName name = splitFileName(files.fileName(path));
    appendRecord(piece, {path, name.artist, name.second, name.title});
  }
}

}  // namespace

void Form1::deleteCatalogue() { deleteOwnFile(catalogueName); }

void Form1::process() {
  List4.clear();
  showListFrames(false);
  const auto file = platform.files.replaceFile(ownFile(catalogueName), Force::own);
  std::string piece;
  std::string next;
  for (std::size_t row = 0; row < List3.count(); row += 2 * recordsInPiece) {
    const auto write = [&] {
      putTogether(piece, platform.files, List3, row);
      file->write(piece);
    };
    if (row + recordsInPiece >= List3.count()) {
      write();
    } else {
      parallelInvoke(write, [&] { putTogether(next, platform.files, List3, row + recordsInPiece); });
      file->write(next);
    }
  }
  file->commit();
}

void Form1::display() { listArtists(Artists::read); }

void Form1::displayAgain() { listArtists(Artists::keep); }

void Form1::listArtists(Artists source) {
  showListFrames(false);
  TreeView1.setVisible(false);
  List1.clear();
  List2.clear();
  List3.clear();
  if (source == Artists::read) artists_.clear();
  const std::string path = ownFile(catalogueName);
  if (!platform.files.fileExists(path)) {
    platform.dialogs.message("You need to scan again as the song list file is missing");
  } else {
    if (source == Artists::read) artists_ = distinctArtists(platform.files, path);
    const std::vector<std::string_view> texts(artists_.begin(), artists_.end());
    List2.addAll(texts);
    foldAllStrips();  // shows the closed handles
    Picture7.setVisible(true);
    List1.setVisible(true);
    List2.setVisible(true);
    // A return to the large view shows its list whatever the other one contains.
    if (List6.empty() || frommenu) {
      showFinalList(List4);
    } else {
      showFinalList(List6);
    }
  }
  if (List2.empty()) {
    platform.dialogs.message("It looks like you don't have any Mp3s on this drive. Try another drive!");
  }
}

}  // namespace plimo
