#include "platform/windows/windows_files.h"

#include <utility>

namespace plimo {

WindowsFiles::WindowsFiles(std::vector<DriveRoot> drives) : fixedDrives_(std::move(drives)) {}

std::vector<Drive> WindowsFiles::drives() { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::currentDirectory() { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::join(std::string_view, std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::joinAlwaysSeparated(std::string_view, std::string_view) {
  throw RuntimeError(ErrorNumber::invalidCall);
}

std::string_view WindowsFiles::fileName(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::folderOf(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::holdsSeparator(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::caseSensitive() { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::sameFile(std::string_view, std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::isRootFolder(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::shortFilePath(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

std::string WindowsFiles::shortFolderPath(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::fileExists(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::folderExists(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

FolderContents WindowsFiles::contents(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::walk(std::string_view, int, const WalkVisitor&) { throw RuntimeError(ErrorNumber::invalidCall); }

std::uint64_t WindowsFiles::fileSize(std::string_view) { throw RuntimeError(ErrorNumber::invalidCall); }

std::unique_ptr<FileView> WindowsFiles::openForReading(std::string_view) {
  throw RuntimeError(ErrorNumber::invalidCall);
}

std::unique_ptr<FileReplacement> WindowsFiles::replaceFile(std::string_view, Force) {
  throw RuntimeError(ErrorNumber::invalidCall);
}

void WindowsFiles::deleteFile(std::string_view, Force) { throw RuntimeError(ErrorNumber::invalidCall); }

bool WindowsFiles::copyFile(std::string_view, std::string_view, bool, const CopyProgress&) {
  throw RuntimeError(ErrorNumber::invalidCall);
}

bool WindowsFiles::moveFile(std::string_view, std::string_view, Force) { throw RuntimeError(ErrorNumber::invalidCall); }

void WindowsFiles::removeLeftovers(std::string_view) {}

}  // namespace plimo
