// libmpv's functions, resolved at run time, so that the program also starts without the library.
#pragma once

#include <mpv/client.h>

#include <functional>

namespace plimo {

// Resolves a function of the library by its name; null if there is none.
using ResolveSymbol = std::function<void*(const char* name)>;

struct MpvLibrary {
  decltype(&mpv_create) create = nullptr;
  decltype(&mpv_initialize) initialize = nullptr;
  decltype(&mpv_terminate_destroy) terminateDestroy = nullptr;
  decltype(&mpv_set_option_string) setOptionString = nullptr;
  decltype(&mpv_command_async) commandAsync = nullptr;
  decltype(&mpv_set_property_async) setPropertyAsync = nullptr;
  decltype(&mpv_get_property_async) getPropertyAsync = nullptr;
  decltype(&mpv_observe_property) observeProperty = nullptr;
  decltype(&mpv_wait_event) waitEvent = nullptr;
  decltype(&mpv_set_wakeup_callback) setWakeupCallback = nullptr;

  // False if the library or one of the functions is missing.
  bool load(const ResolveSymbol& resolve);
};

}  // namespace plimo
