#include "platform/player/scripted_engine.h"

#include <cmath>
#include <filesystem>
#include <utility>

namespace plimo {

namespace {

class ScriptedEngine : public SongEngine {
 public:
  explicit ScriptedEngine(std::shared_ptr<Script> script) : script_(std::move(script)) {}

  void load(std::uint64_t song, const std::string& path, bool paused) override {
    script_->song = song;
    call("load " + std::filesystem::path(path).filename().string() + (paused ? " paused" : ""));
  }
  void stop() override { call("stop"); }
  void setPaused(bool paused) override { call(paused ? "pause" : "play"); }
  void seek(double seconds) override { call("seek " + std::to_string(std::lround(seconds))); }
  void setVolume(int percent) override { call("volume " + std::to_string(percent)); }
  void setMuted(bool muted) override { call(muted ? "mute" : "sound"); }
  bool nextEvent(Event& result) override {
    if (script_->events.empty()) return false;
    result = script_->events.front();
    script_->events.pop_front();
    return true;
  }

 private:
  void call(const std::string& what) { script_->calls.push_back(what); }

  std::shared_ptr<Script> script_;
};

}  // namespace

StartEngine startScripted(std::shared_ptr<Script> script) {
  return [script = std::move(script)](const EngineHost& host, std::string& problem) -> std::unique_ptr<SongEngine> {
    script->host = host;
    problem = script->problem;
    if (!problem.empty()) return nullptr;
    return std::make_unique<ScriptedEngine>(script);
  };
}

}  // namespace plimo
