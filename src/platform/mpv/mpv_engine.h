// One libmpv instance, set up to play sound from local files and to do nothing else.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>

#include "platform/mpv/mpv_library.h"
#include "platform/mpv/mpv_player.h"

namespace plimo {

class MpvPlayer::Engine {
 public:
  // `wakeUp` is called from the library's own threads.
  explicit Engine(std::function<void()> wakeUp) : wakeUp_(std::move(wakeUp)) {}
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine();

  // False where the library is missing or refuses to start.
  bool start(const ResolveSymbol& resolve);

  void load(const std::string& path, bool paused);
  void stop();
  void seek(double seconds);
  void setPaused(bool paused);
  void setVolume(double percent);
  void setMuted(bool muted);

  // What has happened to the song last loaded, one event a call; false when there is nothing more. What is still to
  // be told of a song before it is left out.
  struct Happening {
    enum class Kind { none, ended, failed, length, position, paused } kind = Kind::none;
    double seconds = 0;
    bool on = false;
  };
  bool next(Happening& happening);

 private:
  void command(std::initializer_list<const char*> words, std::uint64_t ticket = 0);
  void forgetSong();
  Happening took(const mpv_event& reply);
  Happening endOf(const mpv_event_end_file& end);
  Happening valueOf(const mpv_event& event) const;
  void setFlag(const char* property, bool on);

  std::function<void()> wakeUp_;
  MpvLibrary mpv_;
  mpv_handle* handle_ = nullptr;
  std::uint64_t loads_ = 0;       // songs loaded so far
  std::int64_t entry_ = noEntry;  // the library's own number for the last of them, once it has told it
  bool started_ = false;          // the library has turned to it
  bool loaded_ = false;           // and read its head: lengths and positions told from now on are its own
  static constexpr std::int64_t noEntry = -1;
};

}  // namespace plimo
