#include "platform/shared/directory_prefetcher.h"

#include <iterator>
#include <system_error>
#include <utility>

namespace plimo {

namespace {

// The prefetch distance, in directories. Limits memory and open descriptors.
constexpr std::ptrdiff_t prefetchDistance = 32;

// Waking a thread costs more than listing a directory, so the worker is woken for this many at once.
constexpr int wakeBatch = 16;

}  // namespace

DirectoryPrefetcher::DirectoryPrefetcher(std::string_view folder, int depth, char separator,
                                         const DirectoryReader& reader)
    : separator_(separator), reader_(reader) {
  Directory& root = directories_.emplace_back();
  root.path = folder;
  root.depth = depth;
}

DirectoryPrefetcher::~DirectoryPrefetcher() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  workAvailable_.notify_one();
  if (worker_.joinable()) worker_.join();
}

const DirectoryPrefetcher::Directory* DirectoryPrefetcher::next() {
  std::unique_lock lock(mutex_);
  if (frontReturned_) removeFront();
  if (directories_.empty()) return nullptr;
  if (!worker_.joinable() && directories_.size() > 1) startWorker();
  while (directories_.front().state != Directory::State::listed) {
    const auto pending = findPending();
    if (pending != directories_.end()) {
      list(pending, lock);  // the front, or a later one while the worker is listing the front
    } else {
      frontListed_.wait(lock);
    }
  }
  frontReturned_ = true;
  if (directories_.front().failure) std::rethrow_exception(directories_.front().failure);
  return &directories_.front();
}

void DirectoryPrefetcher::removeFront() {
  if (directories_.front().names) freeNames_.push_back(std::move(directories_.front().names));
  directories_.pop_front();
  frontReturned_ = false;
  if (workerIdle_ && ++removedWhileIdle_ == wakeBatch) workAvailable_.notify_one();
}

void DirectoryPrefetcher::startWorker() {
  try {
    worker_ = std::thread([this] { runWorker(); });
  } catch (const std::system_error&) {
    // No thread is available: the walk lists every directory itself.
  }
}

void DirectoryPrefetcher::runWorker() {
  std::unique_lock lock(mutex_);
  while (!stopping_) {
    const auto pending = findPending();
    if (pending != directories_.end()) {
      list(pending, lock);
    } else {
      removedWhileIdle_ = 0;
      workerIdle_ = true;
      workAvailable_.wait(lock);
      workerIdle_ = false;
    }
  }
}

DirectoryPrefetcher::Directories::iterator DirectoryPrefetcher::findPending() {
  auto directory = directories_.begin();
  for (std::ptrdiff_t i = 0; directory != directories_.end() && i <= prefetchDistance; ++i, ++directory) {
    if (directory->state == Directory::State::pending) return directory;
  }
  return directories_.end();
}

void DirectoryPrefetcher::list(Directories::iterator directory, std::unique_lock<std::mutex>& lock) {
  directory->state = Directory::State::listing;
  if (!freeNames_.empty()) {
    directory->names = std::move(freeNames_.back());
    freeNames_.pop_back();
  }
  Directories subfolders;
  lock.unlock();
  try {
    if (!directory->names) directory->names = std::make_unique<ListedNames>();
    read(*directory, subfolders);
  } catch (...) {  // no memory
    directory->failure = std::current_exception();
  }
  lock.lock();
  directory->state = Directory::State::listed;
  const bool moreWork = !subfolders.empty();
  directories_.splice(std::next(directory), subfolders);
  if (directory == directories_.begin()) frontListed_.notify_one();
  if (moreWork && workerIdle_) workAvailable_.notify_one();
}

void DirectoryPrefetcher::read(Directory& directory, Directories& subfolders) const {
  const std::shared_ptr<void> opened = reader_.read(directory);
  directory.parent.reset();
  if (directory.openError != 0 || directory.readError != 0) return;
  for (const std::string_view name : directory.names->folders()) {
    Directory& subfolder = subfolders.emplace_back();
    subfolder.path.reserve(directory.path.size() + 1 + name.size());
    subfolder.path = directory.path;
    if (!subfolder.path.ends_with(separator_)) subfolder.path += separator_;
    subfolder.nameOffset = subfolder.path.size();
    subfolder.path += name;
    subfolder.parent = opened;
    subfolder.depth = directory.depth - 1;
  }
}

}  // namespace plimo
