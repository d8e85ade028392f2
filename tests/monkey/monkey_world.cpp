#include "monkey/monkey_world.h"

#include <array>

#include "catalogue/song_name.h"
#include "monkey/whole_files.h"
#include "support/sample_settings.h"

namespace plimo {

namespace {

const std::string home = R"(C:\Plimo\)";
constexpr std::array folders{R"(C:\Music\)", R"(C:\Music\Albums\)", R"(D:\Stick\)"};
constexpr std::array names{"Alder - Ash.mp3",   "Alder - Birch.mp3",  "alder - ash.MP3",   "Beech - Fir.Mp3",
                           "Cypress.mp3",       "Alder - Ash.m3u",    "thesis.odt",        "- Nobody.mp3",
                           "A - B - C - D.mp3", "Ulmus \xC3\xA9.mp3", "Quote \" - It.mp3", "Comma, - It.mp3"};

}  // namespace

MonkeyWorld::MonkeyWorld(FakeFileSystem& files) : files_(files) {
  files_.addDrive('D', DriveType::removable);
  files_.addDrive('E', DriveType::cdrom, false);
  for (const char* folder : folders) {
    for (const char* name : names) files_.addTextFile(std::string(folder) + name, std::string(folder) + name);
  }
  files_.addTextFile(R"(C:\Winamp\winamp.exe)", "winamp");
  takeInventory();
}

void MonkeyWorld::writeStateFile(const std::string& name, const std::string& content) {
  files_.addTextFile(home + name, content);
  foreign_[name] = content;
}

void MonkeyWorld::disturb(const Choose& choose) {
  constexpr std::array stateFiles{"plimo.ini", "plimo.kvx", "path.kvx", "list.m3u", "default.m3u"};
  constexpr std::array errors{ErrorNumber::diskFull,     ErrorNumber::permissionDenied, ErrorNumber::pathFileAccess,
                              ErrorNumber::diskNotReady, ErrorNumber::fileNotFound,     ErrorNumber::pathNotFound};
  const std::string song = std::string(folders[choose(folders.size())]) + names[choose(names.size())];
  const std::string state = stateFiles[choose(stateFiles.size())];
  switch (choose(10)) {
    case 0:
      files_.failAt(1 + choose(12), errors[choose(errors.size())]);
      break;
    case 1:
      files_.setDiskFull('C', choose(2) == 0);
      break;
    case 2:
      files_.setReady('D', choose(2) == 0);
      break;
    case 3:
      files_.remove(song);
      break;
    case 4:
      files_.addTextFile(song, "new " + std::to_string(choose(1000)), {.readOnly = choose(2) == 0});
      break;
    case 5:
      files_.remove(home + state);
      foreign_.erase(state);
      break;
    case 6: {  // cut short
      const std::string content = files_.fileContent(home + state).value_or("");
      writeStateFile(state, content.substr(0, choose(content.size() + 1)));
      break;
    }
    case 7:
      writeStateFile(state, "garbage, \"" + std::to_string(choose(1000)));
      break;
    case 8:
      files_.addFolder(R"(C:\Music\Albums)", {.unreadable = choose(2) == 0});
      break;
    default:
      repair();
      break;
  }
  takeInventory();
}

void MonkeyWorld::repair() {
  files_.failAt(0, ErrorNumber::diskFull);
  files_.setDiskFull('C', false);
  files_.setReady('D', true);
  files_.addFolder(R"(C:\Music\Albums)");
  for (const auto& [name, content] : foreign_) {
    if (files_.fileContent(home + name) != content) continue;
    if (name == "plimo.ini") {
      files_.addTextFile(home + name, settingsText({false, false, "C:"}));
    } else {
      files_.remove(home + name);
    }
  }
  foreign_.clear();
}

void MonkeyWorld::takeInventory() {
  std::map<std::string, std::string> found;
  for (const char* folder : folders) {
    if (!files_.folderExists(folder)) continue;
    for (const auto& [path, content] : userFiles_) {
      if (const auto present = files_.fileContent(path)) found[path] = *present;
    }
    for (const char* name : names) {
      const std::string path = std::string(folder) + name;
      if (const auto present = files_.fileContent(path)) found[path] = *present;
    }
  }
  userFiles_ = std::move(found);
}

std::string MonkeyWorld::lostFile(const NamedByUser& named) const {
  std::set<std::string> contents;
  for (const auto& [path, content] : userFiles_) {
    if (const auto present = files_.fileContent(path)) contents.insert(*present);
  }
  for (const char* folder : folders) {
    for (const char* name : names) contents.insert(files_.fileContent(std::string(folder) + name).value_or(""));
  }
  std::size_t replaced = 0;
  for (const auto& [path, content] : userFiles_) {
    if (files_.fileContent(path) == content) continue;
    if (named.deletes && isSongFile(path)) continue;
    if (named.saves && (files_.sameFile(path, *named.saves) || files_.sameFile(path, *named.saves + ".m3u"))) continue;
    if (named.renames && contents.contains(content)) continue;  // it has moved
    // A rename may replace one file, which the user has been warned of.
    if (!named.renames || ++replaced > 1) return path;
  }
  return {};
}

std::string MonkeyWorld::damagedStateFile(bool editing) {
  // A full disk can prevent that the editor's last save completes the settings.
  const auto settings = files_.fileContent(home + "plimo.ini");
  if (editing && settings) unfinishedSettings_ = *settings;
  if (settings && *settings == unfinishedSettings_) editing = true;
  const auto isWhole = [&](const std::string& name, const std::string& content) {
    if (name == "plimo.ini") return isWholeSettings(content, editing);
    return name == "plimo.kvx" ? isWholeCatalogue(content) : isWholeText(content);
  };
  for (const char* name : {"plimo.ini", "plimo.kvx", "path.kvx", "list.m3u", "default.m3u"}) {
    const auto content = files_.fileContent(home + name);
    const auto foreign = foreign_.find(name);
    if (!content || (foreign != foreign_.end() && foreign->second == *content)) continue;
    if (!isWhole(name, *content)) return name;
  }
  return {};
}

std::string MonkeyWorld::violation(const NamedByUser& named, bool editing) {
  if (const std::string path = lostFile(named); !path.empty()) return "lost the file " + path;
  if (const std::string name = damagedStateFile(editing); !name.empty()) return "the state file is not whole: " + name;
  takeInventory();
  return {};
}

}  // namespace plimo
