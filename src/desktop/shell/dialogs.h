// The message boxes, input boxes and file dialogs of the desktop.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/dialogs.h"

namespace plimo {

class DesktopDialogs : public Dialogs {
 public:
  // Called before each box is shown, to paint pending changes of the windows. Set once, before the first box.
  std::function<void()> beforeBox;
  // Returns the parent window of the boxes; null if there is none yet.
  std::function<QWidget*()> owner;
  // Whether the program is to end: then questions are answered at once, without a box, as if it were closed.
  std::function<bool()> ending;

  // Closes the box that is open, if there is one, and shows no more of them, not even messages.
  void silence();

  // Asked at start if a program that runs in the folder already does not answer. True: start nevertheless.
  static bool askToStartBesideAnother();

  void message(const std::string& text) override;
  bool repeatedMessage(const std::string& text) override;
  bool ask(const Question& question) override;
  FolderAnswer askAboutFolder(const std::string& folder) override;
  bool askToStartAnew(const std::string& text) override;
  std::string input(const std::string& title, const std::string& prompt, const std::string& proposed) override;
  std::optional<std::string> openFile(const FileDialog& dialog) override;
  std::optional<std::string> saveFile(const FileDialog& dialog) override;
  void report(const RuntimeError& error) override;

 private:
  QWidget* prepare();
  bool asks() const;

  bool silent_ = false;
};

}  // namespace plimo
