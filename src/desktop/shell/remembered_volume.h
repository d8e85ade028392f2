// The player's volume and mute, remembered in a file of the window's own.
#pragma once

#include <QString>
#include <QTimer>
#include <memory>

namespace plimo {

class PlaylistPlayer;

class RememberedVolume {
 public:
  // Sets the player to what the file says; a damaged or missing file changes nothing. From then on each change is
  // written, a moment after it was made. That the file cannot be written is no error.
  RememberedVolume(PlaylistPlayer& player, const QString& file);
  ~RememberedVolume();
  RememberedVolume(const RememberedVolume&) = delete;
  RememberedVolume& operator=(const RememberedVolume&) = delete;

 private:
  void read();
  void write();

  PlaylistPlayer& player_;
  QString file_;
  int volume_ = 0;  // as in the file
  bool muted_ = false;
  QTimer delay_;
  std::shared_ptr<void> observation_;
};

}  // namespace plimo
