// The desktop program: windows, dialogs, player and progress panel around the toolkit-free models.
#pragma once

#include <QObject>
#include <memory>

#include "app/program.h"
#include "desktop/remote/remote_control.h"
#include "desktop/shell/dialogs.h"
#include "desktop/shell/input_blocker.h"
#include "desktop/shell/progress.h"
#include "desktop/shell/remembered_volume.h"
#include "desktop/window/form_window.h"
#include "platform/player/playlist_player.h"

namespace plimo {

class Desktop : public FormHost {
 public:
  // Needs the application object. The arguments must outlive it.
  // The file of `atStart`, if there is one, is opened at start.
  Desktop(FileSystemObject& files, Launcher& launcher, OpenRequest atStart = {});
  ~Desktop() override;

  // Starts the program and runs the event loop until it has ended; returns its exit status.
  int run();
  // Ends the program on request of the session or the system, as closing its window does, and without an answer from
  // the user: open boxes are closed.
  void requestEnd();
  // True if the start-up has failed and the user wants to start again: create a new Desktop and run it.
  bool startsAnew() const { return program_.startsAnew(); }

  // Shows the window, and the box that is open, in front of other programs' windows. Some desktops want a token by
  // which the program that the user has started permits it (the XDG activation protocol of Wayland); empty: none.
  void raise(const std::string& token = {});
  // Opens a file: at once, or as soon as the running command has ended and the open panel is closed. A later request
  // replaces one that waits. Returns at once.
  void open(OpenRequest request);

  // To be called while a disk does not answer, and afterwards: see DesktopProgress. A disk that is given up because the
  // program is to end is not reported.
  bool waitForDisk(std::chrono::milliseconds since);
  void diskAnswered() { progress_.diskAnswered(); }
  // Runs long work of a command: see DesktopProgress.
  void runInBackground(const std::function<void()>& work) { progress_.runInBackground(work); }

  void show(Form& form) override;
  void unload(Form& form) override;
  void captionChanged(Form& form) override;
  void statusChanged(Form& form) override;
  void stateChanged(Form& form) override;
  void resizeTo(Form& form, double width, double height) override;
  void focusChanged(Form& form) override;
  void popUp(Form& form, Menu& menu) override;
  void pause(Form& form, std::chrono::milliseconds time) override;

 private:
  FormWindow* windowOf(const Form& form) const;
  QWidget* frontWindow() const;
  void bindWindows();
  void startRemote();
  // Opens what waits, if that is possible now.
  void openPending();
  // Ends the program as closing its window does. A command that is running is cancelled, and its handler ends first.
  void close(Form& form);

  InputBlocker blocker_;
  PlaylistPlayer player_;
  RememberedVolume volume_;
  DesktopDialogs dialogs_;
  DesktopProgress progress_;
  Program program_;
  std::unique_ptr<FormWindow> main_;
  std::unique_ptr<FormWindow> splash_;
  OpenRequest pending_;  // to be opened when that is possible
  QObject context_;      // of the connections to the application
  std::unique_ptr<RemoteControl> remote_;
};

}  // namespace plimo
