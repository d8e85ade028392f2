#include "platform/mpv/sound_library.h"

#include <dlfcn.h>

#include <utility>

#include "platform/mpv/mpv_start.h"

// Suppresses a known leak in builds with LeakSanitizer: SDL, the last audio output that libmpv tries, leaks at each
// initialisation.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libSDL2"; }

namespace plimo {

void* soundLibraryFunction(const char* name) {
  static void* const library = [] {
    void* newest = ::dlopen("libmpv.so.2", RTLD_NOW);
    return newest != nullptr ? newest : ::dlopen("libmpv.so.1", RTLD_NOW);
  }();
  return library == nullptr ? nullptr : ::dlsym(library, name);
}

StartEngine startMpvWith(std::function<void*(const char* name)> resolve) {
  return [resolve = std::move(resolve)](const EngineHost& host, std::string& problem) {
    return startMpv(resolve, host, problem);
  };
}

}  // namespace plimo
