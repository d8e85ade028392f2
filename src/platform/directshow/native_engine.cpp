#include "platform/player/native_engine.h"

#include "platform/directshow/directshow_engine.h"

namespace plimo {

std::unique_ptr<SongEngine> startNativeEngine(const EngineHost& host, std::string& problem) {
  auto engine = std::make_unique<DirectShowEngine>(host.wake);
  bool started = false;
  host.runInBackground([&engine, &started] { started = engine->start(); });
  if (started) return engine;
  problem = "Nothing can be played here: DirectShow, a part of Windows, is missing.";
  return nullptr;
}

}  // namespace plimo
