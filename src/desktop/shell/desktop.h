// The desktop program: windows, dialogs, player and progress panel around the toolkit-free models.
#pragma once

#include <memory>

#include "app/program.h"
#include "desktop/shell/dialogs.h"
#include "desktop/shell/end_signals.h"
#include "desktop/shell/input_blocker.h"
#include "desktop/shell/progress.h"
#include "desktop/window/form_window.h"
#include "platform/mpv/mpv_player.h"

namespace plimo {

class Desktop : public FormHost {
 public:
  // Needs the application object. The arguments must outlive it.
  Desktop(FileSystemObject& files, Launcher& launcher);
  ~Desktop() override;

  // Starts the program and runs the event loop until it has ended; returns its exit status.
  int run();
  // True if the start-up has failed and the user wants to start again: create a new Desktop and run it.
  bool startsAnew() const { return program_.startsAnew(); }

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
  // Ends the program as closing its window does. A command that is running is cancelled, and its handler ends first.
  void close(Form& form);
  // The same on request of the session or by a signal, which do not wait for an answer: boxes are closed.
  void end();

  InputBlocker blocker_;
  MpvPlayer player_;
  DesktopDialogs dialogs_;
  DesktopProgress progress_;
  Program program_;
  std::unique_ptr<FormWindow> main_;
  std::unique_ptr<FormWindow> splash_;
  EndSignals endSignals_;
};

}  // namespace plimo
