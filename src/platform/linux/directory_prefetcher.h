// The folders of a walk, listed ahead of it by a second thread.
#pragma once

#include <condition_variable>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/linux/directory_lister.h"
#include "platform/linux/unique_fd.h"

namespace plimo {

// Hands out a tree's folders depth first. Reading folders takes most of a walk's time and can be shared: whoever is
// free, the walk or the queue's own thread, lists the first folder that nobody has begun. What a folder's listing
// gives, errors too, is seen only when the walk comes to it.
class DirectoryPrefetcher {
 public:
  struct Folder {
    std::string path;
    std::size_t nameAt = 0;                  // of its own name, in the path
    std::shared_ptr<const UniqueFd> parent;  // null for the walk's first folder
    int depth = 0;                           // levels of subfolders wanted below it

    enum class State { waiting, begun, listed };
    State state = State::waiting;
    int openError = 0;  // errno; 0: none
    int readError = 0;
    std::unique_ptr<DirectoryLister> names;  // none where it was not opened
  };

  // True for a subfolder that is to be left out; asked on both threads.
  using Passed = std::function<bool(std::string_view folder, std::string_view name)>;

  // `wanted` is called on both threads.
  DirectoryPrefetcher(std::string_view folder, int depth, bool (*wanted)(std::string_view name), Passed passed);
  DirectoryPrefetcher(const DirectoryPrefetcher&) = delete;
  DirectoryPrefetcher& operator=(const DirectoryPrefetcher&) = delete;
  ~DirectoryPrefetcher();

  // The next folder, listed; null behind the last one. It stays until the next call.
  const Folder* next();

 private:
  using Folders = std::list<Folder>;

  void workAhead();
  void beginWorkAhead();
  // The first folder that nobody has begun, or the end where there is none, or none is near enough.
  Folders::iterator firstWaiting();
  // Lists a folder that is waiting. Called with the lock held, which is given back while the disk is read.
  void list(Folders::iterator folder, std::unique_lock<std::mutex>& lock);
  // What is done without the lock: reads the names and gives the subfolders.
  void read(Folder& folder, Folders& inside) const;
  void removeFirst();

  bool (*wanted_)(std::string_view name);
  Passed passed_;

  std::mutex mutex_;  // guards all below
  std::condition_variable listed_;
  std::condition_variable nearer_;
  Folders folders_;           // depth first, from the one that the walk is in
  bool inFirst_ = false;      // the walk is in the first of the folders
  bool threadWaits_ = false;  // for folders near enough
  int left_ = 0;              // folders that the walk has left meanwhile
  bool ending_ = false;
  std::vector<std::unique_ptr<DirectoryLister>> spare_;  // kept, so that a large tree costs few allocations
  std::thread thread_;                                   // the walk's alone
};

}  // namespace plimo
