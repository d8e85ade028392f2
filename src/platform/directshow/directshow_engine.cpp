#include "platform/directshow/directshow_engine.h"

namespace plimo {

void DirectShowEngine::load(std::uint64_t song, const std::string& path, bool paused) {
  *wanted_ = song;
  thread_.post([wanted = wanted_, song, path, paused](Playback& playback) {
    if (*wanted == song) playback.load(song, path, paused);
  });
}

void DirectShowEngine::stop() {
  *wanted_ = 0;
  thread_.post([](Playback& playback) { playback.stop(); });
}

void DirectShowEngine::setPaused(bool paused) {
  thread_.post([paused](Playback& playback) { playback.setPaused(paused); });
}

void DirectShowEngine::seek(double seconds) {
  thread_.post([seconds](Playback& playback) { playback.seek(seconds); });
}

void DirectShowEngine::setVolume(int percent) {
  thread_.post([percent](Playback& playback) { playback.setVolume(percent); });
}

void DirectShowEngine::setMuted(bool muted) {
  thread_.post([muted](Playback& playback) { playback.setMuted(muted); });
}

bool DirectShowEngine::nextEvent(Event& result) { return thread_.takeEvent(result); }

}  // namespace plimo
