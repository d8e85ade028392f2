// The implementations of FileSystemObject under test, each with what a test needs to prepare its files.
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

// Each has a ready drive C with an empty root, and a drive D that is not ready.

class FakeBackend {
 public:
  FakeBackend();
  FileSystemObject& files() { return files_; }
  std::string root() const { return "C:\\"; }

  void addFile(const std::string& path, const std::string& content) { files_.addTextFile(path, content); }
  void addFolder(const std::string& path) { files_.addFolder(path); }
  void remove(const std::string& path) { files_.remove(path); }
  void makeReadOnly(const std::string& path);
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

class LinuxBackend {
 public:
  LinuxBackend();
  FileSystemObject& files() { return files_; }
  std::string root() const { return folder_.path(); }

  void addFile(const std::string& path, const std::string& content);
  void addFolder(const std::string& path);
  void remove(const std::string& path);  // a folder with its content
  void makeReadOnly(const std::string& path);
  void makeUnreadable(const std::string& path);
  void makeFolderUnreadable(const std::string& path);
  void makeFolderUnwritable(const std::string& path);
  std::optional<std::string> content(const std::string& path) const;

  using FullDiskCheck = FakeBackend::FullDiskCheck;
  bool onFullDisk(const FullDiskCheck& check, std::string& failure);

 private:
  UnprivilegedUser user_;
  TemporaryFolder folder_;
  LinuxFiles files_;
};

}  // namespace plimo
