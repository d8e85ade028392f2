// Does anything that a user can do, in any order, and checks what must hold after each action.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "monkey/list_mirror.h"
#include "monkey/monkey_world.h"
#include "platform/memory/fake_launcher.h"
#include "platform/memory/fake_player.h"
#include "scenario/scripted_window.h"
#include "support/quiet_progress.h"

namespace plimo {

// Answers at random, and records what the user has named by it.
class MonkeyDialogs : public Dialogs {
 public:
  explicit MonkeyDialogs(const Choose& choose) : choose_(choose) {}

  void message(const std::string& text) override { boxes.push_back(text); }
  bool repeatedMessage(const std::string&) override { return choose_(2) == 0; }
  bool ask(const Question& question) override;
  FolderAnswer askAboutFolder(const std::string&) override { return static_cast<FolderAnswer>(choose_(3)); }
  bool askToStartAnew(const std::string&) override { return choose_(2) == 0; }
  std::string input(const std::string&, const std::string&, const std::string&) override;
  std::optional<std::string> openFile(const FileDialog&) override;
  std::optional<std::string> saveFile(const FileDialog&) override;
  void report(const RuntimeError& error) override { boxes.push_back(error.report()); }

  NamedByUser named;
  std::vector<std::string> boxes;  // messages and reports of the last action

 private:
  const Choose& choose_;
};

class ProgramMonkey {
 public:
  ProgramMonkey(FakeFileSystem& files, Choose choose);
  ~ProgramMonkey();

  MonkeyWorld world;

  // Starts the program if it does not run, lets another program disturb it, or does something that the user can do.
  // Returns what is broken afterwards; empty if nothing is.
  std::string act();
  // Leads back to the three lists in a repaired world. Returns what is broken; empty if they show.
  std::string escape();
  // The last actions, for a report.
  std::string history() const;

 private:
  struct Run;

  bool running() const;
  Form1& form() const;
  void start();
  void use(Control& control);
  void use(ListBox& list);
  void useMenu(const Menu& menu);
  // A panel that is opened and closed again; the final playlist is the same afterwards.
  std::string openAndClose(Control& opens, Control& closes);
  std::string violation();
  void record(std::string action);

  FakeFileSystem& files_;
  Choose choose_;
  MonkeyDialogs dialogs_{choose_};
  FakeLauncher launcher_;
  QuietProgress progress_;
  std::unique_ptr<Run> run_;  // null before the first start
  std::vector<std::string> actions_;
};

}  // namespace plimo
