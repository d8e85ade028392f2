// The platform that the program runs on, defined in one file for each operating system.
//
// Paths and arguments are byte strings, as the platform's files have them.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "platform/launcher.h"

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

// While the returned object exists, calls `requested` from the event loop if the system asks the program to end. Needs
// the application object.
std::shared_ptr<void> onTerminationRequest(std::function<void()> requested);

}  // namespace plimo
