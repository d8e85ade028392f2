// The real libmpv, function by function.
#pragma once

#include <functional>

#include "platform/player/song_engine.h"

namespace plimo {

// A function of libmpv; null if the library or the function is missing.
void* soundLibraryFunction(const char* name);

// Starts libmpv's engine with the functions that `resolve` returns.
StartEngine startMpvWith(std::function<void*(const char* name)> resolve);

}  // namespace plimo
