#include "platform/mpv/mpv_library.h"

namespace plimo {

namespace {

template <class Function>
bool resolveInto(Function& function, const ResolveSymbol& resolve, const char* name) {
  function = reinterpret_cast<Function>(resolve(name));
  return function != nullptr;
}

}  // namespace

bool MpvLibrary::load(const ResolveSymbol& resolve) {
  return resolveInto(create, resolve, "mpv_create") && resolveInto(initialize, resolve, "mpv_initialize") &&
         resolveInto(terminateDestroy, resolve, "mpv_terminate_destroy") &&
         resolveInto(setOptionString, resolve, "mpv_set_option_string") &&
         resolveInto(commandAsync, resolve, "mpv_command_async") &&
         resolveInto(setPropertyAsync, resolve, "mpv_set_property_async") &&
         resolveInto(getPropertyAsync, resolve, "mpv_get_property_async") &&
         resolveInto(observeProperty, resolve, "mpv_observe_property") &&
         resolveInto(waitEvent, resolve, "mpv_wait_event") &&
         resolveInto(setWakeupCallback, resolve, "mpv_set_wakeup_callback");
}

}  // namespace plimo
