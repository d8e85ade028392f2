// The desktop program.
#include <QApplication>
#include <QMessageBox>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "app/program.h"
#include "desktop/shell/desktop.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "main/native.h"
#include "platform/mpv/m3u_entries.h"

namespace {

constexpr const char* helpText =
    "Usage: plimo [OPTION...]\n"
    "Sort MP3 files by artist, build playlists and play them.\n"
    "\n"
    "  --folder DIR                   keep the program's files in DIR (made if missing), not in the current folder\n"
    "  --drive LETTER=FOLDER[:KIND]   have exactly the drives named; KIND is fixed (the default), cdrom, removable,\n"
    "                                 network or ramdisk; may be given again and again\n"
    "  --help                         show this text and exit\n"
    "  --version                      show the version and exit\n";

struct Options {
  std::filesystem::path folder;
  std::vector<plimo::NamedDrive> drives;
};

std::optional<plimo::DriveType> kindOf(std::string_view word) {
  if (word == "fixed") return plimo::DriveType::fixed;
  if (word == "cdrom") return plimo::DriveType::cdrom;
  if (word == "removable") return plimo::DriveType::removable;
  if (word == "network") return plimo::DriveType::network;
  if (word == "ramdisk") return plimo::DriveType::ramdisk;
  return std::nullopt;
}

// "D=/mnt/music:removable". Nothing where it is not to be understood.
std::optional<plimo::NamedDrive> driveOf(std::string_view text) {
  if (text.size() < 3 || text[1] != '=') return std::nullopt;
  plimo::NamedDrive drive;
  drive.letter = text[0];
  if (drive.letter >= 'a' && drive.letter <= 'z') drive.letter = static_cast<char>(drive.letter - 'a' + 'A');
  if (drive.letter < 'A' || drive.letter > 'Z') return std::nullopt;
  std::string_view root = text.substr(2);
  if (const std::size_t colon = root.rfind(':'); colon != std::string_view::npos) {
    if (const auto kind = kindOf(root.substr(colon + 1))) {
      drive.type = *kind;
      root = root.substr(0, colon);
    }
  }
  std::error_code failed;
  const std::filesystem::path folder = std::filesystem::absolute(plimo::nativePath(root), failed).lexically_normal();
  if (root.empty() || failed) return std::nullopt;
  drive.root = folder.has_filename() || folder == folder.root_path() ? folder.string() : folder.parent_path().string();
  return drive;
}

// An exit status where the program is not to run: after --help and --version, or for a mistake.
std::optional<int> readOptions(int count, char** words, Options& options) {
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    const bool hasValue = i + 1 < count;
    if (word == "--help") {
      std::fputs(helpText, stdout);
      return 0;
    }
    if (word == "--version") {
      std::puts("plimo " PLIMO_VERSION);
      return 0;
    }
    if (word == "--folder" && hasValue) {
      options.folder = plimo::nativePath(words[++i]);
      continue;
    }
    if (word == "--drive" && hasValue) {
      const auto drive = driveOf(words[++i]);
      if (drive) {
        options.drives.push_back(*drive);
        continue;
      }
      std::fprintf(stderr, "plimo: not a drive: %s\n", words[i]);
      return 2;
    }
    std::fprintf(stderr, "plimo: not understood: %s\n\n%s", words[i], helpText);
    return 2;
  }
  return std::nullopt;
}

// False, with the reason, where the folder cannot be entered.
bool enter(const std::filesystem::path& folder, std::string& reason) {
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  std::filesystem::current_path(folder, failed);
  if (failed) reason = folder.string() + ": " + failed.message();
  return !failed;
}

}  // namespace

int main(int count, char** words) {
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  Options options;
  // Before the application object, so that --help and --version need no display.
  if (const auto status = readOptions(count, words, options)) return *status;
  QApplication application(count, words);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  QApplication::setApplicationName(QString::fromUtf8(plimo::programName));
  QApplication::setDesktopFileName(QStringLiteral("plimo"));
  QApplication::setQuitOnLastWindowClosed(false);
  plimo::installTheme(application);
  QIcon icon(QStringLiteral(":/art/plimo.svg"));
  icon.addFile(QStringLiteral(":/art/plimo-small.svg"), QSize(16, 16));
  QApplication::setWindowIcon(icon);

  std::string reason;
  if (!options.folder.empty() && !enter(options.folder, reason)) {
    QMessageBox::critical(nullptr, QString::fromUtf8(plimo::programName), plimo::qstring(reason));
    return 1;
  }
  const auto files = plimo::nativeFiles(options.drives);
  const auto launcher = plimo::nativeLauncher();
  plimo::Desktop desktop(*files, *launcher);
  return desktop.run();
}
