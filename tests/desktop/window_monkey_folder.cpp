#include "desktop/window_monkey_folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "catalogue/song_name.h"
#include "monkey/whole_files.h"
#include "support/sample_settings.h"

namespace plimo {

namespace {

namespace fs = std::filesystem;

bool isStateFile(const std::string& name) {
  return name == "plimo.ini" || name == "plimo-window.ini" || name == "plimo2.ini" || name == "plimo.kvx" ||
         name == "path.kvx" || name == "list.m3u" || name == "default.m3u";
}

bool isPlaylist(const std::string& path) { return path.ends_with(".m3u"); }

}  // namespace

WindowMonkeyFolder::WindowMonkeyFolder(bool withSettings) {
  int number = 0;
  for (const std::string& where : {music() + "/", music() + "/albums/", stick() + "/"}) {
    makeFolders(where);
    for (const char* name : {"Alder - Ash.mp3", "Alder - Birch.mp3", "alder - Oak.MP3", "Beech - Fir.Mp3",
                             "Cypress.mp3", "thesis.odt", "- Nobody.mp3", "A - B - C - D.mp3", "Ulmus \xC3\xA9.mp3"}) {
      writeFile(where + name, "file " + std::to_string(++number));
    }
  }
  makeFolders(home());
  fs::current_path(home());
  if (withSettings) writeFile(home() + "/plimo.ini", settingsText({false, true, "M:"}));
  before_ = contents();
}

std::map<std::string, std::string> WindowMonkeyFolder::contents() const {
  std::map<std::string, std::string> found;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root())) {
    if (!entry.is_regular_file()) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    found[entry.path()] = std::string(std::istreambuf_iterator<char>(stream), {});
  }
  return found;
}

std::string WindowMonkeyFolder::lostFile(const std::map<std::string, std::string>& now,
                                         const NamedInWindow& named) const {
  std::multiset<std::string> contents;
  for (const auto& [path, content] : now) contents.insert(content);
  std::size_t replaced = 0;
  for (const auto& [path, content] : before_) {
    const fs::path file(path);
    if (file.parent_path() == home() && isStateFile(file.filename())) continue;
    const auto present = now.find(path);
    if (present != now.end() && present->second == content) continue;
    if (named.deletes && isSongFile(path)) continue;
    if (named.saves.contains(path)) continue;
    if (named.renames && contents.contains(content)) continue;  // it has moved
    // A rename may replace one file, which the user has been warned of.
    if (!named.renames || ++replaced > 1) return path;
  }
  return {};
}

std::string WindowMonkeyFolder::violation(const NamedInWindow& named, bool editing) {
  std::map<std::string, std::string> now = contents();
  if (const std::string path = lostFile(now, named); !path.empty()) return "lost the file " + path;
  for (const auto& [path, content] : now) {
    const fs::path file(path);
    const bool own = file.parent_path() == home();
    bool whole = true;
    if (own && file.filename() == "plimo.ini") {
      if (editing) unfinishedSettings_ = content;
      whole = isWholeSettings(content, editing || content == unfinishedSettings_);
    } else if (own && file.filename() == "plimo.kvx") {
      whole = isWholeCatalogue(content);
    } else if (isPlaylist(path) || (own && file.filename() == "path.kvx")) {
      whole = isWholeText(content);
    }
    if (!whole) return "the file is not whole: " + path;
    if (path.find(".plimo-") != std::string::npos) return "a temporary file is left: " + path;
  }
  before_ = std::move(now);
  return {};
}

FencedFiles::FencedFiles(const WindowMonkeyFolder& folder)
    : LinuxFiles(
          {DriveRoot{'M', DriveType::fixed, folder.music()}, DriveRoot{'S', DriveType::removable, folder.stick()}}),
      fence_(folder.root() + "/") {}

void FencedFiles::check(std::string_view path) const {
  const std::string absolute = fs::absolute(std::string(path)).lexically_normal();
  if (!absolute.starts_with(fence_)) throw RuntimeError(ErrorNumber::permissionDenied, std::string(path));
}

std::unique_ptr<FileReplacement> FencedFiles::replaceFile(std::string_view path, Force force) {
  check(path);
  return LinuxFiles::replaceFile(path, force);
}

void FencedFiles::deleteFile(std::string_view path, Force force) {
  check(path);
  LinuxFiles::deleteFile(path, force);
}

bool FencedFiles::copyFile(std::string_view from, std::string_view to, bool overwrite, const CopyProgress& progress) {
  check(to);
  return LinuxFiles::copyFile(from, to, overwrite, progress);
}

bool FencedFiles::moveFile(std::string_view from, std::string_view to, Force force) {
  check(from);
  check(to);
  return LinuxFiles::moveFile(from, to, force);
}

void FencedFiles::removeLeftovers(std::string_view folder) {
  if ((std::string(folder) + "/").starts_with(fence_)) LinuxFiles::removeLeftovers(folder);
}

}  // namespace plimo
