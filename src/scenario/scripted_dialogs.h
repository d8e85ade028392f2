// Dialogs without a display: they are recorded for the expectations and answered from a queue.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "scenario/failure_reporter.h"

namespace plimo::scenario {

// A queued answer.
struct Answer {
  enum class Kind { question, input, open, save };
  Kind kind;
  std::optional<std::string> text;  // empty for No and Cancel
  std::string spelling;             // as written in the scenario
};

class ScriptedDialogs : public Dialogs {
 public:
  struct Box {
    std::string text;
    bool question = false;
  };
  struct InputBox {
    std::string title, prompt, proposed;
  };

  explicit ScriptedDialogs(FailureReporter& reporter) : reporter_(reporter) {}

  // Answers of all kinds are taken in the order queued.
  void queue(Answer answer) { answers_.push_back(std::move(answer)); }
  // Not taken yet.
  const std::deque<Answer>& answers() const { return answers_; }

  // Shown and not expected yet, oldest first.
  std::deque<Box> boxes;
  std::deque<FileDialog> fileDialogs;
  std::deque<RuntimeError> errors;
  // All input boxes: prompts and proposals are expected separately.
  std::vector<InputBox> inputs;

  void message(const std::string& text) override { boxes.push_back({text, false}); }
  bool question(const std::string& text) override;
  std::string input(const std::string& title, const std::string& prompt, const std::string& proposed) override;
  std::optional<std::string> openFile(const FileDialog& dialog) override;
  std::optional<std::string> saveFile(const FileDialog& dialog) override;
  void report(const RuntimeError& error) override { errors.push_back(error); }

 private:
  // Takes the next answer. If there is none, or it is of another kind: a failed expectation, and nothing is taken.
  std::optional<std::string> take(Answer::Kind kind, const std::string& asked);

  FailureReporter& reporter_;
  std::deque<Answer> answers_;
};

}  // namespace plimo::scenario
