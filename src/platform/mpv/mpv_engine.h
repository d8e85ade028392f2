// One libmpv instance, configured to play audio from local files and nothing else.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>

#include "platform/mpv/mpv_library.h"
#include "platform/player/song_engine.h"

namespace plimo {

class MpvEngine : public SongEngine {
 public:
  // `onWakeup` is called on libmpv's threads when there are events.
  explicit MpvEngine(std::function<void()> onWakeup) : onWakeup_(std::move(onWakeup)) {}
  ~MpvEngine() override;

  // False if the library is missing or fails to initialise.
  bool start(const ResolveSymbol& resolve);

  void load(std::uint64_t song, const std::string& path, bool paused) override;
  void stop() override;
  void seek(double seconds) override;
  void setPaused(bool paused) override;
  void setVolume(int percent) override;
  void setMuted(bool muted) override;
  bool nextEvent(Event& result) override;

 private:
  void command(std::initializer_list<const char*> arguments, std::uint64_t requestId = 0);
  void resetSong();
  Event eventOf(const mpv_event& event);
  Event loadReply(const mpv_event& reply);
  Event endOfFile(const mpv_event_end_file& end);
  Event propertyValue(const mpv_event& event) const;
  void setFlag(const char* property, bool on);

  std::function<void()> onWakeup_;
  MpvLibrary mpv_;
  mpv_handle* handle_ = nullptr;
  std::uint64_t song_ = 0;            // the number of the last song
  std::uint64_t loadCount_ = 0;       // identifies the last load command in its reply
  std::int64_t entryId_ = noEntryId;  // libmpv's playlist_entry_id of the song, from that reply
  bool started_ = false;              // libmpv has started with this entry
  bool loaded_ = false;               // and read its header: durations and positions from now on are this song's
  static constexpr std::int64_t noEntryId = -1;
};

}  // namespace plimo
