#include "platform/mpv/mpv_start.h"

#include "platform/mpv/mpv_engine.h"

namespace plimo {

std::unique_ptr<SongEngine> startMpv(const std::function<void*(const char* name)>& resolve, const EngineHost& host,
                                     std::string& problem) {
  auto engine = std::make_unique<MpvEngine>(host.wake);
  if (engine->start(resolve)) return engine;
  problem = "Nothing can be played here: the sound library libmpv is missing.";
  return nullptr;
}

}  // namespace plimo
