#include "app/program.h"

#include "base/text.h"
#include "catalogue/catalogue_file.h"
#include "playlists/m3u.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"

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
  // On the first run there is nothing to find the songs in.
  if (!running_ || !form1_.List2.visible()) return;
  open(atStart_);
}

bool Program::canOpen() const {
  return running_ && !startingUp_ && form1_.loaded() && form1_.Function.visible() && !dispatcher_.busy();
}

void Program::open(const OpenRequest& request) {
  if (request.file.empty()) return;
  dispatcher_.run([this, &request] {
    if (request.play && !isPlaylistFile(request.file)) {
      form1_.playFile(request.file);
    } else {
      form1_.openPlaylist(request.file);
      if (request.play && form1_.finalList().count() > 0) form1_.Picture7_Click();
    }
    if (request.others == 0) return;
    form1_.setStatus(counted(request.others, "more file") + " not opened: one playlist is opened at a time");
  });
}

void Program::failed(const RuntimeError& error) {
  platform_.dialogs.report(error);
  form1_.forgetOtherDrives();
  if (!startingUp_) return;
  offerToStartAnew(error);
  finish(startsAnew_ ? 0 : 1);
}

// Moves a state file aside, so that a damaged one locks nobody out: the one that the error names, else the settings.
void Program::offerToStartAnew(const RuntimeError& error) {
  const std::string folder = platform_.files.currentDirectory();
  std::string_view name = settingsName;
  for (const std::string_view stateFile : {catalogueName, winampPathName, defaultPlaylistName}) {
    const std::string path = platform_.files.join(folder, stateFile);
    if (platform_.files.fileExists(path) && platform_.files.sameFile(error.path(), path)) name = stateFile;
  }
  const std::string path = platform_.files.join(folder, name);
  if (!platform_.files.fileExists(path)) return;
  const std::string kept = std::string(name) + ".old";
  if (!platform_.dialogs.askToStartAnew("Start anew without this file? It is kept as " + kept +
                                        "; songs and playlists are not touched.")) {
    return;
  }
  try {
    const std::string target = platform_.files.join(folder, kept);
    startsAnew_ = platform_.files.moveFile(path, target, Force::own);
  } catch (const RuntimeError& failure) {
    platform_.dialogs.report(failure);
  }
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
