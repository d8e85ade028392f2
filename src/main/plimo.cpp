// The desktop program.
#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "desktop/shell/desktop.h"
#include "desktop/shell/responsive_files.h"
#include "desktop/theme/art.h"
#include "desktop/theme/strings.h"
#include "desktop/theme/theme.h"
#include "main/native.h"

namespace {

// How long the program that runs in the folder already may take to answer.
constexpr std::chrono::seconds patienceWithOther(5);

struct Options {
  std::string folder;  // empty: the current one
  std::vector<plimo::NamedDrive> drives;
  plimo::OpenRequest open;  // at start
};

std::optional<plimo::DriveType> kindOf(std::string_view name) {
  if (name == "fixed") return plimo::DriveType::fixed;
  if (name == "cdrom") return plimo::DriveType::cdrom;
  if (name == "removable") return plimo::DriveType::removable;
  if (name == "network") return plimo::DriveType::network;
  if (name == "ramdisk") return plimo::DriveType::ramdisk;
  return std::nullopt;
}

// Reads "D=/mnt/music:removable"; nullopt, and the reason, if it is not of this form or there is no such folder.
std::optional<plimo::NamedDrive> driveOf(const std::string& text, std::string& reason) {
  reason = "'" + text + "' is not of the form LETTER=FOLDER[:KIND].";
  if (text.size() < 3 || text[1] != '=') return std::nullopt;
  plimo::NamedDrive drive;
  drive.letter = text[0];
  if (drive.letter >= 'a' && drive.letter <= 'z') drive.letter = static_cast<char>(drive.letter - 'a' + 'A');
  if (drive.letter < 'A' || drive.letter > 'Z') return std::nullopt;
  std::string_view root = std::string_view(text).substr(2);
  if (const std::size_t colon = root.rfind(':'); colon != std::string_view::npos) {
    if (const auto kind = kindOf(root.substr(colon + 1))) {
      drive.type = *kind;
      root = root.substr(0, colon);
    }
  }
  if (root.empty()) return std::nullopt;
  const auto folder = plimo::absoluteFolder(std::string(root));
  if (!folder) {
    const std::size_t colon = root.rfind(':');
    const bool mistyped = colon != std::string_view::npos && plimo::absoluteFolder(std::string(root.substr(0, colon)));
    reason = mistyped ? "'" + std::string(root.substr(colon + 1)) +
                            "' is no kind of drive: fixed, cdrom, removable, network or ramdisk."
                      : "There is no folder '" + std::string(root) + "' for the drive " + drive.letter + ".";
    return std::nullopt;
  }
  drive.root = *folder;
  return drive;
}

// The parser takes characters, but names in the file system are bytes: Latin-1 keeps every one of them.
QString argumentOf(const char* bytes) { return QString::fromLatin1(bytes); }
std::string bytesOf(const QString& argument) { return argument.toLatin1().toStdString(); }

int fail(const QString& message) {
  std::fprintf(stderr, "plimo: %s\nTry 'plimo --help'.\n", bytesOf(message).c_str());
  return 2;
}

// Returns an exit status if the program is not to run: after --help and --version, or if an argument is wrong.
std::optional<int> readOptions(const std::vector<std::string>& words, Options& options) {
  const QCommandLineOption folder(QStringLiteral("folder"),
                                  QStringLiteral("Keep the program's files in DIR (made if missing), not in the "
                                                 "current folder."),
                                  QStringLiteral("DIR"));
  const QCommandLineOption drive(QStringLiteral("drive"),
                                 QStringLiteral("Have exactly the drives given; may be repeated. KIND is fixed (the "
                                                "default), cdrom, removable, network or ramdisk."),
                                 QStringLiteral("LETTER=FOLDER[:KIND]"));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Show this text and exit."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Show the version and exit."));
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Sort MP3 files by artist, build playlists and play them."));
  parser.addOptions({folder, drive, help, version});
  parser.addPositionalArgument(QStringLiteral("playlist"),
                               QStringLiteral("A playlist to be opened; of several files, the first playlist."),
                               QStringLiteral("[PLAYLIST.m3u...]"));

  QStringList arguments;
  for (const std::string& word : words) arguments << argumentOf(word.c_str());
  if (!parser.parse(arguments)) return fail(parser.errorText());
  if (parser.isSet(help)) {
    // The parser takes the program's name from an application object; this one needs no display.
    char name[] = "plimo";
    char* named[] = {name, nullptr};
    int one = 1;
    const QCoreApplication application(one, named);
    std::fputs(bytesOf(parser.helpText()).c_str(), stdout);
    return 0;
  }
  if (parser.isSet(version)) {
    std::puts("plimo " PLIMO_VERSION);
    return 0;
  }
  for (const QCommandLineOption* option : {&folder, &drive}) {
    const QStringList values = parser.values(*option);
    const auto missing = [](const QString& value) { return value.isEmpty() || value.startsWith(QLatin1String("--")); };
    if (std::any_of(values.begin(), values.end(), missing)) {
      return fail(QStringLiteral("The value of '--%1' is missing.").arg(option->names().constFirst()));
    }
  }
  std::vector<std::string> files;
  for (const QString& file : parser.positionalArguments()) files.push_back(plimo::fullPath(bytesOf(file)));
  options.open = plimo::requestToOpen(files);
  for (const QString& value : parser.values(drive)) {
    std::string reason;
    const auto named = driveOf(bytesOf(value), reason);
    if (!named) return fail(argumentOf(reason.c_str()));
    options.drives.push_back(*named);
  }
  options.folder = bytesOf(parser.value(folder));
  if (options.folder.empty()) options.folder = plimo::preferredFolder();
  return std::nullopt;
}

}  // namespace

int main(int count, char** words) {
  plimo::prepareProcess();
  QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  Options options;
  // Before the application object: --help and --version need no display.
  if (const auto status = readOptions(plimo::commandLine(count, words), options)) return *status;
  // Qt removes it from the environment when it is used.
  const std::string activationToken = qgetenv("XDG_ACTIVATION_TOKEN").toStdString();
  QApplication application(count, words);
  std::setlocale(LC_NUMERIC, "C");  // libmpv reads and writes numbers
  QApplication::setApplicationName(QString::fromUtf8(plimo::programName));
  QApplication::setDesktopFileName(QStringLiteral("plimo"));
  QApplication::setQuitOnLastWindowClosed(false);
  plimo::installTheme(application);
  // After the window has usually been painted, because all sizes of the icon have to be decoded.
  constexpr std::chrono::milliseconds iconDelay(300);
  QTimer::singleShot(iconDelay, &application, [] { QApplication::setWindowIcon(plimo::programIcon()); });

  std::string reason;
  if (!options.folder.empty() && !plimo::enterFolder(options.folder, reason)) {
    QMessageBox::critical(nullptr, QString::fromUtf8(plimo::programName), plimo::qstring(reason));
    return 1;
  }
  // Two programs in one folder would overwrite each other's catalogue and settings.
  const auto ownership = plimo::nativeFolderOwnership();
  const plimo::StartMessage message{activationToken, options.open.file, options.open.others};
  switch (ownership->claim(message, patienceWithOther)) {
    case plimo::Claim::granted:
      break;
    case plimo::Claim::handedOver:
      return 0;
    case plimo::Claim::noAnswer:
      if (!plimo::DesktopDialogs::askToStartBesideAnother()) return 1;
      ownership->claim(message, std::chrono::milliseconds(0));  // the other one may have ended meanwhile
  }

  plimo::ResponsiveFiles files(plimo::nativeFiles(options.drives));
  const auto launcher = plimo::nativeLauncher();
  for (;;) {
    plimo::Desktop desktop(files, *launcher, options.open);
    files.waiting = [&desktop](std::chrono::milliseconds since) { return desktop.waitForDisk(since); };
    files.waited = [&desktop] { desktop.diskAnswered(); };
    files.background = [&desktop](const std::function<void()>& work) { desktop.runInBackground(work); };
    const auto watch = plimo::onTerminationRequest([&desktop] { desktop.requestEnd(); });
    ownership->received = [&desktop](const plimo::StartMessage& start) {
      desktop.raise(start.token);
      desktop.open({start.file, start.others});
    };
    const int status = desktop.run();
    ownership->received = nullptr;
    files.waiting = nullptr;
    files.waited = nullptr;
    files.background = nullptr;
    if (!desktop.startsAnew()) return status;
  }
}
