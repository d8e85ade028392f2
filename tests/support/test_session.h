// One run of the whole program, without a shell.
#pragma once

#include "app/program.h"
#include "platform/file_system_object.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "support/quiet_progress.h"
#include "support/test_dialogs.h"

namespace plimo {

class TestSession {
 public:
  // `files` must outlive the session; several sessions may use the same.
  explicit TestSession(FileSystemObject& files)
      : launcher(files), program(Platform{files, player, dialogs, launcher, progress}) {}

  Form1& form() { return program.form1(); }

  FakePlayer player;
  TestDialogs dialogs;
  FakeLauncher launcher;
  QuietProgress progress;
  Program program;
};

}  // namespace plimo
