// A thread with a message loop that plays songs.
#pragma once

#include <functional>
#include <memory>
#include <thread>

#include "platform/directshow/playback.h"

namespace plimo {

class PlaybackThread {
 public:
  // `wake` is called on that thread after each new event.
  explicit PlaybackThread(std::function<void()> wake);
  PlaybackThread(const PlaybackThread&) = delete;
  PlaybackThread& operator=(const PlaybackThread&) = delete;
  // Waits briefly for the thread. If it hangs in a file that does not answer, it is left alone.
  ~PlaybackThread();

  // Waits until the thread has started; false if there is no DirectShow.
  bool start();
  // Queues a command for the thread.
  void post(std::function<void(Playback&)> command);
  // Takes the next event; false if there are no more.
  bool takeEvent(SongEngine::Event& event);

 private:
  struct Shared;

  std::shared_ptr<Shared> shared_;
  std::thread thread_;
};

}  // namespace plimo
