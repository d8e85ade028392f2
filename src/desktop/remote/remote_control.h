// Lets other programs of the desktop show and control the player: its media keys, panels, telephones.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace plimo {

class PlaylistPlayer;

// What is controlled. The functions return at once.
struct RemoteHost {
  PlaylistPlayer& player;
  std::function<void()> raise;                               // shows the window in front
  std::function<void()> quit;                                // ends the program
  std::function<void(const std::string& path)> openAndPlay;  // a playlist or a song; an absolute path
};

// Controls the player from its construction to its destruction.
class RemoteControl {
 public:
  RemoteControl() = default;
  RemoteControl(const RemoteControl&) = delete;
  RemoteControl& operator=(const RemoteControl&) = delete;
  virtual ~RemoteControl() = default;
};

// Defined in the folder of each system. Null if the system or the session has no such control. Never waits for another
// program. Needs the application object; what the host refers to must outlive the result.
std::unique_ptr<RemoteControl> startRemoteControl(const RemoteHost& host);

}  // namespace plimo
