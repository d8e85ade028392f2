#include "platform/mpv/mpv_player.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "platform/mpv/m3u_entries.h"
#include "platform/mpv/mpv_engine.h"

namespace plimo {

namespace {

// Entries that are looked at in one go before the program gets its turn again.
constexpr std::size_t searchedAtOnce = 200;

std::string nameOf(std::string_view path) {
  const std::size_t cut = path.find_last_of("/\\");
  return std::string(cut == std::string_view::npos ? path : path.substr(cut + 1));
}

}  // namespace

MpvPlayer::MpvPlayer(MpvHooks hooks) : hooks_(std::move(hooks)) {}

MpvPlayer::~MpvPlayer() { *alive_ = false; }

void MpvPlayer::tell() {
  if (changed) changed();
}

bool MpvPlayer::engineReady() {
  if (engine_ != nullptr) return true;
  if (engineMissing_) return false;
  auto engine = std::make_unique<Engine>([this, alive = alive_] {
    hooks_.post([this, alive] {
      if (*alive) wake();
    });
  });
  if (!engine->start(hooks_.resolve)) {
    engineMissing_ = true;
    return false;
  }
  engine_ = std::move(engine);
  engine_->setVolume(state_.volume);
  engine_->setMuted(state_.muted);
  return true;
}

void MpvPlayer::open(const std::string& path) {
  stop();
  entries_.clear();
  state_.note.clear();
  state_.index = 0;
  const std::filesystem::path file = nativePath(path);
  folder_ = file.parent_path();
  if (isPlaylistName(path)) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(file, ignored)) {
      std::ifstream stream(file, std::ios::binary);
      const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
      entries_ = m3uEntries(text);
    } else {
      noteSkipped(path, "there is no such playlist");
    }
  } else {
    entries_.push_back(path);
  }
  state_.count = entries_.size();
  if (!engineReady()) state_.note = "Nothing can be played here: the sound library libmpv is missing.";
  if (engine_ != nullptr && !entries_.empty()) {
    playAt(0);
  } else {
    tell();
  }
}

void MpvPlayer::stop() {
  ++ticket_;
  if (engine_ != nullptr) engine_->stop();
  state_.opened = false;
  state_.paused = true;
  state_.duration = 0;
  state_.position = 0;
  state_.song.clear();
  tell();
}

void MpvPlayer::setFileName(const std::string& name) { fileName_ = name; }

void MpvPlayer::setShowControls(bool on) {
  state_.showControls = on;
  tell();
}

void MpvPlayer::setEnabled(bool on) {
  state_.enabled = on;
  tell();
}

void MpvPlayer::playAt(std::size_t index) {
  wanted_ = index;
  searchOn();
}

void MpvPlayer::searchOn() {
  const std::size_t last = std::min(entries_.size(), wanted_ + searchedAtOnce);
  for (; wanted_ < last; ++wanted_) {
    const CheckedEntry entry = checkEntry(entries_[wanted_], folder_);
    switch (entry.playable) {
      case Playable::missing:
        noteSkipped(entries_[wanted_], "the file is gone");
        continue;
      case Playable::notLocal:
        noteSkipped(entries_[wanted_], "only files of this computer are played");
        continue;
      case Playable::notASong:
        noteSkipped(entries_[wanted_], "it is not a song");
        continue;
      case Playable::yes:
        break;
    }
    ++ticket_;
    announced_ = false;
    state_.opened = true;
    state_.paused = !autoStart_;
    state_.index = wanted_;
    state_.song = nameOf(entry.path);
    state_.duration = 0;
    state_.position = 0;
    engine_->load(entry.path, state_.paused);
    tell();
    return;
  }
  if (wanted_ >= entries_.size()) {
    listEnded();
    return;
  }
  hooks_.post([this, alive = alive_, ticket = ticket_] {
    if (*alive && ticket == ticket_) searchOn();
  });
}

void MpvPlayer::noteSkipped(std::string_view entry, const char* reason) {
  state_.note = "Skipped " + nameOf(entry) + ": " + reason + ".";
}

void MpvPlayer::listEnded() {
  state_.opened = false;
  state_.paused = true;
  tell();
}

void MpvPlayer::songEnded(bool failed) {
  if (!state_.opened) return;
  if (failed) {
    noteSkipped(entries_[state_.index], "it cannot be played");
  } else {
    state_.note.clear();
  }
  playAt(state_.index + 1);
}

void MpvPlayer::lengthKnown(double seconds) {
  state_.duration = seconds;
  if (announced_ || !state_.opened || seconds <= 0) return;
  announced_ = true;
  if (newStream) newStream();
}

void MpvPlayer::wake() {
  if (hooks_.listening()) drain();
}

void MpvPlayer::drain() {
  if (engine_ == nullptr) return;
  Engine::Happening happening;
  while (engine_->next(happening)) {
    using Kind = Engine::Happening::Kind;
    switch (happening.kind) {
      case Kind::length:
        lengthKnown(happening.seconds);
        break;
      case Kind::position:
        state_.position = happening.seconds;
        break;
      case Kind::paused:
        state_.paused = happening.on || !state_.opened;
        break;
      case Kind::ended:
        songEnded(false);
        break;
      case Kind::failed:
        songEnded(true);
        break;
      case Kind::none:
        break;
    }
  }
  tell();
}

void MpvPlayer::playOrPause() {
  if (engine_ == nullptr) return;
  if (!state_.opened) {
    if (entries_.empty()) return;
    const bool atEnd = state_.index + 1 >= entries_.size();
    const bool before = std::exchange(autoStart_, true);
    playAt(atEnd ? 0 : state_.index);
    autoStart_ = before;
    return;
  }
  engine_->setPaused(!state_.paused);
}

void MpvPlayer::next() {
  if (engine_ == nullptr || state_.index + 1 >= entries_.size()) return;
  state_.note.clear();
  playAt(state_.index + 1);
}

void MpvPlayer::previous() {
  constexpr double nearStart = 3;  // seconds: later than that, the song itself begins again
  if (engine_ == nullptr || entries_.empty()) return;
  if (state_.opened && (state_.position > nearStart || state_.index == 0)) {
    seek(0);
  } else {
    state_.note.clear();
    playAt(state_.index == 0 ? 0 : state_.index - 1);
  }
}

void MpvPlayer::seek(double seconds) {
  if (engine_ == nullptr || !state_.opened) return;
  state_.position = std::clamp(seconds, 0.0, std::max(0.0, state_.duration));
  engine_->seek(state_.position);
  tell();
}

void MpvPlayer::setVolume(int percent) {
  state_.volume = std::clamp(percent, 0, 100);
  if (engine_ != nullptr) engine_->setVolume(state_.volume);
  tell();
}

void MpvPlayer::setMuted(bool muted) {
  state_.muted = muted;
  if (engine_ != nullptr) engine_->setMuted(muted);
  tell();
}

}  // namespace plimo
