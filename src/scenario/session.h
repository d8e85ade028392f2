// Executes one scenario: holds its world, the program, and what has been recorded of it.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/memory/fake_file_system.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "scenario/failure_reporter.h"
#include "scenario/parser.h"
#include "scenario/scripted_dialogs.h"
#include "scenario/scripted_progress.h"
#include "scenario/scripted_window.h"

namespace plimo::scenario {

// One run of the program, with its own player.
class Run {
 public:
  // `designs`: by name, the geometry of controls (and Form1) that replaces the designed one.
  Run(FakeFileSystem& files, ScriptedDialogs& dialogs, FakeLauncher& launcher, ScriptedProgress& progress,
      const Size& screen, const std::map<std::string, Geometry>& designs);

  FakePlayer player;
  ScriptedWindow mainWindow;
  ScriptedWindow splashWindow;
  Program program;

  // The captions of a control or window. Null if there is none of this name.
  CaptionHistory* captions(std::string_view name);

 private:
  std::map<std::string, std::unique_ptr<CaptionObserver>, std::less<>> captions_;
};

class Session {
 public:
  // Failed expectations are reported to `out`.
  explicit Session(std::ostream& out) : reporter(out) {}

  // Executes every line, then reports what was left unexpected.
  void execute(const Scenario& scenario);

  FailureReporter reporter;

  // --- The world ---
  FakeFileSystem files;
  FakeLauncher launcher{files};
  ScriptedDialogs dialogs{reporter};
  ScriptedProgress progress;
  Size screen{15360, 11520};
  double duration = 0;  // reported by the player, in seconds
  double position = 0;
  bool drivesNamed = false;  // a drive command has replaced drive C
  std::map<std::string, Geometry> designs;

  // --- The program ---
  std::unique_ptr<Run> run;  // null before the first start
  void start();
  bool running() const { return run && run->program.running(); }

  // The control of this name. Before the first start: a failed expectation, and null.
  Control* control(const std::string& name);
  // The same, if the user can use it now; otherwise a failed expectation, and null.
  Control* usable(const std::string& name);
  // False also if there is no window of this name.
  bool windowVisible(std::string_view name) const;
  // True for a visible control in a visible window.
  bool visible(const Control& control) const;

  // --- Recorded and not expected yet, oldest first ---
  std::deque<FakeLauncher::Started>& started();
  std::deque<std::string>& opened();
  std::size_t promptsExpected = 0;    // of dialogs.inputs
  std::size_t proposalsExpected = 0;  // the same
  std::string titleExpected;          // the title of the box expected last
  bool boxExpected = false;           // any box has been expected

 private:
  void reportLeftovers();

  std::deque<FakeLauncher::Started> started_;
  std::size_t startedSeen_ = 0;
  std::deque<std::string> opened_;
  std::size_t openedSeen_ = 0;  // of the current run's player
};

}  // namespace plimo::scenario
