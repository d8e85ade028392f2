// A catalogue of a real tree has the same bytes as that of the same tree in memory.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>

#include "catalogue/catalogue_reader.h"
#include "catalogue/song_name.h"
#include "platform/memory/fake_file_system.h"
#include "platform/windows/native_path.h"
#include "platform/windows/windows_files.h"
#include "support/sample_library.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

namespace plimo {
namespace {

bool isSong(std::string_view name) { return name.ends_with("mp3") || name.ends_with("MP3") || name.ends_with("Mp3"); }

std::string catalogueOf(FileSystemObject& files, const std::string& root) {
  std::string catalogue;
  files.walk(root, 10, isSong, [&](std::string_view path) {
    const SongName name = splitFileName(files.fileName(path));
    appendRecord(catalogue, {path, name.artist, name.second, name.title});
    return true;
  });
  return catalogue;
}

TEST(WindowsCatalogue, HasTheSameBytesAsTheOneOfTheSameTreeInMemory) {
  const TemporaryFolder folder;
  FakeFileSystem memory;
  WindowsFiles files(std::vector<DriveRoot>{{'C', DriveType::fixed, folder.path()}});
  const SampleLibrary library{400, 40};
  const auto add = [&](const std::string& name) {
    if (!canBeNamed(name.substr(name.rfind('/') + 1))) return;
    writeFile(folder / name, "");
    memory.addFile(folder / name);
  };
  for (std::size_t song = 0; song < library.songs; ++song) {
    std::string name = songFileName(library, song);
    for (char& letter : name) letter = letter == '"' ? '\'' : letter;
    add("music" + folderPath(library.folderOf(song)) + "/" + name);
  }
  for (const char* name :
       {"music/_x.mp3", "music/\u00E4 - b.mp3", "music/\u00C4 - a.mp3", "music/Z.mp3", "music/~a/1.mp3",
        "music/[b]/1.mp3", "music/\u4E2D/\U0001F3B5.mp3", "music/\u00DF.mp3", "music/SS.mp3", "music/I\u0307.mp3",
        "music/a.mp3 ", "music/A - \xED\xA0\xBD.mp3", "music/A - \uFF21.mp3"}) {
    add(name);
  }
  const std::string catalogue = catalogueOf(files, folder / "music");
  EXPECT_GT(catalogue.size(), 10000U);
  EXPECT_TRUE(catalogue == catalogueOf(memory, folder / "music"));
}

}  // namespace
}  // namespace plimo
