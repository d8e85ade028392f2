// The whole program behind its shell: the windows, what runs their handlers, and how it begins and ends.
#pragma once

#include <functional>

#include "app/form1.h"
#include "controls/dispatcher.h"
#include "platform/platform.h"

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

  // Called once when the program is over, with its exit status: 0, or 1 when an error ended the start-up.
  std::function<void(int status)> ended;

  // Loads the splash window, and the main window where nothing is to be waited for.
  void start();
  bool running() const { return running_; }
  int status() const { return status_; }

 private:
  void loadMainWindow();
  void failed(const RuntimeError& error);
  void finish(int status);

  Platform platform_;
  Dispatcher dispatcher_;
  bool running_ = false;
  bool startingUp_ = false;
  int status_ = 0;
  Form1 form1_;
  FrmSplash splash_;
};

}  // namespace plimo
