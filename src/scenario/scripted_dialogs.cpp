#include "scenario/scripted_dialogs.h"

#include <utility>

#include "scenario/literals.h"

namespace plimo::scenario {

bool ScriptedDialogs::ask(const Question& question) {
  boxes.push_back({question.text, true, question.details});
  return take(Answer::Kind::question, "the question " + quoted(question.text)).has_value();
}

FolderAnswer ScriptedDialogs::askAboutFolder(const std::string&) {
  if (folderAnswers.empty()) return FolderAnswer::stop;
  const FolderAnswer answer = folderAnswers.front();
  folderAnswers.pop_front();
  return answer;
}

bool ScriptedDialogs::askToStartAnew(const std::string& text) {
  boxes.push_back({text, true, {}, true});
  if (startAnewAnswers.empty()) return false;
  const bool answer = startAnewAnswers.front();
  startAnewAnswers.pop_front();
  return answer;
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
