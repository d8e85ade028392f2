// What the program needs of the machine, in one struct.
#pragma once

#include "platform/dialogs.h"
#include "platform/file_system_object.h"
#include "platform/launcher.h"
#include "platform/media_player.h"
#include "platform/progress.h"

namespace plimo {

struct Platform {
  FileSystemObject& files;
  MediaPlayer& player;
  Dialogs& dialogs;
  Launcher& launcher;
  Progress& progress;
};

}  // namespace plimo
