#include "window_commands.h"

#include <QCoreApplication>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "base/text.h"
#include "bench_shell.h"
#include "catalogue/song_name.h"

namespace plimo::bench {

namespace {

using std::filesystem::exists;

// The user's way through all commands: each leaves the lists as the next one wants them.
class Script {
 public:
  Script(Stage& stage, const Library& library, std::string folder)
      : stage_(stage), hands_(stage.hands), library_(library), folder_(std::move(folder)) {}

  void play() {
    start();
    artists();
    scratchPlaylist();
    finalPlaylist();
    playlistFiles();
    views();
    songFiles();
  }

 private:
  ListBox& artistList() { return stage_.form().List2; }
  ListBox& scratch() { return stage_.form().List1; }
  ListBox& final() { return stage_.form().finalList(); }
  const char* finalName() { return stage_.form().List4.visible() ? "List4" : "List6"; }
  std::size_t rowOf(std::size_t artist) { return *artistList().find(upperAscii(artistName(artist))); }

  void start() {
    stage_.give(
        "start", [] {}, [this] { return hands_.shows("List2") && !artistList().empty(); });
  }

  void artists() {
    std::size_t small = library_.smallArtists() / 2;
    if (small % 64 == 63) --small;
    tickAndUntick("one artist of 20 songs", rowOf(small), songsOfArtist);
    tickAndUntick("one artist of a tenth of the songs", rowOf(library_.largeArtist()),
                  library_.songs - library_.smallSongs());
    selectAll("tick all artists");
    openStrip("Picture1");
    stage_.give(
        "untick all artists", [this] { hands_.click("Command14"); },
        [this] { return scratch().empty() && artistList().selectedCount() == 0; });
    listAll();
  }

  // By its handle, which is not to be seen while the strip is open.
  void openStrip(const char* handle) {
    if (hands_.shows(handle)) hands_.click(handle);
  }

  void tickAndUntick(const std::string& whom, std::size_t row, std::size_t songs) {
    stage_.give(
        "tick " + whom, [this, row] { hands_.tick("List2", row); },
        [this, songs] { return scratch().count() == songs; });
    stage_.give(
        "untick " + whom, [this, row] { hands_.tick("List2", row); }, [this] { return scratch().empty(); });
  }

  void selectAll(const std::string& command) {
    openStrip("Picture1");
    stage_.give(
        command, [this] { hands_.click("Command13"); }, [this] { return scratch().count() == library_.songs; });
  }

  // The same without being watched, for what comes next.
  void listAll() {
    openStrip("Picture1");
    hands_.click("Command13");
    if (!hands_.until([this] { return scratch().count() == library_.songs; })) throw std::runtime_error("no songs");
  }

  std::size_t half() { return library_.songs / 2; }

  void selectHalf() {
    hands_.clickRow("List1", 0);
    hands_.clickRow("List1", half() - 1, Qt::ShiftModifier);
  }

  void scratchPlaylist() {
    hands_.clickRow("List1", 0);
    stage_.give(
        "scroll by a page", [this] { hands_.press("List1", Qt::Key_PageDown); },
        [this] { return scratch().current() > std::size_t{1}; });
    stage_.give(
        "scroll to the end", [this] { hands_.press("List1", Qt::Key_End); },
        [this] { return scratch().current() == scratch().count() - 1; });
    hands_.clickRow("List1", 0);
    stage_.give(
        "select half of the songs", [this] { hands_.clickRow("List1", half() - 1, Qt::ShiftModifier); },
        [this] { return scratch().selectedCount() == half(); });
    openStrip("Picture2");
    stage_.give(
        "add half of the songs", [this] { hands_.click("Command1"); },
        [this] { return final().count() == library_.songs / 2; });
    selectHalf();
    openStrip("Picture2");
    stage_.give(
        "remove half of the songs", [this] { hands_.click("Command2"); },
        [this] { return scratch().count() == library_.songs - library_.songs / 2; });
    openStrip("Picture2");
    stage_.give(
        "clear the scratch playlist", [this] { hands_.click("Command9"); }, [this] { return scratch().empty(); });
    openStrip("Picture1");
    hands_.click("Command14");
    listAll();
    openStrip("Picture3");
    stage_.give(
        "clear the final playlist", [this] { hands_.click("Command11"); }, [this] { return final().empty(); });
    openStrip("Picture2");
    stage_.give(
        "add all songs", [this] { hands_.click("Command8"); }, [this] { return final().count() == library_.songs; });
  }

  void finalPlaylist() {
    stage_.give(
        "shuffle", [this] { hands_.chooseFor(finalName(), 0, "Shuffle"); },
        [this] { return !stage_.form().List4.visible() && final().count() == library_.songs; });
    stage_.give(
        "sort", [this] { hands_.chooseFor(finalName(), 0, "sort"); },
        [this] { return stage_.form().List4.visible() && inOrder(final()); });
    hands_.clickRow(finalName(), library_.songs / 2);
    stage_.give(
        "select by \"z\"", [this] { hands_.type(finalName(), 'z'); }, [this] { return final().selectedCount() > 0; });
    stage_.give(
        "remove by \"x\"", [this] { hands_.type(finalName(), 'x'); },
        [this] { return final().count() < library_.songs; });
    stage_.give(
        "pick up by \"q\"", [this] { hands_.type(finalName(), 'q'); },
        [this] { return !stage_.form().pickedUp().empty(); });
    hands_.press(finalName(), Qt::Key_Home);
    stage_.give(
        "drop by \"w\"", [this] { hands_.type(finalName(), 'w'); }, [this] { return stage_.form().pickedUp().empty(); });
  }

  // In the order that the program gives it: the same list sorted once more stays as it is.
  static bool inOrder(const ListBox& list) {
    return list.count() < 2 || upperAscii(list.text(0)) <= upperAscii(list.text(1));
  }

  void playlistFiles() {
    hands_.answer(QMessageBox::No);
    hands_.answer(folder_ + "/all");
    openStrip("Picture3");
    stage_.give(
        "save all songs", [this] { hands_.click("Command4"); }, [this] { return exists(folder_ + "/all.m3u"); });
    hands_.answer(folder_ + "/all.m3u");
    openStrip("Picture3");
    const std::size_t songs = final().count();
    stage_.give(
        "open all songs", [this] { hands_.click("Command3"); },
        [this, songs] { return final().count() >= songs && scratch().count() == library_.songs; });
    hands_.clickRow(finalName(), 0);
    stage_.give(
        "play from the first song on", [this] { hands_.chooseFor(finalName(), 0, "playall"); },
        [this] { return exists(folder_ + "/list.m3u"); });
  }

  void views() {
    stage_.give(
        "the compact view", [this] { hands_.chooseFromBar("View", "Compact"); }, [this] { return stage_.form().comp; });
    stage_.give(
        "the large view", [this] { hands_.chooseFromBar("View", "large"); },
        [this] { return !stage_.form().comp && hands_.shows("List1"); });
  }

  // The last song is the only one whose file is there.
  void songFiles() {
    openStrip("Picture1");
    hands_.click("Command14");
    listAll();
    const std::string file = lastSongPath(library_, folder_);
    std::ofstream(file) << "a song";
    hands_.clickRow("List1", lastSong());
    hands_.answer("renamed");
    hands_.answer(QMessageBox::No);
    stage_.give(
        "rename one song", [this] { hands_.chooseFor("List1", lastSong(), "rename"); },
        [this, file] { return exists(folder_ + "/renamed.mp3") && !exists(file); });
    openStrip("Picture1");
    hands_.click("Command14");
    listAll();
    std::ofstream(file) << "a song";
    hands_.clickRow("List1", lastSong());
    hands_.answer(QMessageBox::Yes);
    hands_.answer(QMessageBox::No);
    stage_.give(
        "delete one song", [this] { hands_.chooseFor("List1", lastSong(), "ds"); }, [file] { return !exists(file); });
  }

  std::size_t lastSong() {
    return *scratch().find(*displayName(splitFileName(songFileName(library_, library_.songs - 1)).title));
  }

  Stage& stage_;
  Hands& hands_;
  Library library_;
  std::string folder_;
};

}  // namespace

void prepareFolder(const Library& library, const std::string& folder) {
  std::filesystem::current_path(folder);
  writeSettings(Start::readCatalogue);
  makeCatalogue(library, "/srv/music", folder + "/plimo.kvx");
}

void giveCommands(Stage& stage, const Library& library, const std::string& folder) {
  Script(stage, library, folder).play();
}

std::vector<double> scrollByPages(Stage& stage, const Library& library, std::size_t pages) {
  Hands& hands = stage.hands;
  const auto scratchFull = [&] { return stage.form().List1.count() == library.songs; };
  stage.give(
      "start", [] {}, [&] { return hands.shows("List2"); });
  hands.click("Picture1");
  hands.click("Command13");
  if (!hands.until(scratchFull)) throw std::runtime_error("not all songs are listed");
  hands.clickRow("List1", 0);
  const QWidget* painted = hands.list("List1").viewport();
  std::vector<double> times;
  for (std::size_t page = 0; page < pages; ++page) {
    hands.pause(5);
    bool shown = false;
    stage.watch.painting = [&](const QWidget& widget) { shown = shown || &widget == painted; };
    const auto began = std::chrono::steady_clock::now();
    hands.press("List1", Qt::Key_PageDown);
    std::chrono::duration<double> passed{};
    do {
      QCoreApplication::processEvents();  // it comes back with the page painted and handed on
      passed = std::chrono::steady_clock::now() - began;
      if (passed > std::chrono::seconds(10)) throw std::runtime_error("no page is painted");
    } while (!shown);
    times.push_back(passed.count());
  }
  stage.watch.painting = nullptr;
  return times;
}

}  // namespace plimo::bench
