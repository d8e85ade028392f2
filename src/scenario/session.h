// One scenario at work: its world, the program in it, and what has been seen of it.
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
#include "scenario/script.h"
#include "scenario/scripted_dialogs.h"
#include "scenario/scripted_progress.h"
#include "scenario/scripted_window.h"
#include "scenario/verdicts.h"

namespace plimo::scenario {

// The program from one start to the next, with a player of its own.
class Run {
 public:
  // `designs`: by name, where controls (and Form1) stand instead of where they were designed.
  Run(FakeFileSystem& files, ScriptedDialogs& dialogs, FakeLauncher& launcher, ScriptedProgress& progress,
      const Size& screen, const std::map<std::string, Geometry>& designs);

  FakePlayer player;
  ScriptedWindow mainWindow;
  ScriptedWindow splashWindow;
  Program program;

  // What a control, a window's own name included, was captioned. Null for no such name.
  Captions* captions(std::string_view name);

 private:
  std::map<std::string, std::unique_ptr<CaptionObserver>, std::less<>> captions_;
};

class Session {
 public:
  // `file` and `out` as in Verdicts.
  Session(std::string file, std::ostream& out) : verdicts(std::move(file), out) {}

  // Runs every line, then looks for what was left over.
  void play(const Script& script);

  Verdicts verdicts;

  // --- The world ---
  FakeFileSystem files;
  FakeLauncher launcher{files};
  ScriptedDialogs dialogs{verdicts};
  ScriptedProgress progress;
  Size screen{15360, 11520};
  double duration = 0;  // what the player reports, in seconds
  double position = 0;
  bool drivesNamed = false;  // a drive line has replaced drive C
  std::map<std::string, Geometry> designs;

  // --- The program ---
  std::unique_ptr<Run> run;  // null before the first start
  void start();
  bool running() const { return run && run->program.running(); }

  // The control of that name; null, and a failed expectation, before the first start.
  Control* control(const std::string& name);
  // The same for one that the user can use now; null, and a failed expectation, where that is not so.
  Control* usable(const std::string& name);
  // True where the window of that name shows; false also where it is none.
  bool windowShows(std::string_view name) const;
  // True for a control that shows in a window that shows.
  bool shows(const Control& control) const;

  // --- What has been seen and not been expected yet, the oldest first ---
  std::deque<FakeLauncher::Started>& started();
  std::deque<std::string>& opened();
  std::size_t promptsExpected = 0;    // of dialogs.inputs
  std::size_t proposalsExpected = 0;  // the same
  std::string titleExpected;          // the title of the box expected last
  bool boxExpected = false;           // any has been

 private:
  void leftovers();

  std::deque<FakeLauncher::Started> started_;
  std::size_t startedSeen_ = 0;
  std::deque<std::string> opened_;
  std::size_t openedSeen_ = 0;  // of the present run's player
};

}  // namespace plimo::scenario
