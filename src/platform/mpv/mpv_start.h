// Starts libmpv's engine with the functions of a library that the caller has loaded.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/player/song_engine.h"

namespace plimo {

// `resolve` returns a function of libmpv by its name; null if there is none. On failure the result is null, and
// `problem` the sentence for the user.
std::unique_ptr<SongEngine> startMpv(const std::function<void*(const char* name)>& resolve, const EngineHost& host,
                                     std::string& problem);

}  // namespace plimo
