// An engine without sound: it records what it is asked to do, and reports what a test says.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/player/song_engine.h"

namespace plimo {

// Shared by a test and the engine that the player owns.
struct Script {
  using Event = SongEngine::Event;

  // Queues an event of the song last loaded, or of another.
  void report(Event event) { reportOf(song, std::move(event)); }
  void reportOf(std::uint64_t number, Event event) {
    event.song = number;
    events.push_back(std::move(event));
  }
  void duration(double seconds) { report({.kind = Event::Kind::duration, .seconds = seconds}); }
  void position(double seconds) { report({.kind = Event::Kind::position, .seconds = seconds}); }
  void paused(bool on) { report({.kind = Event::Kind::paused, .paused = on}); }
  void ended() { report({.kind = Event::Kind::ended}); }
  void failed(const std::string& reason) { report({.kind = Event::Kind::failed, .reason = reason}); }

  std::vector<std::string> calls;  // "load a.mp3", "load a.mp3 paused", "seek 12", "pause", "volume 50" and so on
  std::deque<Event> events;
  std::uint64_t song = 0;
  EngineHost host;
  std::string problem;  // why the engine cannot be started; empty if it can
};

// Starts engines that follow the script.
StartEngine startScripted(std::shared_ptr<Script> script);

}  // namespace plimo
