#include "scenario/session.h"

#include <exception>

#include "scenario/literals.h"

namespace plimo::scenario {

Run::Run(FakeFileSystem& files, ScriptedDialogs& dialogs, FakeLauncher& launcher, ScriptedProgress& progress,
         const Size& screen, const std::map<std::string, Geometry>& designs)
    : mainWindow(screen), splashWindow(screen), program(Platform{files, player, dialogs, launcher, progress}) {
  for (const auto& [name, geometry] : designs) {
    if (name == mainWindowName) {
      program.form1().designSize(geometry.width, geometry.height);
    } else {
      findControl(program, name)->setGeometry(geometry);
    }
  }
  mainWindow.attach(program.form1());
  splashWindow.attach(program.splash());
  for (Control* control : program.form1().controls()) {
    captions_.emplace(control->name(), std::make_unique<CaptionObserver>(*control));
  }
  for (Control* control : program.splash().controls()) {
    captions_.emplace(std::string(splashName) + "." + control->name(), std::make_unique<CaptionObserver>(*control));
  }
}

CaptionHistory* Run::captions(std::string_view name) {
  if (name == mainWindowName) return &mainWindow.captions;
  if (name == splashName) return &splashWindow.captions;
  const auto found = captions_.find(name);
  return found == captions_.end() ? nullptr : &found->second->captions;
}

void Session::execute(const Scenario& scenario) {
  for (const Line& line : scenario.lines) {
    reporter.setLocation(line.location);
    try {
      line.command->run(*this, line);
    } catch (const std::exception& error) {
      reporter.fail("the line to succeed", error.what());
    }
  }
  reporter.setLocation(scenario.end);
  reportLeftovers();
}

void Session::start() {
  opened();  // keeps what the previous run's player was asked to open
  openedSeen_ = 0;
  run.reset();
  run = std::make_unique<Run>(files, dialogs, launcher, progress, screen, designs);
  run->player.setDuration(duration);
  run->player.setCurrentPosition(position);
  run->program.start();
}

Control* Session::control(const std::string& name) {
  if (run) return findControl(run->program, name);
  reporter.fail("the program to have been started", "no start");
  return nullptr;
}

Control* Session::usable(const std::string& name) {
  Control* found = control(name);
  if (found == nullptr) return nullptr;
  const auto refuse = [&](std::string_view why) {
    reporter.fail(name + " to be usable", why);
    return nullptr;
  };
  if (!running()) return refuse("a program that has ended");
  if (!found->form().visible()) return refuse("a window that does not show");
  if (found->kind() == ControlKind::menu) {
    const auto* menu = static_cast<const Menu*>(found);
    while (menu->owner() != nullptr) menu = menu->owner();
    if (menu->role() == Menu::Role::popUp) return found;
  }
  if (!found->showing()) return refuse("it hidden");
  if (!found->enabled()) return refuse("it disabled");
  return found;
}

bool Session::windowVisible(std::string_view name) const {
  if (!run) return false;
  if (name == mainWindowName) return run->program.form1().visible();
  return name == splashName && run->program.splash().visible();
}

bool Session::visible(const Control& control) const { return control.form().visible() && control.showing(); }

std::deque<FakeLauncher::Started>& Session::started() {
  while (startedSeen_ < launcher.started().size()) started_.push_back(launcher.started()[startedSeen_++]);
  return started_;
}

std::deque<std::string>& Session::opened() {
  while (run && openedSeen_ < run->player.opened().size()) opened_.push_back(run->player.opened()[openedSeen_++]);
  return opened_;
}

void Session::reportLeftovers() {
  for (const ScriptedDialogs::Box& box : dialogs.boxes) {
    reporter.fail("no further box", (box.question ? "the question " : "the message ") + quoted(box.text));
  }
  for (const RuntimeError& error : dialogs.errors) {
    reporter.fail("no further run-time error", quoted(error.report()));
  }
  for (const FakeLauncher::Started& program : started()) {
    reporter.fail("no further program start", quoted(program.commandLine));
  }
  for (const std::string& path : opened()) reporter.fail("no further opening by the player", quoted(path));
  for (const Answer& answer : dialogs.answers()) reporter.fail("every answer to be taken", answer.spelling);
  for (const std::size_t songs : progress.cancels()) {
    reporter.fail("every answer to be taken", "answer scan cancel " + std::to_string(songs));
  }
}

}  // namespace plimo::scenario
