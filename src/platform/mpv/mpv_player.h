// Plays songs through libmpv: one song at a time, from a list of its own that is read from the playlist file. Nothing
// but regular files of this machine is ever opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/media_player.h"

namespace plimo {

// What the program around the player lends it.
struct MpvHooks {
  // Runs the action soon, on the program's own thread; called from any thread.
  std::function<void(std::function<void()> action)> post;
  // Finds a function of libmpv by its name, null where there is none; called at the first song.
  std::function<void*(const char* name)> resolve;
  // False while the program wants to hear of no new stream: it is told of once `wake` is called. The player itself
  // goes on meanwhile.
  std::function<bool()> listening;
};

class MpvPlayer : public MediaPlayer {
 public:
  explicit MpvPlayer(MpvHooks hooks);
  ~MpvPlayer() override;

  void open(const std::string& path) override;
  void stop() override;
  void setFileName(const std::string& name) override;
  double duration() override { return state_.duration; }
  double currentPosition() override { return state_.position; }
  void setAutoStart(bool on) override { autoStart_ = on; }
  void setShowControls(bool on) override;
  void setEnabled(bool on) override;

  // --- What the player's strip shows and does beside ---
  struct State {
    bool opened = false;  // there is a song, playing or not
    bool paused = true;
    double duration = 0;  // seconds; 0: not known
    double position = 0;
    std::string song;       // the file's name
    std::size_t index = 0;  // of the song in the list, from 0
    std::size_t count = 0;
    int volume = 100;  // 0 to 100
    bool muted = false;
    bool searching = false;  // for a song that can be played
    std::string note;        // what could not be played, and why; empty where all is well
    bool showControls = true;
    bool enabled = true;
  };
  const State& state() const { return state_; }
  // Called after each change of the state, on the program's own thread.
  std::function<void()> changed;

  void playOrPause();
  void next();
  void previous();
  void seek(double seconds);
  void setVolume(int percent);
  void setMuted(bool muted);
  // Tells what happened while nobody listened.
  void wake();

 private:
  class Engine;

  enum class Direction { forwards, backwards };

  bool engineReady();
  void readList(const std::string& path);
  void begin(std::size_t index, Direction direction, bool paused);
  void search();
  void load(const std::string& path);
  void leaveOut(const char* reason);
  void songEnded(bool failed);
  void listEnded();
  void lengthKnown(double seconds);
  void tellNewStream();
  void tell();
  void drain();

  MpvHooks hooks_;
  State state_;
  bool autoStart_ = true;
  bool streamKnown_ = false;   // this song's length is, and newStream has been raised for it or is to be
  bool streamUntold_ = false;  // newStream is to be raised

  std::vector<std::string> entries_;  // as the playlist names them
  std::filesystem::path folder_;      // what relative entries are taken from
  std::size_t wanted_ = 0;            // the entry to be tried; behind the last one once the list has ended
  Direction direction_ = Direction::forwards;
  std::size_t turn_ = 0;          // where a way backwards goes on when there is nothing before
  bool beginPaused_ = false;      // the song that is searched for
  std::size_t leftOut_ = 0;       // entries since the last song that played
  bool somethingPlayed_ = false;  // of this list
  std::uint64_t ticket_ = 0;      // of the search; each begins with another
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::unique_ptr<Engine> engine_;
};

}  // namespace plimo
