// Expectations of windows and controls other than lists.
#include <array>
#include <cmath>

#include "scenario/command.h"
#include "scenario/literals.h"
#include "scenario/paths.h"
#include "scenario/session.h"

namespace plimo::scenario {

namespace {

// The named control, cast to its type. Before the first start: a failed expectation, and null.
template <class Kind = Control>
Kind* named(Session& session, const Line& line) {
  return static_cast<Kind*>(session.control(line.arguments[0]));
}

void expectVisible(Session& session, const Line& line, bool shown) {
  for (const std::string& name : line.arguments) {
    bool showing = session.windowVisible(name);
    if (name != mainWindowName && name != splashName) {
      const Control* control = session.control(name);
      if (control == nullptr) return;
      showing = session.visible(*control);
    }
    if (showing != shown)
      session.reporter.fail(name + (shown ? " visible" : " hidden"), showing ? "visible" : "hidden");
  }
}

void visible(Session& session, const Line& line) { expectVisible(session, line, true); }
void hidden(Session& session, const Line& line) { expectVisible(session, line, false); }

void expectEnabled(Session& session, const Line& line, bool wanted) {
  for (const std::string& name : line.arguments) {
    const Control* control = session.control(name);
    if (control == nullptr) return;
    if (control->enabled() != wanted) {
      session.reporter.fail(name + (wanted ? " enabled" : " disabled"), wanted ? "disabled" : "enabled");
    }
  }
}

void enabled(Session& session, const Line& line) { expectEnabled(session, line, true); }
void disabled(Session& session, const Line& line) { expectEnabled(session, line, false); }

std::string_view tickOf(const Control& control) {
  if (control.kind() == ControlKind::optionButton) {
    return static_cast<const OptionButton&>(control).value() ? "checked" : "unchecked";
  }
  const int value = static_cast<const CheckBox&>(control).value();
  return value == 0 ? "unchecked" : value == 1 ? "checked" : "greyed";
}

void expectTick(Session& session, const Line& line, std::string_view wanted) {
  for (const std::string& name : line.arguments) {
    const Control* control = session.control(name);
    if (control == nullptr) return;
    const std::string_view got = tickOf(*control);
    if (got != wanted) session.reporter.fail(name + " " + std::string(wanted), got);
  }
}

void checked(Session& session, const Line& line) { expectTick(session, line, "checked"); }
void unchecked(Session& session, const Line& line) { expectTick(session, line, "unchecked"); }

void caption(Session& session, const Line& line) {
  const std::string& name = line.arguments[0];
  std::string_view got;
  if (name == mainWindowName || name == splashName) {
    if (!session.run) {
      session.reporter.fail("the program to have been started", "no start");
      return;
    }
    Program& program = session.run->program;
    got = name == mainWindowName ? program.form1().caption() : program.splash().caption();
  } else {
    const Control* control = session.control(name);
    if (control == nullptr) return;
    got = control->caption();
  }
  const std::string& text = line.arguments.back();
  const std::string manner = line.arguments.size() == 3 ? line.arguments[1] : "";
  const bool holds = manner.empty() ? got == text : manner == "starts" ? got.starts_with(text) : got.ends_with(text);
  if (holds) return;
  session.reporter.fail(
      "the caption of " + name + (manner.empty() ? "" : " that " + manner + " with") + " " + quoted(text), quoted(got));
}

void was(Session& session, const Line& line) {
  CaptionHistory* captions = session.run ? session.run->captions(line.arguments[0]) : nullptr;
  if (captions == nullptr) {
    session.reporter.fail("the program to have been started", "no start");
    return;
  }
  const std::vector<std::string> seen = captions->seen();
  if (captions->takeSeen(line.arguments[1])) return;
  std::string all;
  for (const std::string& text : seen) all.append(all.empty() ? "" : ", then ").append(quoted(text));
  session.reporter.fail(line.arguments[0] + " captioned " + quoted(line.arguments[1]) + " at some moment", all);
}

void tooltip(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control == nullptr || control->tooltip() == line.arguments[1]) return;
  session.reporter.fail("the tooltip " + quoted(line.arguments[1]), quoted(control->tooltip()));
}

void expectColour(Session& session, std::string_view which, const std::string& wanted, Colour got) {
  if (*parseInteger(wanted) != got) session.reporter.fail(std::string(which) + " " + wanted, std::to_string(got));
}

void colours(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control == nullptr) return;
  expectColour(session, "the text colour", line.arguments[1], control->foreColour());
  expectColour(session, "the background", line.arguments[2], control->backColour());
}

void back(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control != nullptr) expectColour(session, "the background", line.arguments[1], control->backColour());
}

void path(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control == nullptr) return;
  std::string got;
  if (control->kind() == ControlKind::folderList) {
    got = static_cast<const FolderList*>(control)->path();
  } else if (const char letter = static_cast<const DriveList*>(control)->drive()) {
    got = letter;
  }
  if (!samePath(got, line.arguments[1]))
    session.reporter.fail(line.arguments[0] + " at " + quoted(line.arguments[1]), quoted(got));
}

// True if the measure rounds to the wanted number. Halves may be rounded either way: proportions are single-precision,
// so that rounding errors decide on which side of the half a measure lies.
bool roundsTo(double measure, double wanted) {
  constexpr double half = 0.5 + 0.01;
  return std::abs(measure - std::round(wanted)) <= half;
}

std::string measures(std::initializer_list<double> numbers) {
  std::string text;
  for (const double number : numbers) {
    text.append(text.empty() ? "" : " ").append(std::to_string(std::llround(number)));
  }
  return text;
}

std::string joined(std::span<const std::string> words) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : " ").append(word);
  return text;
}

void place(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control == nullptr) return;
  const Geometry& got = control->geometry();
  const std::array numbers{got.left, got.top, got.width, got.height};
  for (std::size_t i = 1; i < line.arguments.size(); ++i) {
    if (roundsTo(numbers[i - 1], *parseDecimal(line.arguments[i]))) continue;
    session.reporter.fail(line.arguments[0] + " at " + joined(line.argumentsFrom(1)),
                          measures({got.left, got.top, got.width, got.height}));
    return;
  }
}

Form* mainWindow(Session& session) {
  if (session.run) return &session.run->program.form1();
  session.reporter.fail("the program to have been started", "no start");
  return nullptr;
}

void size(Session& session, const Line& line) {
  const Form* form = mainWindow(session);
  if (form == nullptr) return;
  if (!roundsTo(form->width(), *parseDecimal(line.arguments[1])) ||
      !roundsTo(form->height(), *parseDecimal(line.arguments[2]))) {
    session.reporter.fail("Form1 of the size " + joined(line.argumentsFrom(1)),
                          measures({form->width(), form->height()}));
  }
}

void state(Session& session, const Line& line) {
  const Form* form = mainWindow(session);
  if (form == nullptr) return;
  constexpr std::array<std::string_view, 3> names{"normal", "minimised", "maximised"};
  const std::string_view got = names[static_cast<std::size_t>(form->windowState())];
  if (got != line.arguments[1]) session.reporter.fail("Form1 " + line.arguments[1], got);
}

void expectPopUp(Session& session, std::string_view wanted) {
  if (mainWindow(session) == nullptr) return;
  const Menu* shown = session.run->mainWindow.popUpShown;
  session.run->mainWindow.popUpShown = nullptr;
  const std::string_view got = shown == nullptr ? std::string_view() : std::string_view(shown->name());
  if (got == wanted) return;
  session.reporter.fail(wanted.empty() ? "no pop-up menu" : "the pop-up menu " + std::string(wanted),
                        got.empty() ? "none" : got);
}

void popUp(Session& session, const Line& line) { expectPopUp(session, line.arguments[0]); }
void noPopUp(Session& session, const Line&) { expectPopUp(session, ""); }

void focus(Session& session, const Line& line) {
  const Control* control = named(session, line);
  if (control == nullptr) return;
  const Control* got = control->form().focus();
  if (got != control)
    session.reporter.fail("the keyboard at " + line.arguments[0], got == nullptr ? "nowhere" : got->name());
}

void interval(Session& session, const Line& line) {
  const auto* timer = named<Timer>(session, line);
  if (timer == nullptr) return;
  const int got = timer->running() ? timer->interval() : 0;
  if (got != *parseInteger(line.arguments[1])) {
    session.reporter.fail(line.arguments[0] + " at " + line.arguments[1] + " ms", std::to_string(got));
  }
}

constexpr std::array commands{
    Command{"expect visible", "WINDOWOR+", visible},
    Command{"expect hidden", "WINDOWOR+", hidden},
    Command{"expect enabled", "CONTROL+", enabled},
    Command{"expect disabled", "CONTROL+", disabled},
    Command{"expect checked", "BOX+", checked},
    Command{"expect unchecked", "BOX+", unchecked},
    Command{"expect caption", "WINDOWOR starts|ends? TEXT", caption},
    Command{"expect was", "WINDOWOR TEXT", was},
    Command{"expect tooltip", "CONTROL TEXT", tooltip},
    Command{"expect colours", "CONTROL WHOLE WHOLE", colours},
    Command{"expect back", "CONTROL WHOLE", back},
    Command{"expect path", "CHOOSER TEXT", path},
    Command{"expect place", "CONTROL NUMBER NUMBER / CONTROL NUMBER NUMBER MEASURE MEASURE", place},
    Command{"expect size", "FORM1 MEASURE MEASURE", size},
    Command{"expect state", "FORM1 normal|minimised|maximised", state},
    Command{"expect popup", "POPUP", popUp},
    Command{"expect no popup", "", noPopUp},
    Command{"expect focus", "CONTROL", focus},
    Command{"expect interval", "TIMER COUNT", interval},
};

}  // namespace

std::span<const Command> controlExpectations() { return commands; }

}  // namespace plimo::scenario
