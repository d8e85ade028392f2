// Every command that changes files on the disk, with the files that it starts from. The tests that let the machine fail
// in the middle of a command go through all of them.
#pragma once

#include <map>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "platform/file_system_object.h"
#include "support/test_session.h"

namespace plimo {

// The folders of a sample, which must differ. The machine needs a drive M whose root is `music`.
struct SampleFolders {
  std::string home;    // the program's
  std::string music;   // with songs in two subfolders
  std::string target;  // of copies
  std::string winamp;  // with winamp.exe
};

// Contents by path.
using FileContents = std::map<std::string, std::string>;

struct WritingCommand {
  using Action = void (*)(TestSession& session, const SampleFolders& folders);

  const char* name;  // lower case, with hyphens
  // Starts the program and prepares everything up to the click that writes.
  Action prepare;
  // What the user does then. After each of them the files are at rest; the next one does nothing if this one failed.
  std::vector<Action> actions;
  // A scan deletes the catalogue first, so it may be missing after a failure.
  bool scans = false;
  const char* drives = "";  // to scan, as the settings file has them
  bool scanAtStart = false;
  // Songs are copied, so their size matters.
  bool copies = false;
  // No file can be renamed from one folder's name to another, as between two file systems.
  bool withoutMoves = false;
};

std::span<const WritingCommand> writingCommands();
inline std::ostream& operator<<(std::ostream& stream, const WritingCommand& command) { return stream << command.name; }

// All files before the command. The largest song has about `largestSong` bytes.
FileContents sampleFiles(FileSystemObject& files, const SampleFolders& folders, const WritingCommand& command,
                         std::size_t largestSong);

// What may be on the disk when a command has been stopped at any point.
struct PermittedFiles {
  FileContents before;
  std::vector<FileContents> moments;  // after each action of a run without failures
  bool catalogueMayBeMissing = false;
};

// What is wrong with the files on the disk.
struct Damage {
  std::vector<std::string> torn;  // paths whose content, or absence, is neither old nor new
  std::vector<std::string> lost;  // songs whose content is nowhere any more, although the command keeps it
  bool none() const { return torn.empty() && lost.empty(); }
};

// Ignores temporary files.
Damage damageOf(const FileContents& now, const PermittedFiles& permitted);

// True for the temporary files of the program, by the last component of their path.
bool isTemporaryFile(const std::string& path);

// True for settings as they are while the colour editor is open, without the colours. Only a program that is killed
// then leaves such a file, and the next start offers to put it aside.
bool areEditorSettings(const std::string& settings);

// Without the files whose deletion may fail silently, because they have no effect if they remain.
FileContents essentialFiles(FileContents contents);

// Everything that was shown to the user.
std::string shownBy(TestSession& session);

// The program starts again with the files as they are.
enum class NextStart {
  running,
  runningWithoutFile,  // after the question whether to start without a damaged file
  refused
};
NextStart startAgain(FileSystemObject& files);

}  // namespace plimo
