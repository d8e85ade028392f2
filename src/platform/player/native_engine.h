// The engine of the system that the program is built for, defined in the folder of that engine.
#pragma once

#include "platform/player/song_engine.h"

namespace plimo {

// A StartEngine.
std::unique_ptr<SongEngine> startNativeEngine(const EngineHost& host, std::string& problem);

}  // namespace plimo
