#include "monkey/program_monkey.h"

#include <algorithm>
#include <array>

namespace plimo {

namespace {

constexpr scenario::Size screen{15360, 11520};
constexpr std::string_view keys = "zxcvqwD \r\x1b\b";
constexpr std::array newNames{"Alder - Ash", "Beech - New", "thesis.odt", "a/b", "Cypress"};
constexpr std::array playlists{R"(C:\Plimo\mine)", R"(C:\Plimo\default.m3u)", R"(C:\Music\Alder - Ash.m3u)",
                               R"(D:\Stick\list.m3u)", R"(C:\none\x)"};
constexpr std::size_t keptActions = 40;

template <class Values>
auto oneOf(const Values& values, const Choose& choose) {
  return values[choose(std::size(values))];
}

}  // namespace

// --- MonkeyDialogs ---

bool MonkeyDialogs::ask(const Question& question) {
  const bool yes = choose_(2) == 0;
  if (yes && question.text.starts_with("You are gonna have to say goodbye")) named.deletes = true;
  return yes;
}

std::string MonkeyDialogs::input(const std::string&, const std::string&, const std::string&) {
  if (choose_(3) == 0) return {};
  named.renames = true;
  return oneOf(newNames, choose_);
}

std::optional<std::string> MonkeyDialogs::openFile(const FileDialog&) {
  if (choose_(4) == 0) return std::nullopt;
  return oneOf(playlists, choose_);
}

std::optional<std::string> MonkeyDialogs::saveFile(const FileDialog&) {
  if (choose_(4) == 0) return std::nullopt;
  return named.saves = oneOf(playlists, choose_);
}

// --- ProgramMonkey ---

struct ProgramMonkey::Run {
  Run(FakeFileSystem& files, Dialogs& dialogs, Launcher& launcher, Progress& progress)
      : program(Platform{files, player, dialogs, launcher, progress}) {
    main.attach(program.form1());
    splash.attach(program.splash());
    Form1& form = program.form1();
    for (ListBox* list :
         {&form.List1, &form.List2, &form.List3, &form.List4, &form.List5, &form.List6, &form.List7, &form.List8}) {
      mirrors.push_back(std::make_unique<ListMirror>(*list));
    }
    program.start();
  }

  FakePlayer player;
  scenario::ScriptedWindow main{screen};
  scenario::ScriptedWindow splash{screen};
  Program program;
  std::vector<std::unique_ptr<ListMirror>> mirrors;
};

ProgramMonkey::ProgramMonkey(FakeFileSystem& files, Choose choose)
    : world(files), files_(files), choose_(std::move(choose)), launcher_(files) {
  progress_.recording = false;
}

ProgramMonkey::~ProgramMonkey() = default;

bool ProgramMonkey::running() const { return run_ && run_->program.running(); }

Form1& ProgramMonkey::form() const { return run_->program.form1(); }

void ProgramMonkey::record(std::string action) {
  if (actions_.size() == keptActions) actions_.erase(actions_.begin());
  actions_.push_back(std::move(action));
}

std::string ProgramMonkey::history() const {
  std::string text;
  for (const std::string& action : actions_) text += action + "\n";
  return text;
}

void ProgramMonkey::start() {
  record("start");
  run_.reset();
  run_ = std::make_unique<Run>(files_, dialogs_, launcher_, progress_);
  // The splash of a first start loads the window when its timers elapse.
  for (int tick = 0; tick < 200 && running() && !form().visible(); ++tick) {
    for (Control* control : run_->program.splash().controls()) {
      auto* const timer = dynamic_cast<Timer*>(control);
      if (timer != nullptr && timer->running()) timer->elapsed();
    }
  }
}

void ProgramMonkey::use(ListBox& list) {
  if (list.empty() || choose_(6) == 0) {
    const char key = keys[choose_(keys.size())];
    record(list.name() + " key " + std::to_string(key));
    list.userKey(key);
    return;
  }
  const std::size_t row = choose_(list.count());
  record(list.name() + " row " + std::to_string(row));
  switch (choose_(10)) {
    case 0:
      list.userClickRow(row, static_cast<ListBox::Keys>(choose_(3)));
      break;
    case 1:
      list.userMoveCurrent(row);
      break;
    case 2:
      list.userExtendTo(row);
      break;
    case 3:
      list.userToggle(row);
      break;
    case 4:
      list.userSelectAll();
      break;
    case 5:
      list.userClickRow(row, ListBox::Keys::none);
      list.userDoubleClick();
      break;
    case 6:
      list.userScroll();
      break;
    case 7:
      if (list.style() == ListBox::Style::checkBoxes) list.userTick(row, choose_(2) == 0);
      break;
    case 8: {
      run_->main.popUpShown = nullptr;
      list.userRightDown();
      if (running() && run_->main.popUpShown != nullptr) useMenu(*run_->main.popUpShown);
      break;
    }
    default:
      list.userClickRow(row, ListBox::Keys::none);
      break;
  }
}

void ProgramMonkey::useMenu(const Menu& menu) {
  std::vector<Menu*> items;
  for (Control* control : form().controls()) {
    auto* const item = dynamic_cast<Menu*>(control);
    if (item != nullptr && item->owner() == &menu && item->usable()) items.push_back(item);
  }
  if (items.empty()) return;
  Menu& item = *items[choose_(items.size())];
  record("menu " + item.name());
  item.userClick();
}

void ProgramMonkey::use(Control& control) {
  if (auto* const list = dynamic_cast<ListBox*>(&control)) return use(*list);
  record(control.name());
  if (auto* const menu = dynamic_cast<Menu*>(&control)) {
    if (menu->role() == Menu::Role::bar) useMenu(*menu);
  } else if (auto* const slider = dynamic_cast<Slider*>(&control)) {
    slider->userDrag(static_cast<int>(choose_(256)));
  } else if (auto* const drives = dynamic_cast<DriveList*>(&control)) {
    if (!drives->entries().empty()) drives->userPick("CDE"[choose_(3)]);
  } else if (auto* const folders = dynamic_cast<FolderList*>(&control)) {
    folders->userPick(oneOf(std::array{R"(C:\)", R"(C:\Music)", R"(D:\Stick)", R"(C:\Winamp)"}, choose_));
  } else if (auto* const timer = dynamic_cast<Timer*>(&control)) {
    if (timer->running()) timer->elapsed();
  } else {
    control.userClick();
  }
}

std::string ProgramMonkey::openAndClose(Control& opens, Control& closes) {
  if (!opens.usable() || !form().List1.showing()) return {};
  record("open " + opens.name() + " and close by " + closes.name());
  const auto rows = [&] {
    const auto texts = form().finalList().texts();
    return std::vector<std::string>(texts.begin(), texts.end());
  };
  const std::vector<std::string> before = rows();
  opens.userClick();
  if (!running() || !closes.usable()) return {};
  closes.userClick();
  if (!running()) return {};
  return rows() == before ? "" : "the final playlist has changed";
}

std::string ProgramMonkey::act() {
  dialogs_.named = {};
  dialogs_.boxes.clear();
  std::string broken;
  if (!running()) {
    start();
  } else if (choose_(12) == 0) {
    record("disturb");
    world.disturb(choose_);
  } else if (choose_(8) == 0) {
    Form1& f = form();
    const std::array<std::pair<Control*, Control*>, 6> panels{{{&f.sodf, &f.Command18},
                                                               {&f.Preferences, &f.Command16},
                                                               {&f.cop, &f.Command7},
                                                               {&f.plimo, &f.Command19},
                                                               {&f.credits, &f.credit},
                                                               {&f.Compact, &f.large}}};
    const auto& [opens, closes] = panels[choose_(panels.size())];
    // A return to the large view reads the catalogue again, which another program may have damaged.
    if (opens == &f.Compact) world.repair();
    broken = openAndClose(*opens, *closes);
  } else if (choose_(60) == 0) {
    record("close");
    form().userClose();
  } else {
    std::vector<Control*> usable;
    for (Control* control : form().controls()) {
      const auto* const menu = dynamic_cast<Menu*>(control);
      if (menu != nullptr && menu->role() != Menu::Role::bar) continue;
      if (control->usable()) usable.push_back(control);
    }
    if (!usable.empty()) use(*usable[choose_(usable.size())]);
  }
  return broken.empty() ? violation() : broken;
}

std::string ProgramMonkey::violation() {
  const bool alive = running();
  const bool editing = alive && form().accept.showing();
  if (const std::string broken = world.violation(dialogs_.named, editing); !broken.empty()) return broken;
  if (!alive) return {};
  for (const auto& mirror : run_->mirrors) {
    if (!mirror->matches()) return "the notifications of " + mirror->list().name() + " are not its rows";
  }
  if (form().List4.showing() && form().List6.showing()) return "both final playlists show";
  return {};
}

std::string ProgramMonkey::escape() {
  record("escape");
  dialogs_.named = {};
  dialogs_.boxes.clear();
  world.repair();
  for (int start = 0; start < 8 && !running(); ++start) this->start();
  if (!running()) return "the program does not start";
  Form1& f = form();
  const auto clickIfUsable = [&](Control& control) {
    if (running() && control.usable()) control.userClick();
  };
  clickIfUsable(f.cancel);  // of the colour editor
  clickIfUsable(f.large);
  if (running() && f.Frame1.showing()) {
    // A first start, or preferences that another file's loss has opened.
    if (f.List5.usable() && !f.List5.empty()) f.List5.userTick(0, true);
    clickIfUsable(f.Option5);
    if (f.Check6.ticked()) clickIfUsable(f.Check6);
    if (f.Check3.ticked()) clickIfUsable(f.Check3);
    if (f.Check5.ticked()) clickIfUsable(f.Check5);
    clickIfUsable(f.Command5);
    clickIfUsable(f.Command00);
  }
  if (!running()) return {};
  if (!f.List2.showing() || !f.List1.showing() || !f.finalList().showing()) {
    std::string shown = "the three lists do not come back; these show:";
    for (const Control* control : f.controls()) {
      if (control->showing() && control->kind() != ControlKind::menu) shown += " " + control->name();
    }
    for (const std::string& box : dialogs_.boxes) shown += "\n" + box;
    return shown;
  }
  return violation();
}

}  // namespace plimo
