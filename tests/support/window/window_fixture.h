// The program in its real window, in this process, driven by a script.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/window/event_loop_latency.h"
#include "support/window/ui_driver.h"
#include "window/form1.h"

namespace plimo {

struct CommandResult {
  std::string command;
  EventLoopLatency::Time latency;  // the longest iteration of the event loop during the command
  bool done = false;               // the command had its expected effect
  EventLoopLatency::Phases phases{};
};

class WindowFixture {
 public:
  // The main window's model. The window must be visible, with its lists.
  Form1& form();

  // Performs a command, runs the event loop until `done` is true and the changes are painted, and appends the result.
  void run(const std::string& command, const std::function<void()>& act, const std::function<bool()>& done);

  UiDriver driver;
  EventLoopLatency latency;
  std::vector<CommandResult> results;
  // Called once, when the form is first asked for.
  std::function<void(Form1& form)> onForm;

 private:
  Form1* form_ = nullptr;
};

// Starts the program in the current folder, runs the script from the first event on, and quits the program. Exceptions
// of the script are rethrown. Needs a QApplication. Files that are ResponsiveFiles are connected to the desktop as in
// the program.
std::vector<CommandResult> runInWindow(FileSystemObject& files, const std::function<void(WindowFixture&)>& script);

}  // namespace plimo
