// The whole program without its shell: the windows, the dispatcher of their handlers, start and end.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "app/frm_splash.h"
#include "app/open_request.h"
#include "controls/dispatcher.h"
#include "platform/platform.h"
#include "window/form1.h"

namespace plimo {

inline constexpr const char* programName = "Plimo!";

class Program {
 public:
  // The platform's parts must outlive the program.
  explicit Program(Platform platform);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() = default;

  Dispatcher& dispatcher() { return dispatcher_; }
  FrmSplash& splash() { return splash_; }
  Form1& form1() { return form1_; }

  // Called once when the program ends, with its exit status: 0, or 1 if an error ended the start-up.
  std::function<void(int status)> ended;

  // Loads the splash window, and the main window unless the splash animation comes first.
  void start();
  // Makes the start end with opening a file, unless it is the first run. To be called before the main window is loaded.
  void openAtStart(OpenRequest request) { atStart_ = std::move(request); }
  // True if a file can be opened now: the user could choose Open, and no command is running.
  bool canOpen() const;
  // Opens a playlist as Open does. A song that is to be played is played alone, and the lists stay as they are. The
  // other files are counted in the status. To be called only if a file can be opened.
  void open(const OpenRequest& request);
  bool running() const { return running_; }
  // True once the main window has been loaded; before that, only the splash window exists.
  bool loaded() const { return form1_.loaded(); }
  // True if the start-up has failed and the user wants to start anew: the shell creates a new program and starts it.
  bool startsAnew() const { return startsAnew_; }
  int status() const { return status_; }

 private:
  void loadMainWindow();
  void failed(const RuntimeError& error);
  void offerToStartAnew(const RuntimeError& error);
  void finish(int status);

  Platform platform_;
  Dispatcher dispatcher_;
  bool running_ = false;
  bool startingUp_ = false;
  bool startsAnew_ = false;
  int status_ = 0;
  OpenRequest atStart_;
  Form1 form1_;
  FrmSplash splash_;
};

}  // namespace plimo
