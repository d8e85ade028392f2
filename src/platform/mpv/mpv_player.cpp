#include "platform/mpv/mpv_player.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

#include "platform/mpv/m3u_entries.h"
#include "platform/mpv/mpv_engine.h"

namespace plimo {

namespace {

// Entries that are looked at in one go before the program gets its turn again.
constexpr int searchedAtOnce = 200;

std::string nameOf(std::string_view entry) {
  const std::string name = nativeText(nativePath(entry).filename());
  return name.empty() ? std::string(entry) : name;
}

const char* reasonOf(Playable playable) {
  switch (playable) {
    case Playable::missing:
      return "the file is gone";
    case Playable::empty:
      return "the file is empty";
    case Playable::notLocal:
      return "only files of this computer are played";
    case Playable::notASong:
    case Playable::yes:
      break;
  }
  return "it is not a song";
}

}  // namespace

MpvPlayer::MpvPlayer(MpvHooks hooks) : hooks_(std::move(hooks)) {}

MpvPlayer::~MpvPlayer() { *alive_ = false; }

void MpvPlayer::tell() {
  if (changed) changed();
}

bool MpvPlayer::engineReady() {
  if (engine_ != nullptr) return true;
  auto engine = std::make_unique<Engine>([this, alive = alive_] {
    hooks_.post([this, alive] {
      if (*alive) wake();
    });
  });
  if (!engine->start(hooks_.resolve)) return false;
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
  somethingPlayed_ = false;
  readList(path);
  state_.count = entries_.size();
  if (!engineReady()) {
    state_.note = "Nothing can be played here: the sound library libmpv is missing.";
    tell();
  } else if (!entries_.empty()) {
    begin(0, Direction::forwards, !autoStart_);
  } else {
    tell();
  }
}

void MpvPlayer::readList(const std::string& path) {
  folder_.clear();
  if (!isPlaylistName(path)) {
    entries_.push_back(path);
    return;
  }
  const std::filesystem::path file = nativePath(path);
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file, ignored)) {
    state_.note = "Skipped " + nameOf(path) + ": there is no such playlist.";
    return;
  }
  folder_ = file.parent_path();
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  entries_ = m3uEntries(text.view());
}

void MpvPlayer::stop() {
  ++ticket_;
  if (engine_ != nullptr) engine_->stop();
  streamUntold_ = false;
  state_.opened = false;
  state_.searching = false;
  state_.paused = true;
  state_.duration = 0;
  state_.position = 0;
  state_.song.clear();
  tell();
}

// Nothing reads the name again.
void MpvPlayer::setFileName(const std::string&) {}

void MpvPlayer::setShowControls(bool on) {
  state_.showControls = on;
  tell();
}

void MpvPlayer::setEnabled(bool on) {
  state_.enabled = on;
  tell();
}

// Plays the entry, or the next one in the direction that can be played. What plays now is over.
void MpvPlayer::begin(std::size_t index, Direction direction, bool paused) {
  if (state_.opened) engine_->stop();
  turn_ = state_.index;
  direction_ = direction;
  beginPaused_ = paused;
  wanted_ = index;
  leftOut_ = 0;
  state_.note.clear();
  search();
}

void MpvPlayer::search() {
  ++ticket_;
  state_.opened = false;
  for (int looks = 0; looks < searchedAtOnce; ++looks) {
    if (wanted_ >= entries_.size()) {
      listEnded();
      return;
    }
    const CheckedEntry entry = checkEntry(entries_[wanted_], folder_);
    if (entry.playable == Playable::yes) {
      load(entry.path);
      return;
    }
    leaveOut(reasonOf(entry.playable));
  }
  state_.searching = true;
  tell();
  hooks_.post([this, alive = alive_, ticket = ticket_] {
    if (*alive && ticket == ticket_) search();
  });
}

void MpvPlayer::load(const std::string& path) {
  streamKnown_ = false;
  streamUntold_ = false;
  state_.searching = false;
  state_.opened = true;
  state_.paused = beginPaused_;
  state_.index = wanted_;
  state_.song = nameOf(path);
  state_.duration = 0;
  state_.position = 0;
  engine_->load(path, beginPaused_);
  tell();
}

// Turns from the entry wanted to the one behind it in the direction.
void MpvPlayer::leaveOut(const char* reason) {
  ++leftOut_;
  const std::string name = nameOf(entries_[wanted_]) + ": " + reason + ".";
  state_.note =
      leftOut_ == 1 ? "Skipped " + name : "Skipped " + std::to_string(leftOut_) + " songs; the last was " + name;
  if (!somethingPlayed_ && leftOut_ == entries_.size() && leftOut_ > 1) {
    state_.note = "None of the " + std::to_string(leftOut_) + " songs can be played; the last was " + name;
  }
  if (direction_ == Direction::forwards) {
    ++wanted_;
  } else if (wanted_ > 0) {
    --wanted_;
  } else {
    direction_ = Direction::forwards;
    wanted_ = turn_;
  }
}

void MpvPlayer::listEnded() {
  state_.searching = false;
  state_.opened = false;
  state_.paused = true;
  if (!somethingPlayed_) {
    state_.song.clear();
    state_.index = 0;
  }
  tell();
}

void MpvPlayer::songEnded(bool failed) {
  if (!state_.opened) return;
  if (failed) {
    beginPaused_ = state_.paused;
    leaveOut("it cannot be played");
  } else {
    beginPaused_ = false;
    direction_ = Direction::forwards;
    leftOut_ = 0;
    somethingPlayed_ = true;
    state_.note.clear();
    wanted_ = state_.index + 1;
  }
  search();
}

void MpvPlayer::lengthKnown(double seconds) {
  state_.duration = seconds;
  if (streamKnown_ || !state_.opened || seconds <= 0) return;
  somethingPlayed_ = true;
  streamKnown_ = true;
  streamUntold_ = true;
  tellNewStream();
}

void MpvPlayer::tellNewStream() {
  if (!streamUntold_ || !hooks_.listening()) return;
  streamUntold_ = false;
  if (newStream) newStream();
}

void MpvPlayer::wake() {
  tellNewStream();
  if (engine_ == nullptr) return;
  Engine::Happening happening;
  while (engine_->next(happening)) {
    using Kind = Engine::Happening::Kind;
    switch (happening.kind) {
      case Kind::length:
        lengthKnown(happening.seconds);
        break;
      case Kind::position:
        state_.position = std::max(0.0, happening.seconds);
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
  if (engine_ == nullptr || entries_.empty()) return;
  if (state_.opened) {
    engine_->setPaused(!state_.paused);
  } else {
    begin(wanted_ < entries_.size() ? state_.index : 0, Direction::forwards, false);
  }
}

void MpvPlayer::next() {
  if (engine_ == nullptr || state_.index + 1 >= entries_.size()) return;
  begin(state_.index + 1, Direction::forwards, false);
}

void MpvPlayer::previous() {
  constexpr double nearStart = 3;  // seconds: later than that, the song itself begins again
  if (engine_ == nullptr || entries_.empty()) return;
  if (state_.opened && (state_.position > nearStart || state_.index == 0)) {
    seek(0);
  } else if (state_.index == 0) {
    begin(0, Direction::forwards, false);
  } else {
    begin(state_.index - 1, Direction::backwards, false);
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
