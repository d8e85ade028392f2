// An ext4 file system in an image file, mounted on a loop device, whose state can be copied at any moment: the copy is
// what a power cut leaves. Needs root.
#pragma once

#include <string>

namespace plimo {

class LoopDisk {
 public:
  // Makes and mounts an empty disk in this folder, which stays unmounted if that is not possible.
  explicit LoopDisk(const std::string& folder);
  LoopDisk(const LoopDisk&) = delete;
  LoopDisk& operator=(const LoopDisk&) = delete;
  ~LoopDisk();

  bool possible() const { return mounted_; }
  const std::string& reason() const { return reason_; }  // why not
  const std::string& mountPoint() const { return mountPoint_; }

  // All of these throw std::runtime_error if a file system tool fails.

  // Remembers the disk as it is now.
  void keep();
  // Makes the disk what was kept.
  void reset();
  // Copies what has reached the device so far. Another program flushes a file of its own just before, which commits the
  // journal: names have reached the device then, and the content of files that nobody has flushed has not. The disk
  // remains mounted, so this may be called while files are written.
  void cut();
  // Makes the disk what `cut` copied, as after a power cut: the file system replays its journal.
  void continueFromCut();

 private:
  void mount();
  void unmount();
  void replaceImage(const std::string& by);

  std::string image_;
  std::string kept_;
  std::string cut_;
  std::string mountPoint_;
  std::string reason_;
  bool mounted_ = false;
};

}  // namespace plimo
