// Kills the program at each system call of each command that writes, and lets each call fail with each of its errors,
// on a real disk with and without unnamed files and hard links. Judges what is on the disk, and the next start.
//   plimo-kill [--power-cut] [COMMAND...]      all commands if none is named
// Exits 0 if every promise of docs/reliability.md was kept, 77 if this system does not permit it.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "kill/call_errors.h"
#include "kill/disk_run.h"
#include "kill/loop_disk.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

constexpr int skipped = 77;  // the exit status of a test that skips itself

const DiskKind diskKinds[] = {{.name = "any disk"},
                              {.name = "no unnamed files", .unnamedFiles = false},
                              {.name = "no hard links", .hardLinks = false},
                              {.name = "neither", .unnamedFiles = false, .hardLinks = false}};

struct Tally {
  int kills = 0;
  int failedCalls = 0;
  int powerCuts = 0;
  int asides = 0;  // next starts that put the settings of an open colour editor aside, which is promised
  int torn = 0;
  int lost = 0;
  int refused = 0;
  int crashed = 0;
  int hanging = 0;
  int unreported = 0;
  int leftovers = 0;  // a temporary file after a failed call, or after the next start in the program's folder

  int broken() const { return torn + lost + refused + crashed + hanging + unreported + leftovers; }
};

// Prints how far a command is: continually on a terminal, else every few seconds.
class Counter {
 public:
  Counter(std::string what, std::size_t total) : what_(std::move(what)), total_(total) {}
  void at(std::size_t n) {
    const auto now = std::chrono::steady_clock::now();
    const bool terminal = ::isatty(STDOUT_FILENO) != 0;
    if (now - last_ < (terminal ? std::chrono::milliseconds(100) : std::chrono::milliseconds(5000))) return;
    last_ = now;
    std::printf("%s   %s: %zu of %zu%s", terminal ? "\r" : "", what_.c_str(), n, total_, terminal ? "\033[K" : "\n");
    std::fflush(stdout);
  }

 private:
  std::string what_;
  std::size_t total_;
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

// One command on one kind of disk.
class CommandAttack {
 public:
  CommandAttack(const WritingCommand& command, const DiskKind& kind, const std::string& root, std::string title)
      : command_(command), kind_(kind), sample_(root, command), title_(std::move(title)) {
    permitted_.catalogueMayBeMissing = command.scans;
  }

  // Without faults: what the calls are, and what may be on the disk. False if the command fails even so.
  bool observe() {
    sample_.restore();
    bool first = true;
    const RunOutcome outcome = runCommand(
        command_, sample_, kind_,
        [&](const SystemCall& call) {
          calls_.push_back(call);
          return Decision::proceed();
        },
        [&] {
          if (std::exchange(first, false)) {
            permitted_.before = sample_.contents();
          } else {
            permitted_.moments.push_back(sample_.contents());
          }
        });
    shown_ = outcome.shown;
    const bool writes = std::any_of(permitted_.moments.begin(), permitted_.moments.end(),
                                    [&](const FileContents& files) { return files != permitted_.before; });
    const bool worked = outcome.ended.status == 0 && outcome.ended.signal == 0 && writes;
    if (!worked) std::printf("%s: the command does nothing even without faults\n%s\n", title_.c_str(), shown_.c_str());
    return worked;
  }

  std::size_t calls() const { return calls_.size(); }

  void killAtEachCall(Tally& tally) {
    Counter counter(title_ + ", kill", calls_.size());
    for (std::size_t n = 1;; ++n) {
      counter.at(n);
      std::size_t count = 0;
      sample_.restore();
      const RunOutcome outcome =
          run([&](const SystemCall&) { return ++count == n ? Decision::kill() : Decision::proceed(); });
      if (!outcome.ended.killed) break;
      ++tally.kills;
      judge(tally, outcome, "killed at call " + std::to_string(n), true);
    }
  }

  void failEachCall(Tally& tally) {
    Counter counter(title_ + ", failed call", calls_.size());
    for (std::size_t n = 1; n <= calls_.size(); ++n) {
      counter.at(n);
      // Threads may make other calls in another run, so the number of failures is asked for at the call itself.
      std::size_t failures = 1;
      for (std::size_t failure = 0; failure < failures; ++failure) {
        std::size_t count = 0;
        std::string what;
        sample_.restore();
        failures = 0;
        const RunOutcome outcome = run([&](const SystemCall& call) {
          if (++count != n) return Decision::proceed();
          const std::vector<Decision> possible = failuresOf(call);
          failures = possible.size();
          if (failure >= failures) return Decision::proceed();
          const Decision decision = possible[failure];
          what = callName(call.number) + " " +
                 (decision.kind == Decision::Kind::shorten ? "shortened" : ::strerrorname_np(decision.error));
          return decision;
        });
        if (what.empty()) continue;
        ++tally.failedCalls;
        judge(tally, outcome, "call " + std::to_string(n) + ", " + what, false);
      }
    }
  }

  // A power cut before each call: what has reached the disk by then counts.
  void cutAtEachCall(Tally& tally, LoopDisk& disk) {
    Counter counter(title_ + ", power cut", calls_.size());
    sample_.restore();
    disk.keep();
    for (std::size_t n = 1;; ++n) {
      counter.at(n);
      std::size_t count = 0;
      disk.reset();
      const RunOutcome outcome = run([&](const SystemCall&) {
        if (++count != n) return Decision::proceed();
        disk.cut();
        return Decision::kill();
      });
      if (!outcome.ended.killed) break;
      disk.continueFromCut();
      ++tally.powerCuts;
      judge(tally, outcome, "power cut at call " + std::to_string(n), true);
    }
    disk.reset();
  }

 private:
  template <class Calling>
  RunOutcome run(Calling calling) {
    return runCommand(command_, sample_, kind_, calling);
  }

  void judge(Tally& tally, const RunOutcome& outcome, const std::string& fault, bool stopped) {
    const auto complain = [&](int& count, const std::string& text) {
      ++count;
      if (count <= 20) std::printf("\r%s, %s: %s\n", title_.c_str(), fault.c_str(), text.c_str());
    };
    if (outcome.ended.signal == SIGALRM) {
      complain(tally.hanging, "hangs");
    } else if (outcome.ended.signal != 0 || outcome.ended.status != 0) {
      complain(tally.crashed, "crashes, signal " + std::to_string(outcome.ended.signal));
    }
    const FileContents now = sample_.contents();
    const Damage damage = damageOf(now, permitted_);
    for (const std::string& path : damage.torn) complain(tally.torn, path + " is neither old nor new");
    for (const std::string& path : damage.lost) complain(tally.lost, path + " is lost");
    if (!stopped) {
      for (const auto& [path, content] : now) {
        if (path.find("/.plimo-") != std::string::npos && fault.find("unlink") == std::string::npos) {
          complain(tally.leftovers, path + " is left over");
        }
      }
      const bool complete = essentialFiles(now) == essentialFiles(permitted_.moments.back());
      if (!complete && outcome.shown == shown_) complain(tally.unreported, "the failure is not reported");
    }
    const auto settings = now.find(sample_.settingsFile());
    const bool inEditor = settings != now.end() && areEditorSettings(settings->second);
    const std::optional<NextStart> next = startOnDisk(sample_, kind_);
    if (!next) complain(tally.crashed, "the next start crashes");
    if (next == NextStart::runningWithoutFile && inEditor) ++tally.asides;
    if (next && *next != NextStart::running && !(inEditor && *next == NextStart::runningWithoutFile)) {
      complain(tally.refused, "the next start is refused");
    }
    if (!stopped) return;
    for (const auto& [path, content] : sample_.contents()) {
      if (path.starts_with(sample_.folders().home + "/.plimo-")) {
        complain(tally.leftovers, path + " is left over after the next start");
      }
    }
  }

  const WritingCommand& command_;
  const DiskKind& kind_;
  DiskSample sample_;
  std::string title_;
  PermittedFiles permitted_;
  std::vector<SystemCall> calls_;
  std::string shown_;
};

void print(const std::string& title, const Tally& tally) {
  std::printf(
      "%s: %d kills, %d failed calls, %d power cuts; %d settings put aside, %d torn files, %d lost songs, %d refused "
      "starts, "
      "%d crashes, %d hangs, %d failures unreported, %d leftovers\n",
      title.c_str(), tally.kills, tally.failedCalls, tally.powerCuts, tally.asides, tally.torn, tally.lost,
      tally.refused, tally.crashed, tally.hanging, tally.unreported, tally.leftovers);
  std::fflush(stdout);
}

// Wrong names are an error, not an empty run.
bool chooseCommands(const std::set<std::string>& names, std::vector<const WritingCommand*>& chosen) {
  for (const WritingCommand& command : writingCommands()) {
    if (names.empty() || names.contains(command.name)) chosen.push_back(&command);
  }
  return names.empty() || chosen.size() == names.size();
}

int run(const std::set<std::string>& names, bool powerCut) {
  std::vector<const WritingCommand*> commands;
  if (!chooseCommands(names, commands)) {
    std::fprintf(stderr, "no such command; there are:");
    for (const WritingCommand& command : writingCommands()) std::fprintf(stderr, " %s", command.name);
    std::fprintf(stderr, "\n");
    return 2;
  }
  if (!canTrace()) {
    std::printf("SKIPPED: this system does not permit ptrace(2)\n");
    return skipped;
  }
  const TemporaryFolder folder;
  std::unique_ptr<LoopDisk> disk;
  if (powerCut) {
    disk = std::make_unique<LoopDisk>(folder.path());
    if (!disk->possible()) {
      std::printf("SKIPPED: no ext4 disk can be mounted on a loop device here (%s)\n", disk->reason().c_str());
      return skipped;
    }
  }
  Tally tally;
  bool worked = true;
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const WritingCommand& command = *commands[i];
    for (const DiskKind& kind : diskKinds) {
      if (powerCut && &kind != std::begin(diskKinds) && &kind != std::end(diskKinds) - 1) continue;
      const std::string title = std::string(command.name) + " (" + std::to_string(i + 1) + " of " +
                                std::to_string(commands.size()) + ", " + kind.name + ")";
      const std::string root = powerCut ? disk->mountPoint() + "/sample" : folder / "sample";
      makeFolders(root);
      CommandAttack attack(command, kind, root, title);
      worked = attack.observe() && worked;
      const Tally before = tally;
      if (powerCut) {
        attack.cutAtEachCall(tally, *disk);
      } else {
        attack.killAtEachCall(tally);
        attack.failEachCall(tally);
      }
      std::printf("%s%s: %d kills, %d failed calls, %d power cuts, %d broken promises\n",
                  ::isatty(STDOUT_FILENO) != 0 ? "\r\033[K" : "", title.c_str(), tally.kills - before.kills,
                  tally.failedCalls - before.failedCalls, tally.powerCuts - before.powerCuts,
                  tally.broken() - before.broken());
      std::fflush(stdout);
    }
  }
  print("all", tally);
  return worked && tally.broken() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace plimo

int main(int argc, char** argv) {
  std::set<std::string> names;
  bool powerCut = false;
  for (int i = 1; i < argc; ++i) {
    if (argv[i] == std::string_view("--power-cut")) {
      powerCut = true;
    } else {
      names.insert(argv[i]);
    }
  }
  try {
    return plimo::run(names, powerCut);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
