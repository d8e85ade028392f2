// Lists the directories of a walk ahead of it, on a second thread.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
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
  // threads at once.
  virtual std::shared_ptr<void> read(PrefetchedDirectory& directory) const = 0;
};

// Yields the directories of a tree in depth-first (pre-)order. Whichever thread is idle, the walk's or the worker,
// lists the first directory that nobody has begun; what a listing gives, its errors included, becomes visible only when
// the walk reaches the directory.
//
// This is read-ahead (prefetching) on directories. The kernel reads ahead only within files, so without it each folder
// that is not cached costs the walk a whole access to the disk. With a warm cache it still shares the system calls and
// the sorting between two processors.
class DirectoryPrefetcher {
 public:
  using Directory = PrefetchedDirectory;

  // `separator` is what stands between the components of a path.
  DirectoryPrefetcher(std::string_view folder, int depth, char separator, const DirectoryReader& reader);
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

  char separator_;
  const DirectoryReader& reader_;

  std::mutex mutex_;  // guards the members below
  std::condition_variable frontListed_;
  std::condition_variable workAvailable_;
  Directories directories_;     // in the order of the walk, from the one last returned
  bool frontReturned_ = false;  // the walk is using the first of them
  bool workerIdle_ = false;
  int removedWhileIdle_ = 0;  // directories that the walk has finished since the worker became idle
  bool stopping_ = false;
  std::vector<std::unique_ptr<ListedNames>> freeNames_;  // for reuse: few allocations for a large tree
  std::thread worker_;                                   // touched only by the walk's thread
};

}  // namespace plimo
