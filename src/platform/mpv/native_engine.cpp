#include "platform/player/native_engine.h"

#include <dlfcn.h>

#include "platform/mpv/mpv_start.h"

namespace plimo {

namespace {

// These versions are compatible for this program; the newest is tried first.
void* loadMpv() {
  for (const char* name : {"libmpv.so.2", "libmpv.so.1"}) {
    if (void* library = ::dlopen(name, RTLD_LAZY)) return library;
  }
  return nullptr;
}

}  // namespace

// Loading takes a tenth of a second, and much longer from a slow disk. The library stays loaded.
std::unique_ptr<SongEngine> startNativeEngine(const EngineHost& host, std::string& problem) {
  static void* library = nullptr;
  if (library == nullptr) host.runInBackground([] { library = loadMpv(); });
  const auto resolve = [](const char* name) { return library == nullptr ? nullptr : ::dlsym(library, name); };
  return startMpv(resolve, host, problem);
}

}  // namespace plimo
