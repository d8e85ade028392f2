// The commands for what the user does, and for the answers that they will give.
#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

template <class Kind>
Kind* usable(Session& session, const Line& line) {
  return static_cast<Kind*>(session.usable(line.arguments[0]));
}

// The main window, if the user can use it; otherwise a failed expectation, and null.
Form* usableWindow(Session& session) {
  if (session.running() && session.windowVisible(mainWindowName)) return &session.run->program.form1();
  session.reporter.fail("Form1 to show", session.run ? "it hidden" : "no start");
  return nullptr;
}

bool hasRow(Session& session, const ListBox& list, std::size_t row) {
  if (row < list.count()) return true;
  session.reporter.fail(list.name() + " to have the row " + std::to_string(row),
                        std::to_string(list.count()) + " rows");
  return false;
}

void start(Session& session, const Line&) {
  if (session.running()) {
    session.reporter.fail("a program that is not running", "it running");
  } else {
    session.start();
  }
}

void close(Session& session, const Line&) {
  if (session.windowVisible(splashName)) {
    session.run->program.splash().userClose();
  } else if (Form* form = usableWindow(session)) {
    form->userClose();
  }
}

void fire(Session& session, const Line& line) {
  auto* timer = static_cast<Timer*>(session.control(line.arguments[0]));
  if (timer == nullptr) return;
  if (session.running() && timer->form().loaded() && timer->running()) {
    timer->elapsed();
  } else {
    session.reporter.fail(line.arguments[0] + " to run", "it idle");
  }
}

void click(Session& session, const Line& line) {
  if (Control* control = session.usable(line.arguments[0])) control->userClick();
}

void doubleClick(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userDoubleClick();
}

void select(Session& session, const Line& line) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  std::vector<std::size_t> rows;
  for (const std::string& word : line.argumentsFrom(1)) {
    rows.push_back(static_cast<std::size_t>(*parseInteger(word)));
    if (!hasRow(session, *list, rows.back())) return;
  }
  list->userSelect(rows);
}

void current(Session& session, const Line& line) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  const auto row = static_cast<std::size_t>(*parseInteger(line.arguments[1]));
  if (hasRow(session, *list, row)) list->userMoveCurrent(row);
}

void setTick(Session& session, const Line& line, bool ticked) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  if (const auto row = list->find(line.arguments[1])) {
    list->userTick(*row, ticked);
  } else {
    session.reporter.fail(list->name() + " to have the row " + quoted(line.arguments[1]), "no such row");
  }
}

void tick(Session& session, const Line& line) { setTick(session, line, true); }
void untick(Session& session, const Line& line) { setTick(session, line, false); }

// Moves the focus to the next usable list, wrapping around.
void focusNextList(Session& session, const ListBox& list) {
  const auto controls = list.form().controls();
  const auto here = std::find(controls.begin(), controls.end(), &list) - controls.begin();
  const auto count = static_cast<std::ptrdiff_t>(controls.size());
  for (std::ptrdiff_t step = 1; step < count; ++step) {
    Control* next = controls[static_cast<std::size_t>((here + step) % count)];
    if (next->kind() != ControlKind::listBox || !next->usable()) continue;
    session.run->program.form1().userFocus(next);
    return;
  }
}

void key(Session& session, const Line& line) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  const std::string& word = line.arguments[1];
  if (word == "tab") {
    focusNextList(session, *list);
  } else if (word == "enter") {
    list->userKey('\r');
  } else if (word == "esc") {
    list->userKey('\x1B');
  } else if (word == "space") {
    list->userKey(' ');
  } else if (word == "backspace") {
    list->userKey('\b');
  } else if (word.size() == 1) {
    list->userKey(word[0]);
  } else {
    list->form().setFocus(list);  // a non-ASCII character: no list handles it
  }
}

void rightClick(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userRightDown();
}

void pickDrive(Session& session, DriveList& list, const std::string& letter) {
  const std::string upper = upperAscii(letter);
  const auto& entries = list.entries();
  const bool found = upper.size() == 1 && std::any_of(entries.begin(), entries.end(),
                                                      [&](const DriveList::Entry& e) { return e.letter == upper[0]; });
  if (found) {
    list.userPick(upper[0]);
  } else {
    session.reporter.fail(list.name() + " to have the drive " + quoted(letter), "no such drive");
  }
}

void pick(Session& session, const Line& line) {
  Control* control = session.usable(line.arguments[0]);
  if (control == nullptr) return;
  if (control->kind() == ControlKind::driveList) {
    pickDrive(session, static_cast<DriveList&>(*control), line.arguments[1]);
  } else {
    static_cast<FolderList*>(control)->userPick(line.arguments[1]);
  }
}

void slide(Session& session, const Line& line) {
  auto* slider = usable<Slider>(session, line);
  if (slider == nullptr) return;
  const long long value = *parseInteger(line.arguments[1]);
  if (value < Slider::minimum || value > Slider::maximum) {
    session.reporter.fail(slider->name() + " to reach " + line.arguments[1], "an end of the track before it");
  } else {
    slider->userDrag(static_cast<int>(value));
  }
}

void hover(Session& session, const Line& line) {
  if (line.arguments[0] == mainWindowName) {
    if (Form* form = usableWindow(session)) form->userMouseMove();
  } else if (Control* control = session.usable(line.arguments[0])) {
    control->userMouseMove();
  }
}

void scroll(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userScroll();
}

void resize(Session& session, const Line& line) {
  if (usableWindow(session) == nullptr) return;
  session.run->mainWindow.userResize({*parseDecimal(line.arguments[0]), *parseDecimal(line.arguments[1])});
}

void newStream(Session& session, const Line&) {
  if (session.running()) {
    session.run->player.announceStream();
  } else {
    session.reporter.fail("a program that is running", "none");
  }
}

void answerYes(Session& session, const Line&) { session.dialogs.queue({Answer::Kind::question, "yes", "answer yes"}); }

void answerNo(Session& session, const Line&) {
  session.dialogs.queue({Answer::Kind::question, std::nullopt, "answer no"});
}

void answerBox(Session& session, const Line& line, Answer::Kind kind) {
  const std::string& text = line.arguments[0];
  const std::string spelling = std::string(line.command->name) + " " + quoted(text);
  if (text == "cancel") {
    session.dialogs.queue({kind, std::nullopt, spelling});
  } else {
    session.dialogs.queue({kind, text, spelling});
  }
}

void answerInput(Session& session, const Line& line) { answerBox(session, line, Answer::Kind::input); }
void answerOpen(Session& session, const Line& line) { answerBox(session, line, Answer::Kind::open); }
void answerSave(Session& session, const Line& line) { answerBox(session, line, Answer::Kind::save); }

void answerScanCancel(Session& session, const Line& line) {
  session.progress.queueCancel(static_cast<std::size_t>(*parseInteger(line.arguments[0])));
}

constexpr std::array commands{
    Command{"start", "", start},
    Command{"close", "", close},
    Command{"fire", "TIMER", fire},
    Command{"click", "CLICKABLE", click},
    Command{"dblclick", "LIST", doubleClick},
    Command{"select", "LIST COUNT*", select},
    Command{"current", "LIST COUNT", current},
    Command{"tick", "CHECKLIST TEXT", tick},
    Command{"untick", "CHECKLIST TEXT", untick},
    Command{"key", "LIST KEY", key},
    Command{"rightclick", "LIST", rightClick},
    Command{"pick", "CHOOSER TEXT", pick},
    Command{"slide", "SLIDER WHOLE", slide},
    Command{"hover", "FORM1OR", hover},
    Command{"scroll", "LIST", scroll},
    Command{"resize", "MEASURE MEASURE", resize},
    Command{"newstream", "", newStream},
    Command{"answer yes", "", answerYes},
    Command{"answer no", "", answerNo},
    Command{"answer input", "TEXT", answerInput},
    Command{"answer open", "PATH", answerOpen},
    Command{"answer save", "PATH", answerSave},
    Command{"answer scan cancel", "COUNT", answerScanCancel},
};

}  // namespace

std::span<const Command> userCommands() { return commands; }

}  // namespace plimo::scenario
