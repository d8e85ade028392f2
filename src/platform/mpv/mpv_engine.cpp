#include "platform/mpv/mpv_engine.h"

#include <string_view>
#include <vector>

namespace plimo {

namespace {

struct Option {
  const char* name;
  const char* value;
};

// No user configuration, no scripts, no video, no network: only audio from files.
constexpr Option required[] = {
    {"config", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-console", "no"},
    {"load-auto-profiles", "no"},
    {"load-select", "no"},
    {"load-positioning", "no"},
    {"load-commands", "no"},
    {"load-context-menu", "no"},
    {"ytdl", "no"},
    {"osc", "no"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"idle", "yes"},
    {"vid", "no"},
    {"vo", "null"},
    {"force-window", "no"},
    {"audio-display", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"autoload-files", "no"},
    {"ordered-chapters", "no"},
    {"access-references", "no"},
    {"load-unsafe-playlists", "no"},
    {"resume-playback", "no"},
    {"save-position-on-quit", "no"},
    {"demuxer", "lavf"},
    {"demuxer-lavf-o",
     "protocol_whitelist=[file],format_whitelist=[mp3,wav,ogg,flac,aac,mov,matroska,asf,aiff,ape,wv,mpc]"},
    {"stream-lavf-o", "protocol_whitelist=[file]"},
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "Plimo!"},
};

// Some builds of libmpv do not have these options; then there is nothing to disable.
bool mayBeUnknown(std::string_view name) {
  return (name.starts_with("load-") && name != "load-unsafe-playlists") || name == "ytdl" || name == "osc" ||
         name == "cover-art-auto" || name == "autoload-files" || name == "input-vo-keyboard";
}

enum PropertyId : std::uint64_t { durationId = 1, positionId = 2, pauseId = 3 };

}  // namespace

MpvEngine::~MpvEngine() {
  if (handle_ == nullptr) return;
  mpv_.setWakeupCallback(handle_, nullptr, nullptr);
  mpv_.terminateDestroy(handle_);
}

bool MpvEngine::start(const ResolveSymbol& resolve) {
  if (!mpv_.load(resolve)) return false;
  handle_ = mpv_.create();
  if (handle_ == nullptr) return false;
  for (const Option& option : required) {
    const int error = mpv_.setOptionString(handle_, option.name, option.value);
    if (error < 0 && !mayBeUnknown(option.name)) return false;
  }
  if (mpv_.initialize(handle_) < 0) return false;
  mpv_.observeProperty(handle_, durationId, "duration", MPV_FORMAT_DOUBLE);
  mpv_.observeProperty(handle_, positionId, "time-pos", MPV_FORMAT_DOUBLE);
  mpv_.observeProperty(handle_, pauseId, "pause", MPV_FORMAT_FLAG);
  mpv_.setWakeupCallback(
      handle_, [](void* engine) { static_cast<MpvEngine*>(engine)->onWakeup_(); }, this);
  return true;
}

void MpvEngine::command(std::initializer_list<const char*> arguments, std::uint64_t requestId) {
  std::vector<const char*> list(arguments);
  list.push_back(nullptr);
  mpv_.commandAsync(handle_, requestId, list.data());
}

void MpvEngine::resetSong() {
  ++loadCount_;
  entryId_ = noEntryId;
  started_ = false;
  loaded_ = false;
}

void MpvEngine::load(std::uint64_t song, const std::string& path, bool paused) {
  song_ = song;
  resetSong();
  setPaused(paused);
  command({"loadfile", path.c_str(), "replace"}, loadCount_);
}

void MpvEngine::stop() {
  resetSong();
  command({"stop"});
}

void MpvEngine::seek(double seconds) {
  const std::string target = std::to_string(seconds);
  command({"seek", target.c_str(), "absolute"});
}

void MpvEngine::setFlag(const char* property, bool on) {
  int flag = on ? 1 : 0;
  mpv_.setPropertyAsync(handle_, 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvEngine::setPaused(bool paused) { setFlag("pause", paused); }

void MpvEngine::setMuted(bool muted) { setFlag("mute", muted); }

void MpvEngine::setVolume(int percent) {
  double volume = percent;
  mpv_.setPropertyAsync(handle_, 0, "volume", MPV_FORMAT_DOUBLE, &volume);
}

// The reply to "loadfile" contains the playlist_entry_id. Without one, loading has failed.
MpvEngine::Event MpvEngine::loadReply(const mpv_event& reply) {
  Event result;
  if (reply.reply_userdata != loadCount_) return result;
  const auto* data = static_cast<const mpv_event_command*>(reply.data);
  if (reply.error >= 0 && data != nullptr && data->result.format == MPV_FORMAT_NODE_MAP) {
    const mpv_node_list& list = *data->result.u.list;
    for (int i = 0; i < list.num; ++i) {
      if (std::string_view(list.keys[i]) == "playlist_entry_id") entryId_ = list.values[i].u.int64;
    }
  }
  if (entryId_ == noEntryId) result.kind = Event::Kind::failed;
  return result;
}

MpvEngine::Event MpvEngine::endOfFile(const mpv_event_end_file& end) {
  Event result;
  if (end.playlist_entry_id != entryId_) return result;
  if (end.reason == MPV_END_FILE_REASON_EOF) result.kind = Event::Kind::ended;
  if (end.reason == MPV_END_FILE_REASON_ERROR) result.kind = Event::Kind::failed;
  if (result.kind != Event::Kind::none) resetSong();
  return result;
}

MpvEngine::Event MpvEngine::propertyValue(const mpv_event& event) const {
  Event result;
  const auto& property = *static_cast<const mpv_event_property*>(event.data);
  if (property.format == MPV_FORMAT_DOUBLE && loaded_) {
    result.kind = event.reply_userdata == durationId ? Event::Kind::duration : Event::Kind::position;
    result.seconds = *static_cast<const double*>(property.data);
  } else if (property.format == MPV_FORMAT_FLAG) {
    result.kind = Event::Kind::paused;
    result.paused = *static_cast<const int*>(property.data) != 0;
  }
  return result;
}

// Events of former songs are of the kind `none`.
MpvEngine::Event MpvEngine::eventOf(const mpv_event& event) {
  switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
      return loadReply(event);
    case MPV_EVENT_START_FILE:
      started_ = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id == entryId_;
      break;
    case MPV_EVENT_FILE_LOADED:
      // If the duration equals the previous song's, there is no change event.
      loaded_ = started_;
      if (loaded_) mpv_.getPropertyAsync(handle_, durationId, "duration", MPV_FORMAT_DOUBLE);
      break;
    case MPV_EVENT_END_FILE:
      return endOfFile(*static_cast<const mpv_event_end_file*>(event.data));
    case MPV_EVENT_GET_PROPERTY_REPLY:
    case MPV_EVENT_PROPERTY_CHANGE:
      if (event.error >= 0) return propertyValue(event);
      break;
    default:
      break;
  }
  return {};
}

bool MpvEngine::nextEvent(Event& result) {
  const mpv_event* event = mpv_.waitEvent(handle_, 0);
  if (event->event_id == MPV_EVENT_NONE) return false;
  result = eventOf(*event);
  result.song = song_;
  if (result.kind == Event::Kind::failed) result.reason = cannotBePlayed;
  return true;
}

}  // namespace plimo
