#include "scenario/scripted_dialogs.h"

#include <utility>

#include "scenario/literals.h"

namespace plimo::scenario {

bool ScriptedDialogs::question(const std::string& text) {
  boxes.push_back({text, true});
  return take(Answer::Kind::question, "the question " + quoted(text)).has_value();
}

std::string ScriptedDialogs::input(const std::string& title, const std::string& prompt, const std::string& proposed) {
  inputs.push_back({title, prompt, proposed});
  return take(Answer::Kind::input, "the input box " + quoted(prompt)).value_or(std::string());
}

std::optional<std::string> ScriptedDialogs::openFile(const FileDialog& dialog) {
  fileDialogs.push_back(dialog);
  return take(Answer::Kind::open, "the dialog that opens a file");
}

std::optional<std::string> ScriptedDialogs::saveFile(const FileDialog& dialog) {
  fileDialogs.push_back(dialog);
  return take(Answer::Kind::save, "the dialog that saves a file");
}

std::optional<std::string> ScriptedDialogs::take(Answer::Kind kind, const std::string& asked) {
  if (answers_.empty() || answers_.front().kind != kind) {
    reporter_.fail("an answer to " + asked, answers_.empty() ? "none" : answers_.front().spelling);
    return std::nullopt;
  }
  const Answer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer.text;
}

}  // namespace plimo::scenario
