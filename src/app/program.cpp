#include "app/program.h"

namespace plimo {

Program::Program(Platform platform)
    : platform_(platform), form1_(dispatcher_, platform), splash_(dispatcher_, platform, [this] { loadMainWindow(); }) {
  dispatcher_.failed = [this](const RuntimeError& error) { failed(error); };
  form1_.unloaded = [this] { finish(status_); };
  splash_.terminate = [this] { finish(status_); };  // closed before the main window was loaded
}

void Program::start() {
  running_ = true;
  startingUp_ = true;
  splash_.runLoad();
  startingUp_ = false;
}

void Program::loadMainWindow() {
  startingUp_ = true;
  form1_.runLoad();
  startingUp_ = false;
}

void Program::failed(const RuntimeError& error) {
  platform_.dialogs.report(error);
  form1_.forgetOtherDrives();
  if (startingUp_) finish(1);
}

void Program::finish(int status) {
  if (!running_) return;
  running_ = false;
  status_ = status;
  splash_.unload();
  form1_.unload();
  if (ended) ended(status);
}

}  // namespace plimo
