#include "platform/linux/directory_prefetcher.h"

#include <fcntl.h>

#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

namespace plimo {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;

// No folder is listed before the walk is so close to it; bounds the memory and the open descriptors.
constexpr std::ptrdiff_t mostAhead = 32;

// Waking a thread costs more than listing a folder: it is worth it for so many.
constexpr int worthWaking = 16;

}  // namespace

DirectoryPrefetcher::DirectoryPrefetcher(std::string_view folder, int depth, bool (*wanted)(std::string_view name),
                                         Passed passed)
    : wanted_(wanted), passed_(std::move(passed)) {
  Folder& first = folders_.emplace_back();
  first.path = folder;
  first.depth = depth;
}

DirectoryPrefetcher::~DirectoryPrefetcher() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  nearer_.notify_one();
  if (thread_.joinable()) thread_.join();
}

const DirectoryPrefetcher::Folder* DirectoryPrefetcher::next() {
  std::unique_lock lock(mutex_);
  if (inFirst_) removeFirst();
  if (folders_.empty()) return nullptr;
  if (!thread_.joinable() && folders_.size() > 1) beginWorkAhead();
  while (folders_.front().state != Folder::State::listed) {
    const auto waiting = firstWaiting();
    if (waiting != folders_.end()) {
      list(waiting, lock);  // the wanted one, or one behind it while the other thread is at it
    } else {
      listed_.wait(lock);
    }
  }
  inFirst_ = true;
  return &folders_.front();
}

void DirectoryPrefetcher::removeFirst() {
  if (folders_.front().names) spare_.push_back(std::move(folders_.front().names));
  folders_.pop_front();
  inFirst_ = false;
  if (threadWaits_ && ++left_ == worthWaking) nearer_.notify_one();
}

void DirectoryPrefetcher::beginWorkAhead() {
  try {
    thread_ = std::thread([this] { workAhead(); });
  } catch (const std::system_error&) {
    // No thread to be had: the walk lists its folders by itself.
  }
}

void DirectoryPrefetcher::workAhead() {
  std::unique_lock lock(mutex_);
  while (!ending_) {
    const auto waiting = firstWaiting();
    if (waiting != folders_.end()) {
      list(waiting, lock);
    } else {
      left_ = 0;
      threadWaits_ = true;
      nearer_.wait(lock);
      threadWaits_ = false;
    }
  }
}

DirectoryPrefetcher::Folders::iterator DirectoryPrefetcher::firstWaiting() {
  auto folder = folders_.begin();
  for (std::ptrdiff_t ahead = 0; folder != folders_.end() && ahead <= mostAhead; ++ahead, ++folder) {
    if (folder->state == Folder::State::waiting) return folder;
  }
  return folders_.end();
}

void DirectoryPrefetcher::list(Folders::iterator folder, std::unique_lock<std::mutex>& lock) {
  folder->state = Folder::State::begun;
  if (spare_.empty()) {
    folder->names = std::make_unique<DirectoryLister>();
  } else {
    folder->names = std::move(spare_.back());
    spare_.pop_back();
  }
  Folders inside;
  lock.unlock();
  read(*folder, inside);
  lock.lock();
  folder->state = Folder::State::listed;
  const bool more = !inside.empty();
  folders_.splice(std::next(folder), inside);
  if (folder == folders_.begin()) listed_.notify_one();
  if (more && threadWaits_) nearer_.notify_one();
}

void DirectoryPrefetcher::read(Folder& folder, Folders& inside) const {
  const int flags = folder.parent ? folderFlags | O_NOFOLLOW : folderFlags;
  const int above = folder.parent ? folder.parent->number() : AT_FDCWD;
  const int number = ::openat(above, folder.path.c_str() + folder.nameAt, flags);
  if (number < 0) folder.openError = errno;
  folder.parent.reset();
  if (number < 0) return;
  const auto opened = std::make_shared<const UniqueFd>(number);
  FolderQuery query;
  query.wantedFile = wanted_;
  query.folders = folder.depth > 0;
  if (!folder.names->read(opened->number(), query)) {
    folder.readError = errno;
    return;
  }
  for (const std::string_view name : folder.names->folders()) {
    if (passed_(folder.path, name)) continue;
    Folder& subfolder = inside.emplace_back();
    subfolder.path.reserve(folder.path.size() + 1 + name.size());
    subfolder.path = folder.path;
    if (!subfolder.path.ends_with('/')) subfolder.path += '/';
    subfolder.nameAt = subfolder.path.size();
    subfolder.path += name;
    subfolder.parent = opened;
    subfolder.depth = folder.depth - 1;
  }
}

}  // namespace plimo
