// Lets one program own a folder, and later ones send it a message.
//
// The owner has a mutex and a hidden window whose names contain the folder's volume and file number. The system removes
// both with the process, so that nothing is left after a crash.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "platform/shared/folder_owner.h"
#include "platform/windows/unique_handle.h"

namespace plimo {

class InstanceWindow {
 public:
  // For an existing folder.
  explicit InstanceWindow(const std::string& folder);
  InstanceWindow(const InstanceWindow&) = delete;
  InstanceWindow& operator=(const InstanceWindow&) = delete;
  ~InstanceWindow();

  // Becomes the owner, until this object ends, or sends the message to the owner and waits for its answer.
  Claim claim(std::string_view message, std::chrono::milliseconds patience);

  // Called on this thread with each message that has arrived, while it dispatches window messages. The sender waits
  // until it returns.
  std::function<void(std::string message)> received;

 private:
  bool own();
  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM wide, LPARAM data);

  std::wstring name_;  // empty if the folder has none
  UniqueHandle mutex_;
  HWND window_ = nullptr;
};

}  // namespace plimo
