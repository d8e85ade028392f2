#include "platform/mpv/mpv_library.h"

namespace plimo {

namespace {

template <class Function>
bool find(Function& function, const ResolveSymbol& resolve, const char* name) {
  function = reinterpret_cast<Function>(resolve(name));
  return function != nullptr;
}

}  // namespace

bool MpvLibrary::load(const ResolveSymbol& resolve) {
  return find(create, resolve, "mpv_create") && find(initialize, resolve, "mpv_initialize") &&
         find(terminateDestroy, resolve, "mpv_terminate_destroy") &&
         find(setOptionString, resolve, "mpv_set_option_string") && find(commandAsync, resolve, "mpv_command_async") &&
         find(setPropertyAsync, resolve, "mpv_set_property_async") &&
         find(getPropertyAsync, resolve, "mpv_get_property_async") &&
         find(observeProperty, resolve, "mpv_observe_property") && find(waitEvent, resolve, "mpv_wait_event") &&
         find(setWakeupCallback, resolve, "mpv_set_wakeup_callback");
}

}  // namespace plimo
