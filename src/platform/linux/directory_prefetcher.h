// Lists the directories of a walk ahead of it, on a second thread.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/linux/directory_lister.h"

namespace plimo {

// Yields the directories of a tree in depth-first (pre-)order. Whichever thread is idle, the walk's or the worker,
// lists the first directory that nobody has begun; what a listing gives, its errors included, becomes visible only when
// the walk reaches the directory.
//
// This is read-ahead (prefetching) on directories. The kernel reads ahead only within files, so without it each folder
// that is not cached costs the walk a whole access to the disk. With a warm cache it still shares the system calls and
// the sorting between two processors.
class DirectoryPrefetcher {
 public:
  struct Directory {
    std::string path;
    std::size_t nameOffset = 0;              // of its own name, in the path
    std::shared_ptr<const UniqueFd> parent;  // null for the walk's first directory
    int depth = 0;                           // levels of subfolders wanted below it

    enum class State { pending, listing, listed };
    State state = State::pending;
    int openError = 0;  // errno; 0: none
    int readError = 0;
    std::exception_ptr failure;              // of the thread that listed it; rethrown to the walk
    std::unique_ptr<DirectoryLister> names;  // null until it is listed
  };

  // True for a subfolder to leave out. Called on both threads.
  using SkipFolder = std::function<bool(std::string_view folder, std::string_view name)>;

  // `acceptFile` is called on both threads.
  DirectoryPrefetcher(std::string_view folder, int depth, bool (*acceptFile)(std::string_view name), SkipFolder skip);
  DirectoryPrefetcher(const DirectoryPrefetcher&) = delete;
  DirectoryPrefetcher& operator=(const DirectoryPrefetcher&) = delete;
  ~DirectoryPrefetcher();

  // The next directory, listed; null after the last one. Valid until the next call. Throws what listing it has thrown
  // on either thread.
  const Directory* next();

 private:
  using Directories = std::list<Directory>;

  void startWorker();
  void runWorker();
  // The first pending directory within the prefetch distance, or end().
  Directories::iterator findPending();
  // Lists a pending directory. Called with the lock held, which is released while the disk is read.
  void list(Directories::iterator directory, std::unique_lock<std::mutex>& lock);
  // The part of `list` without the lock: reads the names and appends the subfolders.
  void read(Directory& directory, Directories& subfolders) const;
  void removeFront();

  bool (*acceptFile_)(std::string_view name);
  SkipFolder skip_;

  std::mutex mutex_;  // guards the members below
  std::condition_variable frontListed_;
  std::condition_variable workAvailable_;
  Directories directories_;     // in the order of the walk, from the one last returned
  bool frontReturned_ = false;  // the walk is using the first of them
  bool workerIdle_ = false;
  int removedWhileIdle_ = 0;  // directories that the walk has finished since the worker became idle
  bool stopping_ = false;
  std::vector<std::unique_ptr<DirectoryLister>> freeListers_;  // for reuse: few allocations for a large tree
  std::thread worker_;                                         // touched only by the walk's thread
};

}  // namespace plimo
