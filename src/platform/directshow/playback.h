// Plays one song after the other, on a thread with a message loop. Each function may take as long as the disk does.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/directshow/song_graph.h"
#include "platform/player/song_engine.h"

namespace plimo {

// An attenuation in hundredths of a decibel, -10000 to 0, for a volume of 0 to 100 percent. The ear's scale is
// logarithmic, so half the volume is 18 dB less.
long attenuation(int percent);

class Playback {
 public:
  // `graphMessage` will be sent to the window, with a song's number as its lParam, when onGraphEvents() is to be
  // called.
  Playback(HWND window, UINT graphMessage, std::function<void(SongEngine::Event)> report);

  void load(std::uint64_t song, const std::string& path, bool paused);
  void stop();
  void setPaused(bool paused);
  void seek(double seconds);
  void setVolume(int percent);
  void setMuted(bool muted);

  void onGraphEvents(std::uint64_t song);
  // To be called several times a second: reports the duration and the position.
  void onTimer();

 private:
  using Event = SongEngine::Event;

  bool opens(SoundOutput output);
  bool starts();
  // Plays on, without the sound device.
  void continueInSilence();
  void onSongEnded();
  void fail(const std::string& reason);
  bool hasHardlyPlayed();
  void reportDuration();
  void report(Event event);
  void applyVolume();

  HWND window_;
  UINT graphMessage_;
  std::function<void(Event)> report_;
  std::unique_ptr<SongGraph> graph_;
  SoundOutput output_ = SoundOutput::device;
  std::uint64_t song_ = 0;
  std::wstring path_;
  bool paused_ = false;
  bool durationReported_ = false;
  bool seeked_ = false;
  bool played_ = false;                                 // not only paused
  double reported_ = 0;                                 // position
  bool heard_ = false;                                  // a position within the song has been seen
  std::chrono::steady_clock::time_point playingSince_;  // when the song was first started
  int volume_ = 100;
  bool muted_ = false;
};

}  // namespace plimo
