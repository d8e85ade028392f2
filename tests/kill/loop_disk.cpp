#include "kill/loop_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "platform/linux/unique_fd.h"
#include "support/temporary_folder.h"

namespace plimo {

namespace {

namespace fs = std::filesystem;

constexpr off_t imageSize = off_t{24} << 20;  // bytes

// The paths are those of a temporary folder, which need no quoting.
void runTool(const std::string& command) {
  if (std::system((command + " >/dev/null 2>&1").c_str()) != 0) throw std::runtime_error(command + " has failed");
}

void copyImage(const std::string& from, const std::string& to) {
  fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

}  // namespace

LoopDisk::LoopDisk(const std::string& folder)
    : image_(folder + "/disk.img"),
      kept_(folder + "/kept.img"),
      cut_(folder + "/cut.img"),
      mountPoint_(folder + "/disk") {
  if (::geteuid() != 0) {
    reason_ = "only root may mount";
    return;
  }
  try {
    makeFolders(mountPoint_);
    writeFile(image_, "");
    fs::resize_file(image_, static_cast<std::uintmax_t>(imageSize));
    runTool("mkfs.ext4 -q -F " + image_);
    mount();
  } catch (const std::exception& error) {
    reason_ = error.what();
  }
}

LoopDisk::~LoopDisk() {
  try {
    unmount();
  } catch (const std::exception&) {  // the folder cannot be removed then, which does no harm
  }
}

// Nothing is safe by chance: the journal may be committed before the data, and the data of a file that is renamed over
// another one is not written early.
void LoopDisk::mount() {
  runTool("mount -o loop,commit=300,data=writeback,noauto_da_alloc " + image_ + " " + mountPoint_);
  mounted_ = true;
}

void LoopDisk::unmount() {
  if (!mounted_) return;
  runTool("umount " + mountPoint_);
  mounted_ = false;
}

void LoopDisk::replaceImage(const std::string& by) {
  unmount();
  copyImage(by, image_);
  mount();
}

void LoopDisk::keep() {
  unmount();
  copyImage(image_, kept_);
  mount();
}

void LoopDisk::reset() { replaceImage(kept_); }

void LoopDisk::cut() {
  const UniqueFd other(::open((mountPoint_ + "/other").c_str(), O_CREAT | O_WRONLY | O_APPEND | O_CLOEXEC, S_IRWXU));
  if (!other || ::write(other.get(), "x", 1) != 1 || ::fsync(other.get()) != 0) {
    throw std::runtime_error("cannot write to " + mountPoint_);
  }
  copyImage(image_, cut_);
}

void LoopDisk::continueFromCut() { replaceImage(cut_); }

}  // namespace plimo
