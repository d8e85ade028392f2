// Lists the directories of a walk ahead of it, on other threads.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/shared/listed_names.h"

namespace plimo {

struct PrefetchedDirectory {
  std::string path;
  std::size_t nameOffset = 0;    // of its own name, in the path
  std::shared_ptr<void> parent;  // what reading the parent has returned; null for the walk's first directory
  int depth = 0;                 // levels of subfolders wanted below it

  enum class State { pending, listing, listed };
  State state = State::pending;
  std::uint32_t openError = 0;  // the system's error code; 0: none
  std::uint32_t readError = 0;
  std::exception_ptr failure;          // of the thread that listed it; rethrown to the walk
  std::unique_ptr<ListedNames> names;  // null until it is listed
};

// Reads directories for the prefetcher; implemented for each operating system.
class DirectoryReader {
 public:
  DirectoryReader() = default;
  DirectoryReader(const DirectoryReader&) = delete;
  DirectoryReader& operator=(const DirectoryReader&) = delete;
  virtual ~DirectoryReader() = default;

  // Reads the names, without the folders that the walk leaves out, or sets one of the errors. What it returns is kept
  // as the `parent` of the subfolders until they have been read: an open directory, for example, or null. Called on two
  // threads at once, also after the prefetcher is destroyed.
  virtual std::shared_ptr<void> read(PrefetchedDirectory& directory) const = 0;
};

// Yields the directories of a tree in depth-first (pre-)order. Two worker threads list the first directories that
// nobody has begun; what a listing gives, its errors included, becomes visible only when the walk reaches the
// directory.
//
// This is read-ahead (prefetching) on directories. The kernel reads ahead only within files, so without it each folder
// that is not cached costs the walk a whole access to the disk. With a warm cache it still shares the system calls and
// the sorting between two processors.
//
// The thread of the walk makes no system call that a disk can hold up, so it stays responsive if a network mount does
// not answer. Nothing waits for a worker that is held up: it owns a share of all that it uses, and ends when the call
// returns, or with the process.
class DirectoryPrefetcher {
 public:
  using Directory = PrefetchedDirectory;

  // Called about every 40 ms while `next` waits for a directory, with its path; false gives up. May be empty.
  using Waiting = std::function<bool(std::string_view folder)>;

  // `separator` is what separates the components of a path.
  DirectoryPrefetcher(std::string_view folder, int depth, char separator,
                      std::shared_ptr<const DirectoryReader> reader);
  DirectoryPrefetcher(const DirectoryPrefetcher&) = delete;
  DirectoryPrefetcher& operator=(const DirectoryPrefetcher&) = delete;
  ~DirectoryPrefetcher();

  // The next directory, listed; null after the last one, and if `waiting` has given up. Valid until the next call.
  // Throws what listing it has thrown, and what `waiting` throws.
  const Directory* next(const Waiting& waiting = {});
  bool gaveUp() const { return gaveUp_; }

 private:
  // Shared by the walk and the workers.
  class Queue;

  void startWorkers();
  // False if `waiting` gives up.
  bool waitForFront(std::unique_lock<std::mutex>& lock, const Waiting& waiting);

  std::shared_ptr<Queue> queue_;
  int workers_ = 0;
  bool noThreads_ = false;      // the system refuses threads: the walk lists every directory itself
  bool frontReturned_ = false;  // the walk is using the first directory
  bool gaveUp_ = false;
};

}  // namespace plimo
