// Files that leave the window working while a disk does not answer.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system_object.h"

namespace plimo {

class HelperThread;

// Forwards each call to other files. Calls that only read the disk, and copies, run on a helper thread, and while the
// disk does not answer the calling thread calls `waiting`. A call that is given up throws 71 (disk not ready), says
// that the file or folder does not exist, or cancels the copy. Its thread is left behind; it ends when the disk
// answers, or with the process, and changes nothing but that a copy may yet appear, complete.
//
// Calls that write, delete or rename run on the calling thread: to give one up would leave open whether it happens.
class ResponsiveFiles : public FileSystemObject {
 public:
  // The files are called by several threads.
  explicit ResponsiveFiles(std::shared_ptr<FileSystemObject> files);
  ~ResponsiveFiles() override;

  // Called about every 40 ms while a call lasts, with the time since it began; false gives it up. May be empty.
  std::function<bool(std::chrono::milliseconds since)> waiting;
  // Called after the last `waiting` of a call.
  std::function<void()> waited;
  // Runs long work; empty: at once.
  std::function<void(const std::function<void()>& work)> background;

  std::vector<Drive> drives() override;
  std::string currentDirectory() override { return files_->currentDirectory(); }
  std::string join(std::string_view folder, std::string_view name) override { return files_->join(folder, name); }
  std::string joinAlwaysSeparated(std::string_view folder, std::string_view name) override {
    return files_->joinAlwaysSeparated(folder, name);
  }
  std::string_view fileName(std::string_view path) override { return files_->fileName(path); }
  std::string folderOf(std::string_view path) override { return files_->folderOf(path); }
  bool holdsSeparator(std::string_view name) override { return files_->holdsSeparator(name); }
  bool caseSensitive() override { return files_->caseSensitive(); }
  bool sameFile(std::string_view left, std::string_view right) override;
  bool isRootFolder(std::string_view folder) override;
  std::string shortFilePath(std::string_view file) override;
  std::string shortFolderPath(std::string_view folder) override;
  bool fileExists(std::string_view path) override;
  bool folderExists(std::string_view path) override;
  FolderContents contents(std::string_view folder) override;
  bool walk(std::string_view folder, int depth, const WalkVisitor& visitor) override {
    return files_->walk(folder, depth, visitor);  // has its own way of waiting
  }
  using FileSystemObject::walk;
  std::uint64_t fileSize(std::string_view path) override;
  std::unique_ptr<FileView> openForReading(std::string_view path) override;
  std::unique_ptr<FileReplacement> replaceFile(std::string_view path, Force force) override {
    return files_->replaceFile(path, force);
  }
  void deleteFile(std::string_view path, Force force) override { files_->deleteFile(path, force); }
  bool copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) override;
  bool moveFile(std::string_view from, std::string_view to, Force force) override {
    return files_->moveFile(from, to, force);
  }
  void removeLeftovers(std::string_view folder) override { files_->removeLeftovers(folder); }
  void runInBackground(const std::function<void()>& work) override { background ? background(work) : work(); }

 private:
  // Runs an action on the helper thread and returns its result, or throws what it throws; throws GivenUp if `waiting`
  // gives it up. `meanwhile`, if any, is called after each wait too and can end it likewise.
  template <class Action>
  auto run(Action action, const std::function<bool()>& meanwhile = {});
  template <class Action>
  auto runOrThrow(std::string_view path, Action action);

  std::shared_ptr<FileSystemObject> files_;
  std::shared_ptr<HelperThread> helper_;  // null before the first call, and after one that was given up
};

}  // namespace plimo
