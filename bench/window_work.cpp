#include "window_work.h"

#include <sys/stat.h>

#include <QWidget>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bench_shell.h"
#include "library.h"

namespace plimo::bench {

namespace {

namespace fs = std::filesystem;

double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

std::size_t songsIn(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::count_if(fs::directory_iterator(folder), fs::directory_iterator(), [](const fs::directory_entry& entry) {
        const std::string ending = entry.path().extension();
        return ending == ".mp3" || ending == ".MP3" || ending == ".Mp3";
      }));
}

bool holdsFiles(const fs::path& folder) {
  return std::any_of(fs::recursive_directory_iterator(folder), fs::recursive_directory_iterator(),
                     [](const fs::directory_entry& entry) { return entry.is_regular_file(); });
}

}  // namespace

RepaintWatch::RepaintWatch(Stage& stage, const std::size_t* files) : counted_(files) {
  stage.watch.painting = [this](const QWidget& widget) {
    if (widget.objectName() == QLatin1String("progressPanel")) painted();
  };
}

void RepaintWatch::restart() {
  paintings_ = 0;
  seconds_ = 0;
  filesBetween_ = 0;
  filesAround_ = 0;
  lastFiles_ = counted_ != nullptr ? *counted_ : 0;
}

void RepaintWatch::painted() {
  const double time = now();
  const std::size_t passed = counted_ != nullptr ? *counted_ - lastFiles_ : 0;
  if (paintings_++ == 0) {
    filesAround_ = passed;
  } else {
    seconds_ = std::max(seconds_, time - last_);
    filesBetween_ = std::max(filesBetween_, passed);
  }
  last_ = time;
  lastFiles_ += passed;
}

std::size_t RepaintWatch::files() const {
  const std::size_t passed = counted_ != nullptr ? *counted_ - lastFiles_ : 0;
  return std::max({filesBetween_, filesAround_, passed});
}

std::string musicFolder(const std::string& folder) { return folder + "/music"; }

void prepareWork(std::size_t songs, const std::string& folder, std::size_t bytes) {
  fs::current_path(folder);
  writeSettings(Start::scan);
  // No two songs are shown under the same name: each file is copied and deleted once.
  for (std::size_t song = 0; song < songs; ++song) {
    const std::size_t artist = song / songsOfArtist;
    const std::string album = musicFolder(folder) + "/Artist " + std::to_string(artist);
    if (song % songsOfArtist == 0) fs::create_directories(album);
    const std::string file = album + "/Artist " + std::to_string(artist) + " - Song " + std::to_string(song) + ".mp3";
    if (::mknod(file.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) != 0) throw std::runtime_error(file + " cannot be made");
    if (bytes > 0) fs::resize_file(file, bytes);
  }
}

std::vector<ProgressSample> giveWork(Stage& stage, std::size_t songs, const std::string& folder, bool copying,
                                     const std::size_t* files) {
  RepaintWatch repaints(stage, files);
  std::vector<ProgressSample> told;
  const auto give = [&](const std::string& command, const std::function<void()>& act,
                        const std::function<bool()>& done) {
    repaints.restart();
    stage.give(command, act, done);
    told.push_back(
        {stage.gaps.back(), repaints.paintings(), repaints.seconds(), repaints.filesBetween(), repaints.files()});
  };
  Hands& hands = stage.hands;
  const auto tickAll = [&] {
    hands.click("Picture1");
    hands.click("Command13");
  };

  give(
      "start with a scan", [] {}, [&] { return hands.shows("List2") && !stage.form().List2.empty(); });
  const std::size_t artists = stage.form().List2.count();
  std::ofstream(musicFolder(folder) + "/Somebody New - Something New.mp3") << "a song";
  give(
      "scan", [&] { hands.chooseFromBar("Function", "Scan"); },
      [&] { return stage.form().List2.count() == artists + 1; });
  tickAll();
  if (copying) {
    const std::size_t last = stage.form().List1.count() - 1;
    hands.clickRow("List1", 0);
    hands.clickRow("List1", last, Qt::ShiftModifier);
    hands.chooseFor("List1", last, "cop");
    // One is there already: the box that says so comes up in the midst of the copying.
    std::ofstream(folder + "/Artist 0 - Song 1.mp3") << "a song";
    hands.answer(QMessageBox::Ok);
    give(
        "copy all songs", [&] { hands.click("Command6"); },
        [&] { return !hands.shows("Frame4") && songsIn(folder) == songs + 1; });
  }
  hands.answer(QMessageBox::Yes);
  hands.answer(QMessageBox::No);
  hands.click("Picture2");
  give(
      "delete all songs", [&] { hands.click("Command15"); }, [&] { return !holdsFiles(musicFolder(folder)); });
  stage.watch.painting = nullptr;
  return told;
}

}  // namespace plimo::bench
