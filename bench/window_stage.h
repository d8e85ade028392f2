// The program in its real window, in this process, and a script that uses it while the longest turns are watched.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "window/form1.h"
#include "hands.h"
#include "turn_watch.h"

namespace plimo::bench {

// What came of one command.
struct Gap {
  std::string command;
  TurnWatch::Turn longest;
  bool done = false;  // what it was given for has come about
};

class Stage {
 public:
  // The main window's model, once the window has been seen with its lists.
  Form1& form();

  // Gives a command, waits until `done` holds and what it changed is painted, and notes the longest turn.
  void give(const std::string& command, const std::function<void()>& act, const std::function<bool()>& done);

  Hands hands;
  TurnWatch watch;
  std::vector<Gap> gaps;

 private:
  Form1* form_ = nullptr;
};

// Starts the program in the current folder, plays the script from the first moment on, and ends the program. Throws
// std::runtime_error for what the script does not find. The application object is there.
std::vector<Gap> playWindow(FileSystemObject& files, const std::function<void(Stage&)>& script);

}  // namespace plimo::bench
