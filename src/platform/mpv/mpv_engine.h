// One libmpv instance, configured to play audio from local files and nothing else.
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
  // `onWakeup` is called on libmpv's threads when there are events.
  explicit Engine(std::function<void()> onWakeup) : onWakeup_(std::move(onWakeup)) {}
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  ~Engine();

  // False if the library is missing or fails to initialise.
  bool start(const ResolveSymbol& resolve);

  void load(const std::string& path, bool paused);
  void stop();
  void seek(double seconds);
  void setPaused(bool paused);
  void setVolume(double percent);
  void setMuted(bool muted);

  // Events of the song last loaded; those of earlier songs are of the kind `none`.
  struct Event {
    enum class Kind { none, ended, failed, duration, position, paused } kind = Kind::none;
    double seconds = 0;  // of a duration or position
    bool paused = false;
  };
  // The next event; false if there are no more.
  bool nextEvent(Event& result);

 private:
  void command(std::initializer_list<const char*> arguments, std::uint64_t requestId = 0);
  void resetSong();
  Event loadReply(const mpv_event& reply);
  Event endOfFile(const mpv_event_end_file& end);
  Event propertyValue(const mpv_event& event) const;
  void setFlag(const char* property, bool on);

  std::function<void()> onWakeup_;
  MpvLibrary mpv_;
  mpv_handle* handle_ = nullptr;
  std::uint64_t loadCount_ = 0;       // identifies the last load command in its reply
  std::int64_t entryId_ = noEntryId;  // libmpv's playlist_entry_id of the song, from that reply
  bool started_ = false;              // libmpv has started with this entry
  bool loaded_ = false;               // and read its header: durations and positions from now on are this song's
  static constexpr std::int64_t noEntryId = -1;
};

}  // namespace plimo
