#include "support/writing_commands.h"

#include <algorithm>
#include <array>

#include "base/quoted_format.h"
#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "playlists/m3u.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"
#include "support/sample_settings.h"
#include "window/drive_rows.h"

namespace plimo {

namespace {

using Session = TestSession;
using Folders = SampleFolders;

constexpr std::string_view temporaryPrefix = ".plimo-";

void start(Session& session, const Folders&) { session.program.start(); }

void startWithScratchPlaylist(Session& session, const Folders& folders) {
  start(session, folders);
  session.form().Command13.userClick();
}

void startWithFinalPlaylist(Session& session, const Folders& folders) {
  startWithScratchPlaylist(session, folders);
  session.form().Command8.userClick();
}

void startWithFirstSong(Session& session, const Folders& folders) {
  startWithScratchPlaylist(session, folders);
  session.form().List1.userMoveCurrent(0);
}

void openPreferences(Session& session, const Folders& folders) {
  start(session, folders);
  session.form().Preferences.userClick();
}

void chooseEditor(Session& session, const Folders& folders) {
  openPreferences(session, folders);
  session.form().Check6.userClick();
}

void chooseWinamp(Session& session, const Folders& folders) {
  openPreferences(session, folders);
  session.form().Check3.userClick();
}

void acceptSettings(Session& session, const Folders&) { session.form().Command5.userClick(); }

void openEditor(Session& session, const Folders& folders) {
  chooseEditor(session, folders);
  acceptSettings(session, folders);
}

void acceptColours(Session& session, const Folders&) {
  Form1& form = session.form();
  if (!form.fromsettings) return;
  form.Option1.userClick();
  form.Check1.userClick();
  form.Slider1.userDrag(9);
  form.accept.userClick();
}

void cancelColours(Session& session, const Folders&) {
  if (session.form().fromsettings) session.form().cancel.userClick();
}

void save(Session& session, const std::string& file, std::initializer_list<bool> answers) {
  session.dialogs.file = file;
  session.dialogs.answers = answers;
  session.form().Command4.userClick();
}

void rename(Session& session, const std::string& name) {
  session.dialogs.inputText = name;
  session.form().rename.userClick();
}

// Every path is its folder and its name in either machine's notation.
std::string pathOf(const std::string& folder, const std::string& name) {
  return folder + (folder.find('\\') == std::string::npos ? "/" : "\\") + name;
}

const WritingCommand commands[] = {
    {.name = "save",
     .prepare = startWithFinalPlaylist,
     .actions = {[](Session& session, const Folders& folders) {
       save(session, pathOf(folders.home, "saved.m3u"), {false, true});
     }}},
    {.name = "save-new", .prepare = startWithFinalPlaylist, .actions = {[](Session& session, const Folders& folders) {
                                                              save(session, pathOf(folders.target, "evening"), {false});
                                                            }}},
    {.name = "save-default",
     .prepare = startWithFinalPlaylist,
     .actions = {[](Session& session, const Folders& folders) {
       save(session, pathOf(folders.home, "saved.m3u"), {true, true});
     }}},
    {.name = "accept",
     .prepare =
         [](Session& session, const Folders& folders) {
           openPreferences(session, folders);
           session.form().Check5.userClick();
         },
     .actions = {acceptSettings}},
    {.name = "accept-scan",
     .prepare =
         [](Session& session, const Folders& folders) {
           openPreferences(session, folders);
           ListBox& drives = session.form().List5;
           for (std::size_t row = 0; row < drives.count(); ++row) {
             drives.userTick(row, driveLetterOf(drives.text(row)) == "M");
           }
         },
     .actions = {acceptSettings},
     .scans = true},
    {.name = "accept-colours", .prepare = chooseEditor, .actions = {acceptSettings, acceptColours}},
    {.name = "cancel-colours", .prepare = chooseEditor, .actions = {acceptSettings, cancelColours}},
    {.name = "close-colours", .prepare = openEditor, .actions = {[](Session& session, const Folders&) {
                                                       session.form().userClose();
                                                     }}},
    {.name = "accept-winamp",
     .prepare =
         [](Session& session, const Folders& folders) {
           chooseWinamp(session, folders);
           session.form().Dir1.userPick(folders.winamp);
         },
     .actions = {acceptSettings}},
    {.name = "lose-winamp",
     .prepare =
         [](Session& session, const Folders& folders) {
           chooseWinamp(session, folders);
           session.form().Dir1.userPick(folders.target);
         },
     .actions = {acceptSettings}},
    {.name = "scan",
     .prepare =
         [](Session& session, const Folders& folders) {
           start(session, folders);
           session.form().Option5.setValue(true);
         },
     .actions = {[](Session& session, const Folders&) { session.form().Scan.userClick(); }},
     .scans = true,
     .drives = "M:"},
    {.name = "scan-other",
     .prepare =
         [](Session& session, const Folders& folders) {
           start(session, folders);
           session.form().sodf.userClick();
           session.form().List7.userSelectAll();
         },
     .actions = {[](Session& session, const Folders&) { session.form().Command17.userClick(); }},
     .scans = true},
    {.name = "start-scan",
     .prepare = [](Session&, const Folders&) {},
     .actions = {start},
     .scans = true,
     .drives = "M:",
     .scanAtStart = true},
    {.name = "play", .prepare = startWithFinalPlaylist, .actions = {[](Session& session, const Folders&) {
                                                          session.form().Picture7.userClick();
                                                        }}},
    {.name = "rename", .prepare = startWithFirstSong, .actions = {[](Session& session, const Folders&) {
                                                        rename(session, "New - Name");
                                                      }}},
    {.name = "rename-over", .prepare = startWithFirstSong, .actions = {[](Session& session, const Folders&) {
                                                             rename(session, "Abba - Song 2");
                                                           }}},
    {.name = "rename-by-copy",
     .prepare = startWithFirstSong,
     .actions = {[](Session& session, const Folders&) { rename(session, "New - Name"); }},
     .copies = true,
     .withoutMoves = true},
    {.name = "rename-over-by-copy",
     .prepare = startWithFirstSong,
     .actions = {[](Session& session, const Folders&) { rename(session, "Abba - Song 2"); }},
     .copies = true,
     .withoutMoves = true},
    {.name = "delete",
     .prepare =
         [](Session& session, const Folders& folders) {
           startWithScratchPlaylist(session, folders);
           const std::array<std::size_t, 2> rows{0, 1};
           session.form().List1.userSelect(rows);
         },
     .actions = {[](Session& session, const Folders&) {
       session.dialogs.yesAnswers = 1;  // sure, and no scan
       session.form().ds.userClick();
     }}},
    {.name = "copy",
     .prepare =
         [](Session& session, const Folders& folders) {
           startWithScratchPlaylist(session, folders);
           session.form().List1.userSelectAll();
           session.form().cop.userClick();
           session.form().Dir2.userPick(folders.target);
         },
     .actions = {[](Session& session, const Folders&) { session.form().Command6.userClick(); }},
     .copies = true},
};

std::optional<std::string> contentIn(const FileContents& files, const std::string& path) {
  const auto file = files.find(path);
  return file == files.end() ? std::nullopt : std::optional(file->second);
}

bool hasName(const std::string& path, std::string_view name) { return path.ends_with(name); }

bool isSong(const std::string& path) { return path.ends_with(".mp3"); }

bool holdsSong(const FileContents& files, const std::string& content) {
  return std::any_of(files.begin(), files.end(),
                     [&](const auto& file) { return isSong(file.first) && file.second == content; });
}

}  // namespace

std::span<const WritingCommand> writingCommands() { return commands; }

FileContents sampleFiles(FileSystemObject& files, const SampleFolders& folders, const WritingCommand& command,
                         std::size_t largestSong) {
  FileContents sample;
  std::string catalogue;
  const auto addSong = [&](const std::string& folder, const std::string& name, std::size_t size) {
    std::string path = files.join(files.join(folders.music, folder), name);
    std::string content;
    while (content.size() < size) content += path + '\n';
    sample[path] = content;
    return path;
  };
  for (const char* name : {"Abba - Song 1.mp3", "Abba - Song 2.mp3", "Abba - Large.mp3"}) {
    const std::string path = addSong("a", name, name == std::string_view("Abba - Large.mp3") ? largestSong : 500);
    const SongName parts = splitFileName(name);
    appendRecord(catalogue, {path, parts.artist, parts.second, parts.title});
  }
  addSong("b", "Zz Top - Not yet scanned.mp3", 300);
  sample[files.join(folders.home, settingsName)] = settingsText({false, command.scanAtStart, command.drives});
  sample[files.join(folders.home, catalogueName)] = catalogue;
  for (const std::string_view name : {std::string_view("saved.m3u"), defaultPlaylistName, playQueueName}) {
    sample[files.join(folders.home, name)] = "an older playlist\r\n";
  }
  writeText(sample[files.join(folders.home, winampPathName)], files.join(folders.target, "winamp.exe"));
  sample[files.join(folders.winamp, "winamp.exe")] = "a program";
  const std::string present = files.join(folders.target, "Abba - Song 2.mp3");
  sample[present] = "a song that is there already";
  return sample;
}

bool isTemporaryFile(const std::string& path) {
  const std::size_t name = path.find_last_of("\\/") + 1;
  return path.compare(name, temporaryPrefix.size(), temporaryPrefix) == 0 ||
         path.compare(name, std::string::npos, temporarySettingsName) == 0;
}

bool areEditorSettings(const std::string& settings) { return std::count(settings.begin(), settings.end(), '\n') == 6; }

Damage damageOf(const FileContents& now, const PermittedFiles& permitted) {
  Damage damage;
  FileContents all = now;
  all.insert(permitted.before.begin(), permitted.before.end());
  for (const FileContents& moment : permitted.moments) all.insert(moment.begin(), moment.end());
  for (const auto& [path, ignored] : all) {
    if (isTemporaryFile(path)) continue;
    const std::optional<std::string> content = contentIn(now, path);
    if (content == contentIn(permitted.before, path)) continue;
    if (std::any_of(permitted.moments.begin(), permitted.moments.end(),
                    [&, &file = path](const FileContents& moment) { return content == contentIn(moment, file); })) {
      continue;
    }
    if (!content && permitted.catalogueMayBeMissing && hasName(path, catalogueName)) continue;
    damage.torn.push_back(path);
  }
  for (const auto& [path, content] : permitted.before) {
    const bool kept = isSong(path) && holdsSong(permitted.moments.back(), content);
    if (kept && !holdsSong(now, content)) damage.lost.push_back(path);
  }
  return damage;
}

FileContents essentialFiles(FileContents contents) {
  std::erase_if(contents,
                [](const auto& file) { return isTemporaryFile(file.first) || hasName(file.first, winampPathName); });
  return contents;
}

std::string shownBy(TestSession& session) {
  std::string text = session.program.running() ? session.form().status() : "ended";
  for (const auto* shown : {&session.dialogs.messages, &session.dialogs.reports, &session.dialogs.questions}) {
    for (const std::string& one : *shown) text += "\n" + one;
  }
  return text;
}

NextStart startAgain(FileSystemObject& files) {
  bool withoutFile = false;
  for (int attempt = 0; attempt < 4; ++attempt) {  // a file may be put aside for each of the state files
    TestSession session(files);
    session.dialogs.startAnew = true;
    session.program.start();
    // Without settings, the main window comes after the splash window.
    if (session.program.running() && !session.form().loaded()) session.program.splash().Timer1.elapsed();
    if (session.program.running()) {
      if (!session.dialogs.reports.empty()) return NextStart::refused;
      return withoutFile ? NextStart::runningWithoutFile : NextStart::running;
    }
    if (!session.program.startsAnew()) return NextStart::refused;
    withoutFile = true;
  }
  return NextStart::refused;
}

}  // namespace plimo
