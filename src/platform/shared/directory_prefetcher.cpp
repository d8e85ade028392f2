#include "platform/shared/directory_prefetcher.h"

#include <iterator>
#include <system_error>
#include <thread>
#include <utility>

namespace plimo {

namespace {

// The prefetch distance, in directories. Limits memory and open descriptors.
constexpr std::ptrdiff_t prefetchDistance = 32;

// Waking a thread costs more than listing a directory, so a worker is woken for this many at once, and so is the walk.
constexpr std::size_t wakeBatch = 16;

// For this long the walk waits for a whole batch; after that, for its next directory only.
constexpr std::chrono::milliseconds batchPatience(2);
constexpr std::chrono::milliseconds waitingInterval(40);

constexpr int maxWorkers = 2;

}  // namespace

class DirectoryPrefetcher::Queue {
 public:
  using Directories = std::list<Directory>;

  Queue(char separator, std::shared_ptr<const DirectoryReader> reader)
      : separator_(separator), reader_(std::move(reader)) {}

  // The members below, and the calls, need the lock.
  std::mutex mutex;
  Directories directories;  // in the order of the walk, from the one last returned

  bool frontListed() const { return directories.front().state == Directory::State::listed; }
  // Waits until the front is listed and, if possible, `batch` directories in all; or until the time is over.
  void waitForBatch(std::unique_lock<std::mutex>& lock, std::size_t batch, std::chrono::milliseconds time);
  void removeFront();
  // What a worker does until `stop`.
  void work();
  void stop();
  // The first pending directory within the prefetch distance, or end().
  Directories::iterator findPending();
  // Lists a pending directory. The lock is released while the disk is read.
  void list(Directories::iterator directory, std::unique_lock<std::mutex>& lock);

 private:
  // The part of `list` without the lock: reads the names and appends the subfolders.
  void read(Directory& directory, Directories& subfolders) const;
  bool batchIsComplete() const { return frontListed() && (listed_ >= batch_ || idleWorkers_ > 0); }

  char separator_;
  std::shared_ptr<const DirectoryReader> reader_;

  std::condition_variable batchListed_;
  std::condition_variable workAvailable_;
  std::size_t listed_ = 0;  // directories that are listed
  std::size_t batch_ = 0;   // that the walk waits for; 0: it does not wait
  int idleWorkers_ = 0;
  std::size_t removedWhileIdle_ = 0;  // directories that the walk has finished since a worker became idle
  bool stopping_ = false;
  std::vector<std::unique_ptr<ListedNames>> freeNames_;  // for reuse: few allocations for a large tree
};

void DirectoryPrefetcher::Queue::waitForBatch(std::unique_lock<std::mutex>& lock, std::size_t batch,
                                              std::chrono::milliseconds time) {
  batch_ = batch;
  if (directories.front().state == Directory::State::pending) workAvailable_.notify_all();
  batchListed_.wait_for(lock, time, [this] { return batchIsComplete(); });
  batch_ = 0;
}

void DirectoryPrefetcher::Queue::removeFront() {
  if (directories.front().names) freeNames_.push_back(std::move(directories.front().names));
  directories.pop_front();
  --listed_;
  if (idleWorkers_ > 0 && ++removedWhileIdle_ == wakeBatch) workAvailable_.notify_all();
}

void DirectoryPrefetcher::Queue::stop() {
  const std::lock_guard lock(mutex);
  stopping_ = true;
  workAvailable_.notify_all();
}

void DirectoryPrefetcher::Queue::work() {
  std::unique_lock lock(mutex);
  while (!stopping_) {
    const auto pending = findPending();
    if (pending != directories.end()) {
      list(pending, lock);
    } else {
      removedWhileIdle_ = 0;
      ++idleWorkers_;
      if (batch_ > 0 && batchIsComplete()) batchListed_.notify_one();
      workAvailable_.wait(lock);
      --idleWorkers_;
    }
  }
}

DirectoryPrefetcher::Queue::Directories::iterator DirectoryPrefetcher::Queue::findPending() {
  auto directory = directories.begin();
  for (std::ptrdiff_t i = 0; directory != directories.end() && i <= prefetchDistance; ++i, ++directory) {
    if (directory->state == Directory::State::pending) return directory;
  }
  return directories.end();
}

void DirectoryPrefetcher::Queue::list(Directories::iterator directory, std::unique_lock<std::mutex>& lock) {
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
  ++listed_;
  const bool moreWork = !subfolders.empty();
  directories.splice(std::next(directory), subfolders);
  if (batch_ > 0 && batchIsComplete()) batchListed_.notify_one();
  if (moreWork && idleWorkers_ > 0) workAvailable_.notify_one();
}

void DirectoryPrefetcher::Queue::read(Directory& directory, Directories& subfolders) const {
  const std::shared_ptr<void> opened = reader_->read(directory);
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

DirectoryPrefetcher::DirectoryPrefetcher(std::string_view folder, int depth, char separator,
                                         std::shared_ptr<const DirectoryReader> reader)
    : queue_(std::make_shared<Queue>(separator, std::move(reader))) {
  Directory& root = queue_->directories.emplace_back();
  root.path = folder;
  root.depth = depth;
}

DirectoryPrefetcher::~DirectoryPrefetcher() { queue_->stop(); }

const DirectoryPrefetcher::Directory* DirectoryPrefetcher::next(const Waiting& waiting) {
  std::unique_lock lock(queue_->mutex);
  if (std::exchange(frontReturned_, false)) queue_->removeFront();
  if (queue_->directories.empty()) return nullptr;
  startWorkers();
  if (!waitForFront(lock, waiting)) {
    gaveUp_ = true;
    return nullptr;
  }
  frontReturned_ = true;
  const Directory& front = queue_->directories.front();
  if (front.failure) std::rethrow_exception(front.failure);
  return &front;
}

void DirectoryPrefetcher::startWorkers() {
  // A single directory needs one worker only.
  while (!noThreads_ && (workers_ == 0 || (workers_ < maxWorkers && queue_->directories.size() > 1))) {
    try {
      std::thread([queue = queue_] { queue->work(); }).detach();
      ++workers_;
    } catch (const std::system_error&) {
      noThreads_ = true;
    }
  }
}

bool DirectoryPrefetcher::waitForFront(std::unique_lock<std::mutex>& lock, const Waiting& waiting) {
  if (queue_->frontListed()) return true;
  if (workers_ == 0) {
    queue_->list(queue_->directories.begin(), lock);
    return true;
  }
  queue_->waitForBatch(lock, wakeBatch, batchPatience);
  while (!queue_->frontListed()) {
    queue_->waitForBatch(lock, 1, waitingInterval);
    if (queue_->frontListed() || !waiting) continue;
    const std::string_view folder = queue_->directories.front().path;
    lock.unlock();
    const bool goesOn = waiting(folder);
    lock.lock();
    if (!goesOn) return false;
  }
  return true;
}

}  // namespace plimo
