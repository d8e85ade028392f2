// Modal boxes: messages, questions, input, file dialogs.
#pragma once

#include <optional>
#include <string>

#include "base/errors.h"

namespace plimo {

struct FileDialog {
  std::string title;   // empty: the platform's own
  std::string name;    // the file name it opens with, for example "*.m3u"
  std::string folder;  // the initial folder
};

class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // A box with an OK button, titled with the program's name.
  virtual void message(const std::string& text) = 0;
  // A box with Yes and No, titled with the program's name; true for Yes, false for anything else.
  virtual bool question(const std::string& text) = 0;
  // A box that takes one line of text; empty when cancelled.
  virtual std::string input(const std::string& title, const std::string& prompt, const std::string& proposed) = 0;
  // The chosen path; nullopt if cancelled. Saving never asks whether to overwrite the file of the name it returns; it
  // does ask before it returns a new name for which a file with ".m3u" appended exists.
  virtual std::optional<std::string> openFile(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> saveFile(const FileDialog& dialog) = 0;
  // The run-time error report.
  virtual void report(const RuntimeError& error) = 0;
};

}  // namespace plimo
