// A small world on each platform, for the suite that all of them pass.
#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/linux/linux_files.h"
#include "platform/memory/fake_file_system.h"
#include "support/temporary_folder.h"

namespace plimo {

// Each machine has one ready drive C, whose root holds nothing, and an empty drive D that is not ready.

class MemoryMachine {
 public:
  MemoryMachine();
  FileSystemObject& files() { return files_; }
  std::string root() const { return "C:\\"; }

  void addFile(const std::string& path, const std::string& content) { files_.addTextFile(path, content); }
  void addFolder(const std::string& path) { files_.addFolder(path); }
  void makeReadOnly(const std::string& path);
  void makeUnreadable(const std::string& path);
  void makeFolderUnreadable(const std::string& path) { files_.addFolder(path, {true, false}); }
  void makeFolderUnwritable(const std::string& path) { files_.addFolder(path, {false, true}); }
  std::optional<std::string> content(const std::string& path) const { return files_.fileContent(path); }

  // Runs a check in a folder of a full disk that holds one file, "old", with the content "old". False where this
  // machine cannot show that; a failure is what the check returns.
  using FullDiskCheck = std::function<std::string(FileSystemObject& files, const std::string& folder)>;
  bool onFullDisk(const FullDiskCheck& check, std::string& failure);

 private:
  void setFlags(const std::string& path, FileFlags flags);

  FakeFileSystem files_;
};

class PosixMachine {
 public:
  PosixMachine();
  FileSystemObject& files() { return files_; }
  std::string root() const { return folder_.path(); }

  void addFile(const std::string& path, const std::string& content);
  void addFolder(const std::string& path);
  void makeReadOnly(const std::string& path);
  void makeUnreadable(const std::string& path);
  void makeFolderUnreadable(const std::string& path);
  void makeFolderUnwritable(const std::string& path);
  std::optional<std::string> content(const std::string& path) const;

  using FullDiskCheck = MemoryMachine::FullDiskCheck;
  bool onFullDisk(const FullDiskCheck& check, std::string& failure);

 private:
  OrdinaryUser user_;
  TemporaryFolder folder_;
  LinuxFiles files_;
};

}  // namespace plimo
