// Uses the real window at random: keys, clicks, drags, wheel, menus, sizes, and boxes answered at random.
#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/shell/desktop.h"
#include "desktop/window_monkey_folder.h"
#include "monkey/list_mirror.h"
#include "platform/memory/fake_launcher.h"
#include "window/form1.h"

class QAbstractButton;
class QDialog;
class QMenu;

namespace plimo {

class ListView;
class ResponsiveFiles;

class WindowMonkey {
 public:
  // `choose(limit)` returns a number below the limit.
  WindowMonkey(WindowMonkeyFolder& folder, std::function<std::size_t(std::size_t limit)> choose);
  ~WindowMonkey();

  // Performs this number of actions, and restarts the program each time it has ended. Every hundred actions some clicks
  // lead back to the three lists. Returns what is broken; empty if nothing is. `performed` is set to the number of
  // actions.
  std::string run(std::size_t actions, std::size_t& performed);
  // The last actions, for a report.
  std::string history() const;

 private:
  // One run of the program, from its start until its window is closed or the actions are done.
  void session(std::size_t actions, std::size_t& performed);
  void act();
  void useMenu(QMenu& menu);
  void pressKey(QWidget& window);
  void usePointer(QWidget& window);
  void dragOn(QWidget& window, const QPoint& from);
  bool runsOn();  // the main window is visible
  void letItSettle();
  // Clicks through to the three lists.
  void escape();
  void clickIfPossible(const char* name);
  void check();
  void checkLists();
  void checkList(const ListView& view);

  void answerBox();
  void answerMessage(QDialog& box, const std::vector<QAbstractButton*>& buttons);
  void record(const QString& action);
  void broken(const std::string& what);

  WindowMonkeyFolder& folder_;
  std::function<std::size_t(std::size_t limit)> choose_;
  std::shared_ptr<FencedFiles> disk_;
  std::unique_ptr<ResponsiveFiles> files_;
  FakeLauncher launcher_;
  Form1* form_ = nullptr;  // null until the main window shows
  std::vector<std::unique_ptr<ListMirror>> mirrors_;
  NamedInWindow named_;
  QTimer boxTimer_;
  bool answering_ = false;  // the answer to a box is queued
  bool calm_ = false;       // questions are answered by No
  std::string broken_;
  std::vector<QString> actions_;
};

}  // namespace plimo
