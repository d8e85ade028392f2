#include "platform/player/playlist_player.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/player/m3u_entries.h"

namespace plimo {

namespace {

// Entries checked before control returns to the event loop.
constexpr int entriesPerTurn = 200;

std::string displayName(std::string_view entry) {
  const std::string name = fromFilesystemPath(toFilesystemPath(entry).filename());
  return name.empty() ? std::string(entry) : name;
}

const char* skipReason(Playable playable) {
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

PlaylistPlayer::PlaylistPlayer(PlayerHooks hooks) : hooks_(std::move(hooks)) {}

PlaylistPlayer::~PlaylistPlayer() { *alive_ = false; }

std::shared_ptr<void> PlaylistPlayer::observe(Observer observer) {
  auto observed = std::make_shared<Observer>(std::move(observer));
  observers_.push_back(observed);
  return observed;
}

// Those that still exist; they may be added and removed while they are notified.
std::vector<std::shared_ptr<PlaylistPlayer::Observer>> PlaylistPlayer::observers() {
  std::erase_if(observers_, [](const std::weak_ptr<Observer>& observer) { return observer.expired(); });
  std::vector<std::shared_ptr<Observer>> existing;
  for (const auto& observer : observers_) existing.push_back(observer.lock());
  return existing;
}

void PlaylistPlayer::notifyChanged() {
  for (const auto& observer : observers()) observer->changed();
}

bool PlaylistPlayer::startEngine() {
  if (engine_ != nullptr) return true;
  const EngineHost host{[this, post = hooks_.post, alive = alive_] {
                          post([this, alive] {
                            if (*alive) drainEvents();
                          });
                        },
                        hooks_.runInBackground};
  engine_ = hooks_.startEngine(host, state_.note);
  if (engine_ == nullptr) return false;
  engine_->setVolume(state_.volume);
  engine_->setMuted(state_.muted);
  return true;
}

void PlaylistPlayer::stopEngine() {
  song_ = 0;
  if (engine_ != nullptr) engine_->stop();
}

void PlaylistPlayer::open(const std::string& path) {
  stop();
  state_.note.clear();
  state_.index = 0;
  anyPlayed_ = false;
  readEntries(path);
  state_.count = entries_.size();
  if (startEngine() && !entries_.empty()) {
    playFrom(0, Direction::forwards, !autoStart_);
  } else {
    notifyChanged();
  }
}

void PlaylistPlayer::readEntries(const std::string& path) {
  folder_.clear();
  // There may be a million of them: even to release the old ones takes long.
  std::vector<std::string> old = std::exchange(entries_, {});
  std::vector<std::string> entries;
  bool exists = true;
  hooks_.runInBackground([&] {
    old = {};
    if (!isPlaylistName(path)) {
      entries.push_back(path);
    } else if (const auto text = readPlaylistFile(path)) {
      entries = m3uEntries(*text);
    } else {
      exists = false;
    }
  });
  entries_ = std::move(entries);
  if (!isPlaylistName(path)) return;
  if (!exists) {
    state_.note = "Skipped " + displayName(path) + ": there is no such playlist.";
    return;
  }
  folder_ = folderOfPlaylist(path);
}

void PlaylistPlayer::stop() {
  ++generation_;
  stopEngine();
  newStreamPending_ = false;
  state_.opened = false;
  state_.searching = false;
  state_.paused = true;
  state_.duration = 0;
  state_.position = 0;
  state_.song.clear();
  state_.path.clear();
  notifyChanged();
}

// The name is never read back.
void PlaylistPlayer::setFileName(const std::string&) {}

void PlaylistPlayer::setShowControls(bool on) {
  state_.showControls = on;
  notifyChanged();
}

void PlaylistPlayer::setEnabled(bool on) {
  state_.enabled = on;
  notifyChanged();
}

// Plays the entry, or the next playable one in the direction. Stops the current song.
void PlaylistPlayer::playFrom(std::size_t index, Direction direction, bool paused) {
  if (state_.opened) stopEngine();
  resumeIndex_ = state_.index;
  direction_ = direction;
  startPaused_ = paused;
  candidate_ = index;
  skippedCount_ = 0;
  state_.note.clear();
  searchPlayable();
}

void PlaylistPlayer::searchPlayable() {
  ++generation_;
  state_.opened = false;
  for (int i = 0; i < entriesPerTurn; ++i) {
    if (candidate_ >= entries_.size()) {
      onListEnded();
      return;
    }
    const CheckedEntry entry = checkEntry(entries_[candidate_], folder_);
    if (entry.playable == Playable::yes) {
      load(entry.path);
      return;
    }
    skipEntry(skipReason(entry.playable));
  }
  state_.searching = true;
  notifyChanged();
  hooks_.post([this, alive = alive_, generation = generation_] {
    if (*alive && generation == generation_) searchPlayable();
  });
}

void PlaylistPlayer::load(const std::string& path) {
  durationKnown_ = false;
  newStreamPending_ = false;
  state_.searching = false;
  state_.opened = true;
  state_.paused = startPaused_;
  state_.index = candidate_;
  state_.song = displayName(path);
  state_.path = path;
  state_.duration = 0;
  state_.position = 0;
  song_ = ++lastSong_;
  state_.number = song_;
  engine_->load(song_, path, startPaused_);
  notifyChanged();
}

// Moves from the candidate to the next entry in the direction.
void PlaylistPlayer::skipEntry(const std::string& reason) {
  ++skippedCount_;
  const std::string name = displayName(entries_[candidate_]) + ": " + reason + ".";
  state_.note = skippedCount_ == 1 ? "Skipped " + name
                                   : "Skipped " + std::to_string(skippedCount_) + " songs; the last was " + name;
  if (!anyPlayed_ && skippedCount_ == entries_.size() && skippedCount_ > 1) {
    state_.note = "None of the " + std::to_string(skippedCount_) + " songs can be played; the last was " + name;
  }
  if (direction_ == Direction::forwards) {
    ++candidate_;
  } else if (candidate_ > 0) {
    --candidate_;
  } else {
    direction_ = Direction::forwards;
    candidate_ = resumeIndex_;
  }
}

void PlaylistPlayer::onListEnded() {
  state_.searching = false;
  state_.opened = false;
  state_.paused = true;
  if (!anyPlayed_) {
    state_.song.clear();
    state_.index = 0;
  }
  notifyChanged();
}

void PlaylistPlayer::onSongEnded() {
  startPaused_ = false;
  direction_ = Direction::forwards;
  skippedCount_ = 0;
  anyPlayed_ = true;
  state_.note.clear();
  candidate_ = state_.index + 1;
  searchPlayable();
}

void PlaylistPlayer::onSongFailed(const std::string& reason) {
  startPaused_ = state_.paused;
  skipEntry(reason);
  searchPlayable();
}

void PlaylistPlayer::onDuration(double seconds) {
  state_.duration = seconds;
  if (durationKnown_ || seconds <= 0) return;
  anyPlayed_ = true;
  durationKnown_ = true;
  newStreamPending_ = true;
  raiseNewStream();
}

void PlaylistPlayer::raiseNewStream() {
  if (!newStreamPending_ || !hooks_.listening()) return;
  newStreamPending_ = false;
  if (newStream) newStream();
}

void PlaylistPlayer::onEvent(const SongEngine::Event& event) {
  using Kind = SongEngine::Event::Kind;
  switch (event.kind) {
    case Kind::duration:
      onDuration(event.seconds);
      break;
    case Kind::position:
      state_.position = std::max(0.0, event.seconds);
      break;
    case Kind::paused:
      state_.paused = event.paused;
      break;
    case Kind::ended:
      song_ = 0;
      onSongEnded();
      break;
    case Kind::failed:
      song_ = 0;
      onSongFailed(event.reason);
      break;
    case Kind::none:
      break;
  }
}

void PlaylistPlayer::drainEvents() {
  raiseNewStream();
  if (engine_ == nullptr) return;
  SongEngine::Event event;
  while (engine_->nextEvent(event)) {
    if (song_ != 0 && event.song == song_) onEvent(event);
  }
  notifyChanged();
}

void PlaylistPlayer::playOrPause() {
  if (engine_ == nullptr || entries_.empty()) return;
  if (state_.opened) {
    engine_->setPaused(!state_.paused);
  } else {
    playFrom(candidate_ < entries_.size() ? state_.index : 0, Direction::forwards, false);
  }
}

void PlaylistPlayer::next() {
  if (engine_ == nullptr || state_.index + 1 >= entries_.size()) return;
  playFrom(state_.index + 1, Direction::forwards, false);
}

void PlaylistPlayer::previous() {
  constexpr double nearStart = 3;  // seconds; after that, the current song restarts
  if (engine_ == nullptr || entries_.empty()) return;
  if (state_.opened && (state_.position > nearStart || state_.index == 0)) {
    seek(0);
  } else if (state_.index == 0) {
    playFrom(0, Direction::forwards, false);
  } else {
    playFrom(state_.index - 1, Direction::backwards, false);
  }
}

void PlaylistPlayer::seek(double seconds) {
  if (engine_ == nullptr || !state_.opened) return;
  state_.position = std::clamp(seconds, 0.0, std::max(0.0, state_.duration));
  engine_->seek(state_.position);
  notifyChanged();
  for (const auto& observer : observers()) {
    if (observer->jumped) observer->jumped();
  }
}

void PlaylistPlayer::setVolume(int percent) {
  state_.volume = std::clamp(percent, 0, 100);
  if (engine_ != nullptr) engine_->setVolume(state_.volume);
  notifyChanged();
}

void PlaylistPlayer::setMuted(bool muted) {
  state_.muted = muted;
  if (engine_ != nullptr) engine_->setMuted(muted);
  notifyChanged();
}

}  // namespace plimo
