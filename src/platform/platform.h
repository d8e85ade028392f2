// The machine, as one parcel.
#pragma once

#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/file_system_object.h"
#include "platform/launcher.h"
#include "platform/media_player.h"

namespace plimo {

struct Platform {
  FileSystemObject& files;
  MediaPlayer& player;
  Dialogs& dialogs;
  Launcher& launcher;
  EventPump& pump;
};

}  // namespace plimo
