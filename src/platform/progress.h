// Shows the user how far a long command is, and lets them cancel it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace plimo {

enum class Task { scan, copy, deletion };

struct ProgressUpdate {
  std::size_t done = 0;     // scan: songs found so far; else the number of the current file, from 1
  std::size_t total = 0;    // files; 0 if it is not known
  std::string_view name;    // scan: the current folder; else the current file
  std::uint64_t bytes = 0;  // of the current file, copied so far
  std::uint64_t size = 0;   // of the current file, in bytes
};

class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  virtual ~Progress() = default;

  // Tasks do not nest.
  virtual void begin(Task task) = 0;
  // Cheap enough to be called for each file: it paints at most ten times a second.
  virtual void update(const ProgressUpdate& update) = 0;
  virtual void end() = 0;
  // True once the user has cancelled the current task. Only a scan can be cancelled.
  virtual bool cancelled() const = 0;
};

// Begins a task and ends it, however the command is left.
class ProgressScope {
 public:
  ProgressScope(Progress& progress, Task task) : progress_(progress) { progress_.begin(task); }
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;
  ~ProgressScope() { progress_.end(); }

  // False once the user has cancelled.
  bool update(const ProgressUpdate& update) {
    progress_.update(update);
    return !progress_.cancelled();
  }

 private:
  Progress& progress_;
};

}  // namespace plimo
