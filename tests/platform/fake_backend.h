// The disks in memory, as the contract tests see them.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/memory/fake_file_system.h"

namespace plimo {

// What a test needs to prepare the files of an implementation of FileSystemObject. Each has a ready drive C with an
// empty root, and a drive D that is not ready.
class FakeBackend {
 public:
  FakeBackend();
  FileSystemObject& files() { return files_; }
  std::string root() const { return "C:\\"; }

  void addFile(const std::string& path, const std::string& content) { files_.addTextFile(path, content); }
  void addFolder(const std::string& path) { files_.addFolder(path); }
  void remove(const std::string& path) { files_.remove(path); }  // a folder with its content
  void makeReadOnly(const std::string& path);
  // False if the system or its user cannot be denied access: what `make...Unreadable` does has no effect then.
  bool deniesAccess() const { return true; }
  void makeUnreadable(const std::string& path);
  void makeFolderUnreadable(const std::string& path) { files_.addFolder(path, {true, false}); }
  void makeFolderUnwritable(const std::string& path) { files_.addFolder(path, {false, true}); }
  std::optional<std::string> content(const std::string& path) const { return files_.fileContent(path); }

  // Runs a check in a folder of a full disk with one file, "old", whose content is "old". The check returns a message
  // if it fails. False if a full disk is not possible here.
  using FullDiskCheck = std::function<std::string(FileSystemObject& files, const std::string& folder)>;
  bool onFullDisk(const FullDiskCheck& check, std::string& failure);

 private:
  void setFlags(const std::string& path, FileFlags flags);

  FakeFileSystem files_;
};

}  // namespace plimo
