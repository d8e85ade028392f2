// Plays songs and playlists: reads the playlist, gives an engine one song at a time, and skips what cannot be played.
// Only local regular files are ever opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/media_player.h"
#include "platform/player/song_engine.h"

namespace plimo {

// What the player needs from the program.
struct PlayerHooks {
  // Queues the action to run on the program's own thread. Called from any thread.
  std::function<void(std::function<void()> action)> post;
  // First called when a song is opened; after a failure again for each song opened.
  StartEngine startEngine;
  std::function<void(const std::function<void()>& work)> runInBackground;
  // False while newStream must not be raised; it is then deferred to the next drainEvents(). Playback continues
  // meanwhile.
  std::function<bool()> listening;
};

class PlaylistPlayer : public MediaPlayer {
 public:
  explicit PlaylistPlayer(PlayerHooks hooks);
  ~PlaylistPlayer() override;

  void open(const std::string& path) override;
  void stop() override;
  void setFileName(const std::string& name) override;
  double duration() override { return state_.duration; }
  double currentPosition() override { return state_.position; }
  void setAutoStart(bool on) override { autoStart_ = on; }
  void setShowControls(bool on) override;
  void setEnabled(bool on) override;

  // --- For the player strip ---
  struct State {
    bool opened = false;  // there is a song, playing or paused
    bool paused = true;
    double duration = 0;  // seconds; 0: unknown
    double position = 0;
    std::string song;          // the file's name
    std::string path;          // its absolute path; if opened
    std::uint64_t number = 0;  // counts the songs opened, so that the same file opened again has another one
    std::size_t index = 0;     // of the song in the list, from 0
    std::size_t count = 0;     // of the list's entries
    int volume = 100;          // 0 to 100
    bool muted = false;
    bool searching = false;  // for the next playable song
    std::string note;        // what could not be played, and why; empty if there is no problem
    bool showControls = true;
    bool enabled = true;
  };
  const State& state() const { return state_; }
  // What follows the player; all of it is called on the program's own thread.
  struct Observer {
    std::function<void()> changed;  // after each change of the state
    std::function<void()> jumped;   // after a change of the position within the song; may be empty
  };
  // Notifies the observer while the returned object exists, which may outlive the player.
  [[nodiscard]] std::shared_ptr<void> observe(Observer observer);

  void playOrPause();
  void next();
  void previous();
  void seek(double seconds);
  void setVolume(int percent);
  void setMuted(bool muted);
  // Handles the engine's pending events, and raises a deferred newStream.
  void drainEvents();

 private:
  enum class Direction { forwards, backwards };

  // Starts the engine unless it is running; false, and the note, on failure.
  bool startEngine();
  void stopEngine();
  void onEvent(const SongEngine::Event& event);
  void readEntries(const std::string& path);
  void playFrom(std::size_t index, Direction direction, bool paused);
  void searchPlayable();
  void load(const std::string& path);
  void skipEntry(const std::string& reason);
  void onSongEnded();
  void onSongFailed(const std::string& reason);
  void onListEnded();
  void onDuration(double seconds);
  void raiseNewStream();
  void notifyChanged();
  std::vector<std::shared_ptr<Observer>> observers();

  PlayerHooks hooks_;
  State state_;
  bool autoStart_ = true;
  bool durationKnown_ = false;  // of this song; newStream has been raised for it or is pending
  bool newStreamPending_ = false;

  std::vector<std::string> entries_;  // as in the playlist
  std::string folder_;                // of the playlist, for relative entries
  std::size_t candidate_ = 0;         // index of the entry to try next; entries_.size() after the end of the list
  Direction direction_ = Direction::forwards;
  std::size_t resumeIndex_ = 0;   // continued from, forwards, if there is no playable song before
  bool startPaused_ = false;      // for the song searched for
  std::size_t skippedCount_ = 0;  // entries skipped since the last song that played
  bool anyPlayed_ = false;        // of this list
  std::uint64_t generation_ = 0;  // incremented by each search and stop, to ignore searches posted before
  std::uint64_t lastSong_ = 0;    // the number of the song last loaded
  std::uint64_t song_ = 0;        // the number of the song loaded; events of others are ignored. 0: none
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  std::unique_ptr<SongEngine> engine_;
  std::vector<std::weak_ptr<Observer>> observers_;
};

}  // namespace plimo
