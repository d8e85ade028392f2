// The platform that the program runs on, defined in one file for each operating system.
//
// Paths and arguments are byte strings, as the platform's files have them.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/launcher.h"
#include "platform/shared/folder_owner.h"
#include "platform/shared/start_message.h"

namespace plimo {

struct NamedDrive {
  char letter = 0;
  DriveType type = DriveType::fixed;
  std::string root;
};

// To be called first of all: makes the process safe and its output visible.
void prepareProcess();
// The program's name and its arguments, from those of main().
std::vector<std::string> commandLine(int count, char** words);
std::string fullPath(const std::string& path);
// The absolute path of a folder; nullopt if there is no such folder.
std::optional<std::string> absoluteFolder(const std::string& path);
// Makes the folder with its parents, and changes to it. Returns false and the reason if that fails.
bool enterFolder(const std::string& path, std::string& reason);
// The folder for the program's files if the user names none; empty for the current one.
std::string preferredFolder();

// The system's files; with exactly the named drives if there are any.
std::unique_ptr<FileSystemObject> nativeFiles(const std::vector<NamedDrive>& named);
std::unique_ptr<Launcher> nativeLauncher();

// The right to be the one program that runs in a folder.
class FolderOwnership {
 public:
  FolderOwnership() = default;
  FolderOwnership(const FolderOwnership&) = delete;
  FolderOwnership& operator=(const FolderOwnership&) = delete;
  virtual ~FolderOwnership() = default;
  // Takes the right until this object ends, or sends the message to the program that has it and waits for its answer,
  // at most for `patience`.
  virtual Claim claim(const StartMessage& message, std::chrono::milliseconds patience) = 0;
  // Called from the event loop with each message of a later program, which has its answer then.
  std::function<void(const StartMessage& message)> received;
};

// For the current folder. Needs the application object.
std::unique_ptr<FolderOwnership> nativeFolderOwnership();

// While the returned object exists, calls `requested` from the event loop if the system asks the program to end. Needs
// the application object.
std::shared_ptr<void> onTerminationRequest(std::function<void()> requested);

}  // namespace plimo
