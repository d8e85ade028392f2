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

  void message(const std::string& text) override;
  bool question(const std::string& text) override;
  std::string input(const std::string& title, const std::string& prompt, const std::string& proposed) override;
  std::optional<std::string> openFile(const FileDialog& dialog) override;
  std::optional<std::string> saveFile(const FileDialog& dialog) override;
  void report(const RuntimeError& error) override;

 private:
  QWidget* prepare();
};

}  // namespace plimo
