// The lines in which the user does something, and those that say what he will answer.
#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "scenario/command.h"
#include "scenario/session.h"
#include "scenario/words.h"

namespace plimo::scenario {

namespace {

template <class Kind>
Kind* usable(Session& session, const Line& line) {
  return static_cast<Kind*>(session.usable(line.words[0]));
}

// The main window, while the user can use it; null, and a failed expectation, where he cannot.
Form* usableWindow(Session& session) {
  if (session.running() && session.windowShows(mainWindowName)) return &session.run->program.form1();
  session.verdicts.fail("Form1 to show", session.run ? "it hidden" : "no start");
  return nullptr;
}

bool hasRow(Session& session, const ListBox& list, std::size_t row) {
  if (row < list.count()) return true;
  session.verdicts.fail(list.name() + " to have the row " + std::to_string(row),
                        std::to_string(list.count()) + " rows");
  return false;
}

void start(Session& session, const Line&) {
  if (session.running()) {
    session.verdicts.fail("a program that is not running", "it running");
  } else {
    session.start();
  }
}

void close(Session& session, const Line&) {
  if (session.windowShows(splashName)) {
    session.run->program.splash().userClose();
  } else if (Form* form = usableWindow(session)) {
    form->userClose();
  }
}

void fire(Session& session, const Line& line) {
  auto* timer = static_cast<Timer*>(session.control(line.words[0]));
  if (timer == nullptr) return;
  if (session.running() && timer->form().loaded() && timer->running()) {
    timer->elapsed();
  } else {
    session.verdicts.fail(line.words[0] + " to run", "it idle");
  }
}

void click(Session& session, const Line& line) {
  if (Control* control = session.usable(line.words[0])) control->userClick();
}

void doubleClick(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userDoubleClick();
}

void select(Session& session, const Line& line) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  std::vector<std::size_t> rows;
  for (const std::string& word : line.from(1)) {
    rows.push_back(static_cast<std::size_t>(*wholeNumber(word)));
    if (!hasRow(session, *list, rows.back())) return;
  }
  list->userSelect(rows);
}

void current(Session& session, const Line& line) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  const auto row = static_cast<std::size_t>(*wholeNumber(line.words[1]));
  if (hasRow(session, *list, row)) list->userMoveCurrent(row);
}

void setTick(Session& session, const Line& line, bool ticked) {
  auto* list = usable<ListBox>(session, line);
  if (list == nullptr) return;
  if (const auto row = list->find(line.words[1])) {
    list->userTick(*row, ticked);
  } else {
    session.verdicts.fail(list->name() + " to have the row " + quoted(line.words[1]), "no such row");
  }
}

void tick(Session& session, const Line& line) { setTick(session, line, true); }
void untick(Session& session, const Line& line) { setTick(session, line, false); }

// The next list that the keyboard can reach, after the last one the first again.
void tabFrom(Session& session, const ListBox& list) {
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
  const std::string& word = line.words[1];
  if (word == "tab") {
    tabFrom(session, *list);
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
    list->form().setFocus(list);  // a letter that no list answers
  }
}

void rightClick(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userRightDown();
}

void pickDrive(Session& session, DriveList& list, const std::string& letter) {
  const std::string upper = upperAscii(letter);
  const auto& entries = list.entries();
  const bool there = upper.size() == 1 && std::any_of(entries.begin(), entries.end(),
                                                      [&](const DriveList::Entry& e) { return e.letter == upper[0]; });
  if (there) {
    list.userPick(upper[0]);
  } else {
    session.verdicts.fail(list.name() + " to have the drive " + quoted(letter), "no such drive");
  }
}

void pick(Session& session, const Line& line) {
  Control* control = session.usable(line.words[0]);
  if (control == nullptr) return;
  if (control->kind() == ControlKind::driveList) {
    pickDrive(session, static_cast<DriveList&>(*control), line.words[1]);
  } else {
    static_cast<FolderList*>(control)->userPick(line.words[1]);
  }
}

void slide(Session& session, const Line& line) {
  auto* slider = usable<Slider>(session, line);
  if (slider == nullptr) return;
  const long long value = *wholeNumber(line.words[1]);
  if (value < Slider::minimum || value > Slider::maximum) {
    session.verdicts.fail(slider->name() + " to reach " + line.words[1], "an end of the track before it");
  } else {
    slider->userDrag(static_cast<int>(value));
  }
}

void hover(Session& session, const Line& line) {
  if (line.words[0] == mainWindowName) {
    if (Form* form = usableWindow(session)) form->userMouseMove();
  } else if (Control* control = session.usable(line.words[0])) {
    control->userMouseMove();
  }
}

void scroll(Session& session, const Line& line) {
  if (auto* list = usable<ListBox>(session, line)) list->userScroll();
}

void resize(Session& session, const Line& line) {
  if (usableWindow(session) == nullptr) return;
  session.run->mainWindow.userResize({*decimalNumber(line.words[0]), *decimalNumber(line.words[1])});
}

void newStream(Session& session, const Line&) {
  if (session.running()) {
    session.run->player.announceStream();
  } else {
    session.verdicts.fail("a program that is running", "none");
  }
}

void answerYes(Session& session, const Line&) { session.dialogs.queue({Answer::Kind::question, "yes", "answer yes"}); }

void answerNo(Session& session, const Line&) {
  session.dialogs.queue({Answer::Kind::question, std::nullopt, "answer no"});
}

void answerBox(Session& session, const Line& line, Answer::Kind kind) {
  const std::string& text = line.words[0];
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
  session.progress.queueCancel(static_cast<std::size_t>(*wholeNumber(line.words[0])));
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
