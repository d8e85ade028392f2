#include "support/window/progress_commands.h"

#include <sys/stat.h>

#include <QWidget>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "support/sample_library.h"
#include "support/sample_settings.h"

namespace plimo {

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

// Counts the repaints of the progress panel.
class RepaintCounter {
 public:
  RepaintCounter(EventLoopLatency& latency, const std::size_t* processedFiles) : processedFiles_(processedFiles) {
    latency.onPaint = [this](const QWidget& widget) {
      if (widget.objectName() == QLatin1String("progressPanel")) repainted();
    };
  }

  // Starts a command.
  void restart() {
    repaints_ = 0;
    longestGap_ = 0;
    filesBetween_ = 0;
    filesBefore_ = 0;
    filesAtRepaint_ = processed();
  }
  ProgressSample sample(const CommandResult& result) const {
    const std::size_t filesAfter = processed() - filesAtRepaint_;
    return {result, repaints_, longestGap_, filesBetween_, std::max({filesBefore_, filesBetween_, filesAfter})};
  }

 private:
  std::size_t processed() const { return processedFiles_ != nullptr ? *processedFiles_ : 0; }
  void repainted() {
    const double time = now();
    const std::size_t files = processed() - filesAtRepaint_;
    if (repaints_++ == 0) {
      filesBefore_ = files;
    } else {
      longestGap_ = std::max(longestGap_, time - repaintTime_);
      filesBetween_ = std::max(filesBetween_, files);
    }
    repaintTime_ = time;
    filesAtRepaint_ += files;
  }

  const std::size_t* processedFiles_;
  std::size_t repaints_ = 0;
  double repaintTime_ = 0;
  double longestGap_ = 0;
  std::size_t filesAtRepaint_ = 0;
  std::size_t filesBetween_ = 0;
  std::size_t filesBefore_ = 0;
};

}  // namespace

std::string musicFolder(const std::string& folder) { return folder + "/music"; }

void prepareProgressCommands(std::size_t songs, const std::string& folder, std::size_t bytes) {
  fs::current_path(folder);
  std::ofstream("plimo.ini", std::ios::binary) << settingsText({false, true, "M:"});
  // All display names are distinct, so that each file is copied and deleted once.
  for (std::size_t song = 0; song < songs; ++song) {
    const std::size_t artist = song / songsPerArtist;
    const std::string album = musicFolder(folder) + "/Artist " + std::to_string(artist);
    if (song % songsPerArtist == 0) fs::create_directories(album);
    const std::string file = album + "/Artist " + std::to_string(artist) + " - Song " + std::to_string(song) + ".mp3";
    if (::mknod(file.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0) != 0) throw std::runtime_error("cannot create " + file);
    if (bytes > 0) fs::resize_file(file, bytes);
  }
}

std::vector<ProgressSample> runProgressCommands(WindowFixture& fixture, std::size_t songs, const std::string& folder,
                                                bool copying, const std::size_t* processedFiles) {
  RepaintCounter repaints(fixture.latency, processedFiles);
  std::vector<ProgressSample> samples;
  const auto run = [&](const std::string& command, const std::function<void()>& act,
                       const std::function<bool()>& done) {
    repaints.restart();
    fixture.run(command, act, done);
    samples.push_back(repaints.sample(fixture.results.back()));
  };
  UiDriver& driver = fixture.driver;
  const auto tickAll = [&] {
    driver.click("Picture1");
    driver.click("Command13");
  };

  run(
      "start with a scan", [] {}, [&] { return driver.isVisible("List2") && !fixture.form().List2.empty(); });
  const std::size_t artists = fixture.form().List2.count();
  std::ofstream(musicFolder(folder) + "/Somebody New - Something New.mp3") << "a song";
  run(
      "scan", [&] { driver.chooseFromMenuBar("Function", "Scan"); },
      [&] { return fixture.form().List2.count() == artists + 1; });
  tickAll();
  if (copying) {
    const std::size_t last = fixture.form().List1.count() - 1;
    driver.clickRow("List1", 0);
    driver.clickRow("List1", last, Qt::ShiftModifier);
    driver.chooseFromContextMenu("List1", last, "cop");
    // One target exists already: the message about it appears while the songs are being copied.
    std::ofstream(folder + "/Artist 0 - Song 1.mp3") << "a song";
    driver.answer(QMessageBox::Ok);
    run(
        "copy all songs", [&] { driver.click("Command6"); },
        [&] { return !driver.isVisible("Frame4") && songsIn(folder) == songs + 1; });
  }
  driver.answer(QMessageBox::Yes);
  driver.answer(QMessageBox::No);
  driver.click("Picture2");
  run(
      "delete all songs", [&] { driver.click("Command15"); }, [&] { return !holdsFiles(musicFolder(folder)); });
  fixture.latency.onPaint = nullptr;
  return samples;
}

}  // namespace plimo
