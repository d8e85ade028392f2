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

struct Question {
  enum class Default { yes, no };
  std::string text;
  std::string details;  // shown smaller below the text; may be empty
  Default defaultButton = Default::yes;
};

enum class FolderAnswer { skip, skipAll, stop };

class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  // A box with an OK button, titled with the program's name.
  virtual void message(const std::string& text) = 0;
  // The same with a second button, "Say no more". True if it was pressed: no further message of this kind is wanted.
  virtual bool repeatedMessage(const std::string& text) = 0;
  // A box with Yes and No, titled with the program's name; true for Yes, false for anything else.
  virtual bool ask(const Question& question) = 0;
  bool question(const std::string& text) { return ask({text, {}, Question::Default::yes}); }
  // Asked by a scan about a folder that it cannot read.
  virtual FolderAnswer askAboutFolder(const std::string& folder) = 0;
  // Asked after an error has ended the start-up; Yes and No, which is the default. True for Yes.
  virtual bool askToStartAnew(const std::string& text) = 0;
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
