#include "support/window/list_commands.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "base/text.h"
#include "catalogue/song_name.h"
#include "support/sample_settings.h"

namespace plimo {

namespace {

using std::filesystem::exists;

// All commands in one session: each leaves the lists as the next one needs them.
class Script {
 public:
  Script(WindowFixture& fixture, const SampleLibrary& library, std::string folder)
      : fixture_(fixture), driver_(fixture.driver), library_(library), folder_(std::move(folder)) {}

  void run() {
    start();
    artists();
    scratchPlaylist();
    finalPlaylist();
    playlistFiles();
    views();
    songFiles();
  }

 private:
  ListBox& artistList() { return fixture_.form().List2; }
  ListBox& scratch() { return fixture_.form().List1; }
  ListBox& final() { return fixture_.form().finalList(); }
  const char* finalName() { return fixture_.form().List4.visible() ? "List4" : "List6"; }
  std::size_t rowOf(std::size_t artist) { return *artistList().find(upperAscii(artistName(artist))); }

  void start() {
    fixture_.run(
        "start", [] {}, [this] { return driver_.isVisible("List2") && !artistList().empty(); });
  }

  void artists() {
    std::size_t small = library_.smallArtists() / 2;
    if (small % 64 == 63) --small;
    tickAndUntick("one artist of 20 songs", rowOf(small), songsPerArtist);
    tickAndUntick("one artist of a tenth of the songs", rowOf(library_.largeArtist()),
                  library_.songs - library_.smallSongs());
    selectAll("tick all artists");
    openStrip("Picture1");
    fixture_.run(
        "untick all artists", [this] { driver_.click("Command14"); },
        [this] { return scratch().empty() && artistList().selectedCount() == 0; });
    listAll();
  }

  // Clicks its handle, which is hidden while the strip is open.
  void openStrip(const char* handle) {
    if (driver_.isVisible(handle)) driver_.click(handle);
  }

  void tickAndUntick(const std::string& artist, std::size_t row, std::size_t songs) {
    fixture_.run(
        "tick " + artist, [this, row] { driver_.tick("List2", row); },
        [this, songs] { return scratch().count() == songs; });
    fixture_.run(
        "untick " + artist, [this, row] { driver_.tick("List2", row); }, [this] { return scratch().empty(); });
  }

  void selectAll(const std::string& command) {
    openStrip("Picture1");
    fixture_.run(
        command, [this] { driver_.click("Command13"); }, [this] { return scratch().count() == library_.songs; });
  }

  // The same as preparation, without recording a result.
  void listAll() {
    openStrip("Picture1");
    driver_.click("Command13");
    if (!driver_.waitUntil([this] { return scratch().count() == library_.songs; }))
      throw std::runtime_error("no songs");
  }

  std::size_t half() { return library_.songs / 2; }

  void selectHalf() {
    driver_.clickRow("List1", 0);
    driver_.clickRow("List1", half() - 1, Qt::ShiftModifier);
  }

  void scratchPlaylist() {
    driver_.clickRow("List1", 0);
    fixture_.run(
        "scroll by a page", [this] { driver_.press("List1", Qt::Key_PageDown); },
        [this] { return scratch().current() > std::size_t{1}; });
    fixture_.run(
        "scroll to the end", [this] { driver_.press("List1", Qt::Key_End); },
        [this] { return scratch().current() == scratch().count() - 1; });
    driver_.clickRow("List1", 0);
    fixture_.run(
        "select half of the songs", [this] { driver_.clickRow("List1", half() - 1, Qt::ShiftModifier); },
        [this] { return scratch().selectedCount() == half(); });
    openStrip("Picture2");
    fixture_.run(
        "add half of the songs", [this] { driver_.click("Command1"); },
        [this] { return final().count() == library_.songs / 2; });
    selectHalf();
    openStrip("Picture2");
    fixture_.run(
        "remove half of the songs", [this] { driver_.click("Command2"); },
        [this] { return scratch().count() == library_.songs - library_.songs / 2; });
    openStrip("Picture2");
    fixture_.run(
        "clear the scratch playlist", [this] { driver_.click("Command9"); }, [this] { return scratch().empty(); });
    openStrip("Picture1");
    driver_.click("Command14");
    listAll();
    openStrip("Picture3");
    fixture_.run(
        "clear the final playlist", [this] { driver_.click("Command11"); }, [this] { return final().empty(); });
    openStrip("Picture2");
    fixture_.run(
        "add all songs", [this] { driver_.click("Command8"); }, [this] { return final().count() == library_.songs; });
  }

  void finalPlaylist() {
    fixture_.run(
        "shuffle", [this] { driver_.chooseFromContextMenu(finalName(), 0, "Shuffle"); },
        [this] { return !fixture_.form().List4.visible() && final().count() == library_.songs; });
    fixture_.run(
        "sort", [this] { driver_.chooseFromContextMenu(finalName(), 0, "sort"); },
        [this] { return fixture_.form().List4.visible() && inOrder(final()); });
    driver_.clickRow(finalName(), library_.songs / 2);
    fixture_.run(
        "select by \"z\"", [this] { driver_.type(finalName(), 'z'); }, [this] { return final().selectedCount() > 0; });
    fixture_.run(
        "remove by \"x\"", [this] { driver_.type(finalName(), 'x'); },
        [this] { return final().count() < library_.songs; });
    fixture_.run(
        "pick up by \"q\"", [this] { driver_.type(finalName(), 'q'); },
        [this] { return !fixture_.form().pickedUp().empty(); });
    driver_.press(finalName(), Qt::Key_Home);
    fixture_.run(
        "drop by \"w\"", [this] { driver_.type(finalName(), 'w'); },
        [this] { return fixture_.form().pickedUp().empty(); });
  }

  // A necessary condition is enough: the shuffled list practically never satisfies it.
  static bool inOrder(const ListBox& list) {
    return list.count() < 2 || upperAscii(list.text(0)) <= upperAscii(list.text(1));
  }

  void playlistFiles() {
    driver_.answer(QMessageBox::No);
    driver_.answer(folder_ + "/all");
    openStrip("Picture3");
    fixture_.run(
        "save all songs", [this] { driver_.click("Command4"); }, [this] { return exists(folder_ + "/all.m3u"); });
    driver_.answer(folder_ + "/all.m3u");
    openStrip("Picture3");
    const std::size_t songs = final().count();
    fixture_.run(
        "open all songs", [this] { driver_.click("Command3"); },
        [this, songs] { return final().count() >= songs && scratch().count() == library_.songs; });
    driver_.clickRow(finalName(), 0);
    fixture_.run(
        "play from the first song on", [this] { driver_.chooseFromContextMenu(finalName(), 0, "playall"); },
        [this] { return exists(folder_ + "/list.m3u"); });
  }

  void views() {
    fixture_.run(
        "the compact view", [this] { driver_.chooseFromMenuBar("View", "Compact"); },
        [this] { return fixture_.form().comp; });
    fixture_.run(
        "the large view", [this] { driver_.chooseFromMenuBar("View", "large"); },
        [this] { return !fixture_.form().comp && driver_.isVisible("List1"); });
  }

  // Only the last song has a file.
  void songFiles() {
    openStrip("Picture1");
    driver_.click("Command14");
    listAll();
    const std::string file = lastSongPath(library_, folder_);
    std::ofstream(file) << "a song";
    driver_.clickRow("List1", lastSong());
    driver_.answer("renamed");
    driver_.answer(QMessageBox::No);
    fixture_.run(
        "rename one song", [this] { driver_.chooseFromContextMenu("List1", lastSong(), "rename"); },
        [this, file] { return exists(folder_ + "/renamed.mp3") && !exists(file); });
    openStrip("Picture1");
    driver_.click("Command14");
    listAll();
    driver_.answer(QMessageBox::No);
    openStrip("Picture2");
    fixture_.run(
        "ask before all songs are deleted", [this] { driver_.click("Command15"); },
        [this] { return driver_.dialogsAsExpected(); });
    std::ofstream(file) << "a song";
    driver_.clickRow("List1", lastSong());
    driver_.answer(QMessageBox::Yes);
    driver_.answer(QMessageBox::No);
    fixture_.run(
        "delete one song", [this] { driver_.chooseFromContextMenu("List1", lastSong(), "ds"); },
        [file] { return !exists(file); });
  }

  std::size_t lastSong() {
    return *scratch().find(*displayName(splitFileName(songFileName(library_, library_.songs - 1)).title));
  }

  WindowFixture& fixture_;
  UiDriver& driver_;
  SampleLibrary library_;
  std::string folder_;
};

}  // namespace

void prepareListCommands(const SampleLibrary& library, const std::string& folder) {
  std::filesystem::current_path(folder);
  std::ofstream("plimo.ini", std::ios::binary) << settingsText({false, false, "M:"});
  writeCatalogue(library, "/srv/music", folder + "/plimo.kvx");
}

void runListCommands(WindowFixture& fixture, const SampleLibrary& library, const std::string& folder) {
  Script(fixture, library, folder).run();
}

}  // namespace plimo
