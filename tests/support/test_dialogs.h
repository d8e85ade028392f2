// Dialogs with prepared answers.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace plimo {

// Records everything that is shown.
class TestDialogs : public Dialogs {
 public:
  void message(const std::string& text) override {
    messages.push_back(text);
    if (whileOpen) whileOpen();
  }
  bool repeatedMessage(const std::string& text) override {
    message(text);
    return silence;
  }
  bool ask(const Question& question) override {
    questions.push_back(question.text);
    details.push_back(question.details);
    if (answers.empty()) return questions.size() <= yesAnswers;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::string input(const std::string&, const std::string&, const std::string&) override { return inputText; }
  FolderAnswer askAboutFolder(const std::string&) override { return folderAnswer; }
  bool askToStartAnew(const std::string& text) override {
    questions.push_back(text);
    return startAnew;
  }
  std::optional<std::string> openFile(const FileDialog&) override { return chooseFile(); }
  std::optional<std::string> saveFile(const FileDialog&) override { return chooseFile(); }
  void report(const RuntimeError& error) override { reports.push_back(error.report()); }

  bool hasMessageOrReport() const { return !messages.empty() || !reports.empty(); }

  std::deque<bool> answers;    // to the next questions, true is Yes
  std::size_t yesAnswers = 0;  // without prepared answers, the first `yesAnswers` questions are answered Yes
  bool silence = false;        // answers repeated messages with "Say no more"
  bool startAnew = false;
  FolderAnswer folderAnswer = FolderAnswer::stop;
  std::string inputText;            // entered in every input box
  std::optional<std::string> file;  // chosen in every file dialog; nullopt cancels
  std::function<void()> whileOpen;  // called while a message or a file dialog is shown
  std::vector<std::string> messages;
  std::vector<std::string> questions;
  std::vector<std::string> details;  // of the questions with Yes and No
  std::vector<std::string> reports;

 private:
  std::optional<std::string> chooseFile() {
    if (whileOpen) whileOpen();
    return file;
  }
};

}  // namespace plimo
