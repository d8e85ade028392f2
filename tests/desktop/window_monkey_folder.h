// The folder of the window's monkey: songs, other files and the program's files, on the real disk.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/linux/linux_files.h"
#include "support/temporary_folder.h"

namespace plimo {

// What the user has named in the boxes of one action.
struct NamedInWindow {
  bool deletes = false;         // has agreed to delete the songs listed
  bool renames = false;         // has entered a new name
  std::set<std::string> saves;  // files that the user has agreed to write; absolute paths
};

class WindowMonkeyFolder {
 public:
  // Makes the program's folder the current one. Without settings the program starts as for the first time.
  explicit WindowMonkeyFolder(bool withSettings);

  const std::string& root() const { return folder_.path(); }
  std::string music() const { return folder_ / "music"; }
  std::string stick() const { return folder_ / "stick"; }
  std::string home() const { return folder_ / "home"; }

  // What is broken after an action; empty if nothing is. `editing`: the colour editor is open.
  std::string violation(const NamedInWindow& named, bool editing);

 private:
  std::map<std::string, std::string> contents() const;  // of all files by path
  std::string lostFile(const std::map<std::string, std::string>& now, const NamedInWindow& named) const;

  TemporaryFolder folder_;
  std::map<std::string, std::string> before_;
  std::string unfinishedSettings_;  // as they were while their colours were edited
};

// The real disk, on which nothing outside one folder can be changed, wherever the monkey goes.
class FencedFiles : public LinuxFiles {
 public:
  explicit FencedFiles(const WindowMonkeyFolder& folder);

  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override;
  void deleteFile(std::string_view path, Force force) override;
  bool copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) override;
  bool moveFile(std::string_view from, std::string_view to, Force force) override;
  void removeLeftovers(std::string_view folder) override;

 private:
  void check(std::string_view path) const;

  std::string fence_;
};

}  // namespace plimo
