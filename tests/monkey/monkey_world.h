// The machine of the monkey: songs, other files, the program's files, and other programs that change them.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/memory/fake_file_system.h"

namespace plimo {

// A number below the limit, which is at least 1. Random, or from a fuzzer's input.
using Choose = std::function<std::size_t(std::size_t limit)>;

// What the user has named in the boxes of one action.
struct NamedByUser {
  bool deletes = false;              // has agreed to delete the songs listed
  bool renames = false;              // has entered a new name
  std::optional<std::string> saves;  // has chosen a playlist to be written
};

class MonkeyWorld {
 public:
  explicit MonkeyWorld(FakeFileSystem& files);

  // Another program, or the machine, changes something.
  void disturb(const Choose& choose);
  // All disks are ready and have room, and no failure is pending; state files that another program has damaged are
  // removed or, the settings, replaced.
  void repair();
  // Text files of any content that the program reads at its start.
  void writeStateFile(const std::string& name, const std::string& content);

  // What is broken after an action; empty if nothing is. `editing`: the colour editor is open.
  std::string violation(const NamedByUser& named, bool editing);

 private:
  std::string lostFile(const NamedByUser& named) const;
  std::string damagedStateFile(bool editing);
  void takeInventory();

  FakeFileSystem& files_;
  std::map<std::string, std::string> userFiles_;  // path to content
  std::string unfinishedSettings_;                // as they were while their colours were edited
  std::map<std::string, std::string> foreign_;    // state files by name, with what another program has written
};

}  // namespace plimo
