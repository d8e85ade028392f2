// Lets the window live while one of the program's own handlers is at work.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace plimo {

// How far a copy is.
struct CopyProgress {
  std::size_t file = 0;  // from 1
  std::size_t files = 0;
  std::uint64_t bytes = 0;  // of this file, so far
  std::uint64_t size = 0;
  std::string_view name;
};

class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  virtual ~Progress() = default;

  // Paints what has changed and lets the given time pass; nothing that the user does gets through.
  virtual void pause(std::chrono::milliseconds time) = 0;

  // A scan's panel appears, hears of each song, and goes. `scanned` is called once per song found (and may be called
  // between songs with the same count) and is cheap: it paints at most ten times a second. It returns false once the
  // user has pressed Cancel. `folder` is where the scan is.
  virtual void scanBegins() = 0;
  virtual bool scanned(std::size_t songs, std::string_view folder) = 0;
  virtual void scanEnds() = 0;

  // A long copy or delete: paints at most ten times a second.
  virtual void copied(const CopyProgress& progress) = 0;
  virtual void deleted(std::size_t file, std::size_t files) = 0;
  virtual void workEnds() = 0;
};

}  // namespace plimo
