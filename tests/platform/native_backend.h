// The operating system's files, as the contract tests see them; defined for each operating system.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/fake_backend.h"
#include "platform/file_system_object.h"

namespace plimo {

// The same as FakeBackend, in a temporary folder that is the root of drive C.
class NativeBackend {
 public:
  NativeBackend();
  NativeBackend(const NativeBackend&) = delete;
  NativeBackend& operator=(const NativeBackend&) = delete;
  ~NativeBackend();

  FileSystemObject& files();
  std::string root() const;

  void addFile(const std::string& path, const std::string& content);
  void addFolder(const std::string& path);
  void remove(const std::string& path);
  void makeReadOnly(const std::string& path);
  bool deniesAccess() const;
  void makeUnreadable(const std::string& path);
  void makeFolderUnreadable(const std::string& path);
  void makeFolderUnwritable(const std::string& path);
  std::optional<std::string> content(const std::string& path) const;

  using FullDiskCheck = FakeBackend::FullDiskCheck;
  bool onFullDisk(const FullDiskCheck& check, std::string& failure);

 private:
  struct Disk;
  std::unique_ptr<Disk> disk_;
};

}  // namespace plimo
