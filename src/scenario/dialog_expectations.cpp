// Expectations of message boxes, questions, input boxes, file dialogs and run-time error reports.
#include <algorithm>
#include <array>

#include "base/text.h"
#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/paths.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

// The line's argument, or its block's lines joined by CR LF.
std::string textOf(const Line& line) {
  if (!line.hasBlock) return line.arguments[0];
  std::string text;
  for (std::size_t i = 0; i < line.block.size(); ++i) text.append(i == 0 ? "" : "\r\n").append(line.block[i]);
  return text;
}

std::string describe(const ScriptedDialogs::Box& box) {
  return (box.question ? "the question " : "the message ") + quoted(box.text);
}

// Removes the oldest box and compares it with the line's text.
void expectBox(Session& session, const Line& line, bool question) {
  const std::string expected = (question ? "the question " : "the message ") + quoted(textOf(line));
  auto& boxes = session.dialogs.boxes;
  while (!boxes.empty() && boxes.front().optional && boxes.front().text != textOf(line)) boxes.pop_front();
  if (boxes.empty()) {
    session.reporter.fail(expected, "none");
    return;
  }
  const ScriptedDialogs::Box box = std::move(session.dialogs.boxes.front());
  session.dialogs.boxes.pop_front();
  session.titleExpected = programName;
  session.boxExpected = true;
  session.detailsExpected = box.details;
  if (box.text != textOf(line) || (question && !box.question)) session.reporter.fail(expected, describe(box));
}

void message(Session& session, const Line& line) { expectBox(session, line, false); }
void question(Session& session, const Line& line) { expectBox(session, line, true); }

void details(Session& session, const Line& line) {
  const std::string& expected = line.arguments[0];
  if (session.boxExpected && session.detailsExpected == expected) return;
  session.reporter.fail("the details " + quoted(expected),
                        session.boxExpected ? quoted(session.detailsExpected) : "no box expected before");
}

void noMessage(Session& session, const Line&) {
  auto& boxes = session.dialogs.boxes;
  while (!boxes.empty() && boxes.front().optional) boxes.pop_front();
  if (!boxes.empty()) session.reporter.fail("no message", describe(session.dialogs.boxes.front()));
}

void prompt(Session& session, const Line& line) {
  const std::string expected = "the prompt " + quoted(textOf(line));
  const auto& inputs = session.dialogs.inputs;
  if (session.promptsExpected == inputs.size()) {
    session.reporter.fail(expected, "no input box");
    return;
  }
  const ScriptedDialogs::InputBox& box = inputs[session.promptsExpected++];
  session.titleExpected = box.title;
  session.detailsExpected.clear();
  session.boxExpected = true;
  if (box.prompt != textOf(line)) session.reporter.fail(expected, quoted(box.prompt));
}

// A box's proposal can be expected before its prompt or directly after it.
void proposed(Session& session, const Line& line) {
  const std::string expected = "the proposal " + quoted(line.arguments[0]);
  const auto& inputs = session.dialogs.inputs;
  std::size_t box = std::max(session.promptsExpected, session.proposalsExpected);
  if (box == inputs.size() && session.proposalsExpected < session.promptsExpected) --box;
  if (box == inputs.size()) {
    session.reporter.fail(expected, "no input box");
    return;
  }
  session.proposalsExpected = box + 1;
  session.titleExpected = inputs[box].title;
  session.detailsExpected.clear();
  session.boxExpected = true;
  if (inputs[box].proposed != line.arguments[0]) session.reporter.fail(expected, quoted(inputs[box].proposed));
}

void titled(Session& session, const Line& line) {
  if (session.boxExpected && session.titleExpected == line.arguments[0]) return;
  session.reporter.fail("the title " + quoted(line.arguments[0]),
                        session.boxExpected ? quoted(session.titleExpected) : "no box expected before");
}

std::string describe(const FileDialog& dialog) {
  return "the dialog " + quoted(dialog.title) + " " + quoted(dialog.name) + " " + quoted(dialog.folder);
}

void dialog(Session& session, const Line& line) {
  const FileDialog expected{line.arguments[0], line.arguments[1], line.arguments[2]};
  if (session.dialogs.fileDialogs.empty()) {
    session.reporter.fail(describe(expected), "none");
    return;
  }
  const FileDialog shown = std::move(session.dialogs.fileDialogs.front());
  session.dialogs.fileDialogs.pop_front();
  if (shown.title != expected.title || shown.name != expected.name || !samePath(shown.folder, expected.folder)) {
    session.reporter.fail(describe(expected), describe(shown));
  }
}

void error(Session& session, const Line& line) {
  std::string expected = "a run-time error";
  for (const std::string& word : line.arguments) expected.append(" ").append(word);
  if (session.dialogs.errors.empty()) {
    session.reporter.fail(expected, "none");
    return;
  }
  const RuntimeError reported = session.dialogs.errors.front();
  session.dialogs.errors.pop_front();
  session.titleExpected = programName;
  session.detailsExpected.clear();
  session.boxExpected = true;
  const bool holds =
      (line.arguments.empty() || *parseInteger(line.arguments[0]) == static_cast<long long>(reported.number())) &&
      (line.arguments.size() < 2 || samePath(line.arguments[1], reported.path()));
  if (!holds) session.reporter.fail(expected, quoted(reported.report()));
}

void noError(Session& session, const Line&) {
  if (!session.dialogs.errors.empty()) {
    session.reporter.fail("no run-time error", quoted(session.dialogs.errors.front().report()));
  }
}

constexpr std::array commands{
    Command{"expect message", "TEXT?", message, Block::insteadOfText},
    Command{"expect question", "TEXT?", question, Block::insteadOfText},
    Command{"expect no message", "", noMessage},
    Command{"expect prompt", "TEXT?", prompt, Block::insteadOfText},
    Command{"expect proposed", "TEXT", proposed},
    Command{"expect titled", "TEXT", titled},
    Command{"expect details", "TEXT", details},
    Command{"expect dialog", "TEXT TEXT TEXT", dialog},
    Command{"expect error", "COUNT? / COUNT TEXT", error},
    Command{"expect no error", "", noError},
};

}  // namespace

std::span<const Command> dialogExpectations() { return commands; }

}  // namespace plimo::scenario
