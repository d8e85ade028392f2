#include "platform/mpv/mpv_engine.h"

#include <string_view>
#include <vector>

namespace plimo {

namespace {

struct Option {
  const char* name;
  const char* value;
};

// Nothing of the user's own set-up, no scripts, no helpers, nothing but sound, nothing but files.
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

// Some are unknown to some builds of the library, and then there is nothing to forbid.
bool mayBeUnknown(std::string_view name) {
  return (name.starts_with("load-") && name != "load-unsafe-playlists") || name == "ytdl" || name == "osc" ||
         name == "cover-art-auto" || name == "autoload-files" || name == "input-vo-keyboard";
}

enum Watched : std::uint64_t { watchedLength = 1, watchedPosition = 2, watchedPause = 3 };

}  // namespace

MpvPlayer::Engine::~Engine() {
  if (handle_ == nullptr) return;
  mpv_.setWakeupCallback(handle_, nullptr, nullptr);
  mpv_.terminateDestroy(handle_);
}

bool MpvPlayer::Engine::start(const ResolveSymbol& resolve) {
  if (!mpv_.load(resolve)) return false;
  handle_ = mpv_.create();
  if (handle_ == nullptr) return false;
  for (const Option& option : required) {
    const int result = mpv_.setOptionString(handle_, option.name, option.value);
    if (result < 0 && !mayBeUnknown(option.name)) return false;
  }
  if (mpv_.initialize(handle_) < 0) return false;
  mpv_.observeProperty(handle_, watchedLength, "duration", MPV_FORMAT_DOUBLE);
  mpv_.observeProperty(handle_, watchedPosition, "time-pos", MPV_FORMAT_DOUBLE);
  mpv_.observeProperty(handle_, watchedPause, "pause", MPV_FORMAT_FLAG);
  mpv_.setWakeupCallback(
      handle_, [](void* engine) { static_cast<Engine*>(engine)->wakeUp_(); }, this);
  return true;
}

void MpvPlayer::Engine::command(std::initializer_list<const char*> words, std::uint64_t ticket) {
  std::vector<const char*> list(words);
  list.push_back(nullptr);
  mpv_.commandAsync(handle_, ticket, list.data());
}

void MpvPlayer::Engine::forgetSong() {
  ++loads_;
  entry_ = noEntry;
  started_ = false;
  loaded_ = false;
}

void MpvPlayer::Engine::load(const std::string& path, bool paused) {
  forgetSong();
  setPaused(paused);
  command({"loadfile", path.c_str(), "replace"}, loads_);
}

void MpvPlayer::Engine::stop() {
  forgetSong();
  command({"stop"});
}

void MpvPlayer::Engine::seek(double seconds) {
  const std::string target = std::to_string(seconds);
  command({"seek", target.c_str(), "absolute"});
}

void MpvPlayer::Engine::setFlag(const char* property, bool on) {
  int flag = on ? 1 : 0;
  mpv_.setPropertyAsync(handle_, 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvPlayer::Engine::setPaused(bool paused) { setFlag("pause", paused); }

void MpvPlayer::Engine::setMuted(bool muted) { setFlag("mute", muted); }

void MpvPlayer::Engine::setVolume(double percent) {
  mpv_.setPropertyAsync(handle_, 0, "volume", MPV_FORMAT_DOUBLE, &percent);
}

// The answer to "loadfile" carries the library's number for the song. Without a number there is no song.
MpvPlayer::Engine::Happening MpvPlayer::Engine::took(const mpv_event& reply) {
  Happening happening;
  if (reply.reply_userdata != loads_) return happening;
  const auto* answer = static_cast<const mpv_event_command*>(reply.data);
  if (reply.error >= 0 && answer != nullptr && answer->result.format == MPV_FORMAT_NODE_MAP) {
    const mpv_node_list& list = *answer->result.u.list;
    for (int i = 0; i < list.num; ++i) {
      if (std::string_view(list.keys[i]) == "playlist_entry_id") entry_ = list.values[i].u.int64;
    }
  }
  if (entry_ == noEntry) happening.kind = Happening::Kind::failed;
  return happening;
}

MpvPlayer::Engine::Happening MpvPlayer::Engine::endOf(const mpv_event_end_file& end) {
  Happening happening;
  if (end.playlist_entry_id != entry_) return happening;
  if (end.reason == MPV_END_FILE_REASON_EOF) happening.kind = Happening::Kind::ended;
  if (end.reason == MPV_END_FILE_REASON_ERROR) happening.kind = Happening::Kind::failed;
  if (happening.kind != Happening::Kind::none) forgetSong();
  return happening;
}

MpvPlayer::Engine::Happening MpvPlayer::Engine::valueOf(const mpv_event& event) const {
  Happening happening;
  const auto& property = *static_cast<const mpv_event_property*>(event.data);
  if (property.format == MPV_FORMAT_DOUBLE && loaded_) {
    happening.kind = event.reply_userdata == watchedLength ? Happening::Kind::length : Happening::Kind::position;
    happening.seconds = *static_cast<const double*>(property.data);
  } else if (property.format == MPV_FORMAT_FLAG) {
    happening.kind = Happening::Kind::paused;
    happening.on = *static_cast<const int*>(property.data) != 0;
  }
  return happening;
}

bool MpvPlayer::Engine::next(Happening& happening) {
  const mpv_event* event = mpv_.waitEvent(handle_, 0);
  happening = {};
  switch (event->event_id) {
    case MPV_EVENT_NONE:
      return false;
    case MPV_EVENT_COMMAND_REPLY:
      happening = took(*event);
      break;
    case MPV_EVENT_START_FILE:
      started_ = static_cast<const mpv_event_start_file*>(event->data)->playlist_entry_id == entry_;
      break;
    case MPV_EVENT_FILE_LOADED:
      // A length equal to the song's before is no change, and would never be told.
      loaded_ = started_;
      if (loaded_) mpv_.getPropertyAsync(handle_, watchedLength, "duration", MPV_FORMAT_DOUBLE);
      break;
    case MPV_EVENT_END_FILE:
      happening = endOf(*static_cast<const mpv_event_end_file*>(event->data));
      break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
    case MPV_EVENT_PROPERTY_CHANGE:
      if (event->error >= 0) happening = valueOf(*event);
      break;
    default:
      break;
  }
  return true;
}

}  // namespace plimo
