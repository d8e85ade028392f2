// The interface to what plays sound for the media player control.
#pragma once

#include <functional>
#include <string>

namespace plimo {

class MediaPlayer {
 public:
  MediaPlayer() = default;
  MediaPlayer(const MediaPlayer&) = delete;
  MediaPlayer& operator=(const MediaPlayer&) = delete;
  virtual ~MediaPlayer() = default;

  // Opens a song or an M3U playlist by its path and, if AutoStart is set, plays it from its start. Returns immediately;
  // what cannot be played is reported in the player's own strip, never thrown.
  virtual void open(const std::string& path) = 0;
  virtual void stop() = 0;
  // Sets the file-name property without opening it.
  virtual void setFileName(const std::string& name) = 0;
  // The current song's length and the play position, in seconds; 0 with nothing open.
  virtual double duration() = 0;
  virtual double currentPosition() = 0;

  virtual void setAutoStart(bool on) = 0;     // play once a file is opened
  virtual void setShowControls(bool on) = 0;  // show the transport buttons
  virtual void setEnabled(bool on) = 0;       // the user may use them

  // Raised once for each song opened, when its length is known; on the main thread.
  std::function<void()> newStream;
};

}  // namespace plimo
