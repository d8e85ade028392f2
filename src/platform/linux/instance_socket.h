// Lets one program own a folder, and later ones send it a message.
//
// The owner listens on a Unix socket in the abstract namespace (unix(7)). Its name contains the user and the folder's
// device and inode. It is no file, and the system removes it with the process, so that nothing is left after a crash.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/unique_fd.h"
#include "platform/shared/folder_owner.h"

namespace plimo {

class InstanceSocket {
 public:
  // For an existing folder.
  explicit InstanceSocket(const std::string& folder);

  // Becomes the owner, until this object ends, or sends the message, of at most 64 KB, to the owner and waits for its
  // answer.
  Claim claim(std::string_view message, std::chrono::milliseconds patience);

  // Readable when a message has arrived; -1 if this program is not the owner.
  int fd() const { return listener_.get(); }
  // Takes a message and answers it; nullopt if there is none.
  std::optional<std::string> take();

 private:
  enum class Sent { answered, refused, timeout, impossible };
  bool listen();
  Sent send(std::string_view message, std::chrono::milliseconds patience) const;

  std::string name_;  // empty if the folder has none
  UniqueFd listener_;
};

}  // namespace plimo
