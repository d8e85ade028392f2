#include "platform/directshow/playback.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/directshow/song_file.h"

namespace plimo {

namespace {

constexpr long silence = -10000;

// Positions nearer to the start or end of a song (in seconds) do not show that it sounds.
constexpr double margin = 0.05;

}  // namespace

long attenuation(int percent) {
  if (percent <= 0) return silence;
  constexpr double exponent = 3;  // of the amplitude
  constexpr double hundredthsPerDecade = 2000;
  return std::clamp(std::lround(exponent * hundredthsPerDecade * std::log10(percent / 100.0)), silence, 0L);
}

Playback::Playback(HWND window, UINT graphMessage, std::function<void(Event)> report)
    : window_(window), graphMessage_(graphMessage), report_(std::move(report)) {}

void Playback::report(Event event) {
  event.song = song_;
  report_(std::move(event));
}

void Playback::load(std::uint64_t song, const std::string& path, bool paused) {
  stop();
  song_ = song;
  paused_ = paused;
  durationReported_ = false;
  seeked_ = false;
  reported_ = 0;
  heard_ = false;
  played_ = false;
  path_ = widePath(path);
  if (const std::string problem = problemOfFile(path_); !problem.empty()) {
    fail(problem);
  } else if (!(soundDeviceExists() && opens(SoundOutput::device)) && !opens(SoundOutput::none)) {
    fail(cannotBePlayed);
  }
}

// Builds the filters and starts them, as paused as they are to be.
bool Playback::opens(SoundOutput output) {
  graph_ = std::make_unique<SongGraph>();
  output_ = output;
  if (FAILED(graph_->open(path_, output))) {
    graph_ = nullptr;
    return false;
  }
  graph_->notify(window_, graphMessage_, static_cast<LONG_PTR>(song_));
  applyVolume();
  if (starts()) return true;
  graph_ = nullptr;
  return false;
}

bool Playback::starts() {
  if (!paused_ && !played_) {
    played_ = true;
    playingSince_ = std::chrono::steady_clock::now();
  }
  return SUCCEEDED(paused_ ? graph_->pause() : graph_->run());
}

void Playback::stop() {
  graph_ = nullptr;
  song_ = 0;
}

void Playback::fail(const std::string& reason) {
  report({.kind = Event::Kind::failed, .reason = reason});
  stop();
}

void Playback::setPaused(bool paused) {
  if (graph_ == nullptr) return;
  paused_ = paused;
  if (!starts()) {
    continueInSilence();
    if (graph_ == nullptr) return;
  }
  report({.kind = Event::Kind::paused, .paused = paused});
}

void Playback::seek(double seconds) {
  if (graph_ == nullptr || !graph_->seek(seconds)) return;
  seeked_ = true;
  reported_ = seconds;
  report({.kind = Event::Kind::position, .seconds = seconds});
}

void Playback::setVolume(int percent) {
  volume_ = percent;
  applyVolume();
}

void Playback::setMuted(bool muted) {
  muted_ = muted;
  applyVolume();
}

void Playback::applyVolume() {
  if (graph_ != nullptr) graph_->setVolume(muted_ ? silence : attenuation(volume_));
}

void Playback::continueInSilence() {
  const double position = graph_->position();
  if (output_ == SoundOutput::none || !opens(SoundOutput::none)) {
    fail(cannotBePlayed);
  } else if (position > 0) {
    graph_->seek(position);
  }
}

void Playback::onGraphEvents(std::uint64_t song) {
  if (graph_ == nullptr || song != song_) return;
  while (graph_ != nullptr) {
    const auto event = graph_->nextEvent();
    if (!event) return;
    switch (event->code) {
      case EC_COMPLETE:
        onSongEnded();
        break;
      case EC_SNDDEV_OUT_ERROR:
        continueInSilence();
        break;
      case EC_ERRORABORT:
      case EC_STREAM_ERROR_STOPPED:
        if (isSoundDeviceError(event->firstValue) || !soundDeviceExists()) {
          continueInSilence();
        } else {
          fail(cannotBePlayed);
        }
        break;
      default:
        break;
    }
  }
}

// Some decoders accept bytes that are no sound, and end at once.
bool Playback::hasHardlyPlayed() {
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - playingSince_;
  const double length = graph_->duration();
  return !seeked_ && !heard_ && (length <= 0 || time.count() < length / 2);
}

void Playback::onSongEnded() {
  if (hasHardlyPlayed()) {
    fail(cannotBePlayed);
    return;
  }
  reportDuration();
  report({.kind = Event::Kind::ended});
  stop();
}

void Playback::reportDuration() {
  const double duration = graph_->duration();
  if (durationReported_ || duration <= 0) return;
  durationReported_ = true;
  report({.kind = Event::Kind::duration, .seconds = duration});
}

void Playback::onTimer() {
  onGraphEvents(song_);
  if (graph_ == nullptr) return;
  const double position = graph_->position();
  heard_ = heard_ || (position > margin && position < graph_->duration() - margin);
  if (heard_ || (paused_ && graph_->isCued())) reportDuration();
  // First that there is a song, then its progress.
  if (!durationReported_ && !seeked_ && graph_->duration() > 0) return;
  if (position == reported_) return;
  reported_ = position;
  report({.kind = Event::Kind::position, .seconds = position});
}

}  // namespace plimo
