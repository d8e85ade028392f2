// Contract tests: drives, paths, existence, listing, walking and reading.
#include "platform/file_contract.h"

namespace plimo {
namespace {

using Names = std::vector<std::string>;

bool isSong(std::string_view name) { return name.ends_with("mp3"); }

template <typename Backend>
class FileReadingContract : public FileContract<Backend> {
 protected:
  Names walked(const std::string& folder, int depth) {
    Names paths;
    this->files().walk(folder, depth, isSong, [&](std::string_view path) {
      paths.emplace_back(path);
      return true;
    });
    return paths;
  }
};

TYPED_TEST_SUITE(FileReadingContract, Backends);

TYPED_TEST(FileReadingContract, DrivesKeepTheirOrderTypeAndReadiness) {
  const auto drives = this->files().drives();
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_EQ(drives[0].letter, 'C');
  EXPECT_EQ(drives[0].type, DriveType::fixed);
  EXPECT_TRUE(drives[0].ready);
  EXPECT_EQ(drives[0].root, this->backend_.root());
  EXPECT_EQ(drives[1].letter, 'D');
  EXPECT_EQ(drives[1].type, DriveType::cdrom);
  EXPECT_FALSE(drives[1].ready);
}

TYPED_TEST(FileReadingContract, OnlyADrivesRootIsARootFolder) {
  auto& files = this->files();
  this->backend_.addFolder(this->at({"Music"}));
  EXPECT_TRUE(files.isRootFolder(this->backend_.root()));
  EXPECT_TRUE(files.isRootFolder(files.joinAlwaysSeparated(this->backend_.root(), "")));
  EXPECT_FALSE(files.isRootFolder(this->at({"Music"})));
  EXPECT_FALSE(files.isRootFolder(this->at({"missing"})));
  EXPECT_FALSE(files.isRootFolder(""));
}

TYPED_TEST(FileReadingContract, SplittingAPathReversesJoining) {
  auto& files = this->files();
  for (const std::string& folder : {this->backend_.root(), this->at({"a b"}), this->at({"a", "b"})}) {
    const std::string path = files.join(folder, "x.y.mp3");
    EXPECT_EQ(files.fileName(path), "x.y.mp3");
    EXPECT_EQ(files.folderOf(path), folder);
    EXPECT_EQ(files.join(files.folderOf(path), files.fileName(path)), path);
  }
  EXPECT_EQ(files.fileName("bare"), "bare");
  EXPECT_EQ(files.folderOf("bare"), "");
  EXPECT_EQ(files.join("", "bare"), "bare");
}

TYPED_TEST(FileReadingContract, ADoubledSeparatorRefersToTheSameFile) {
  auto& files = this->files();
  this->backend_.addFile(this->at({"winamp.exe"}), "x");
  const std::string doubled = files.joinAlwaysSeparated(files.join(this->backend_.root(), ""), "winamp.exe");
  EXPECT_TRUE(files.fileExists(doubled));
  EXPECT_TRUE(files.sameFile(doubled, this->at({"winamp.exe"})));
  EXPECT_FALSE(files.sameFile(doubled, this->at({"other.exe"})));
}

TYPED_TEST(FileReadingContract, AMissingFileIsTheSameAsItself) {
  EXPECT_TRUE(this->files().sameFile(this->at({"new.mp3"}), this->at({"new.mp3"})));
  EXPECT_FALSE(this->files().sameFile(this->at({"new.mp3"}), this->at({"old.mp3"})));
}

TYPED_TEST(FileReadingContract, FilesAndFoldersAreDistinguished) {
  auto& files = this->files();
  this->backend_.addFile(this->at({"Music", "a.mp3"}), "x");
  EXPECT_TRUE(files.fileExists(this->at({"Music", "a.mp3"})));
  EXPECT_FALSE(files.folderExists(this->at({"Music", "a.mp3"})));
  EXPECT_FALSE(files.fileExists(this->at({"Music"})));
  EXPECT_TRUE(files.folderExists(this->at({"Music"})));
  EXPECT_TRUE(files.folderExists(this->backend_.root()));
  EXPECT_FALSE(files.fileExists(this->at({"Music", "a.mp3", "b"})));
  EXPECT_FALSE(files.fileExists(files.join(this->at({"Music", "a.mp3"}), "")));
  EXPECT_FALSE(files.fileExists(""));
  EXPECT_FALSE(files.folderExists(files.drives()[1].root));
}

TYPED_TEST(FileReadingContract, ListingsAreSortedCaseInsensitively) {
  for (const char* name : {"b.txt", "a.txt", "C.txt", "_.txt", "Ä.txt", "Z.txt", "ä2.txt"}) {
    this->backend_.addFile(this->at({"f", name}), "");
  }
  for (const char* name : {"beta", "Alpha", "gamma"}) this->backend_.addFolder(this->at({"f", name}));
  const FolderContents contents = this->files().contents(this->at({"f"}));
  EXPECT_EQ(contents.files, (Names{"_.txt", "a.txt", "b.txt", "C.txt", "Z.txt", "Ä.txt", "ä2.txt"}));
  EXPECT_EQ(contents.folders, (Names{"Alpha", "beta", "gamma"}));
}

TYPED_TEST(FileReadingContract, EachListingFailureHasItsErrorNumber) {
  auto& files = this->files();
  this->backend_.addFile(this->at({"file"}), "");
  this->backend_.addFolder(this->at({"closed"}));
  this->backend_.makeFolderUnreadable(this->at({"closed"}));
  const auto listing = [&](const std::string& path) { return this->errorOf([&] { files.contents(path); }); };
  EXPECT_EQ(listing(this->at({"missing"})), 76);
  EXPECT_EQ(listing(this->at({"file"})), 76);
  EXPECT_EQ(listing(this->at({"closed"})), this->backend_.deniesAccess() ? 70 : 0);
  EXPECT_EQ(listing(files.drives()[1].root), 71);
  EXPECT_EQ(listing(files.join(files.drives()[1].root, "x")), 71);
}

TYPED_TEST(FileReadingContract, AWalkReportsAFoldersFilesBeforeItsSubfolders) {
  for (const auto& path : {this->at({"z.mp3"}), this->at({"B", "1.mp3"}), this->at({"a", "2.mp3"}),
                           this->at({"a", "b", "3.mp3"}), this->at({"a", "c.mp3"}), this->at({"A.txt"})}) {
    this->backend_.addFile(path, "");
  }
  EXPECT_EQ(this->walked(this->backend_.root(), 10),
            (Names{this->at({"z.mp3"}), this->at({"a", "2.mp3"}), this->at({"a", "c.mp3"}),
                   this->at({"a", "b", "3.mp3"}), this->at({"B", "1.mp3"})}));
}

TYPED_TEST(FileReadingContract, AWalkReachesTheTenthLevelAndNotTheEleventh) {
  std::string folder = this->backend_.root();
  for (int level = 1; level <= 11; ++level) {
    folder = this->files().join(folder, std::to_string(level));
    this->backend_.addFile(this->files().join(folder, "x.mp3"), "");
  }
  const Names paths = this->walked(this->backend_.root(), 10);
  ASSERT_EQ(paths.size(), 10U);
  EXPECT_EQ(paths.back(), this->at({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "x.mp3"}));
  EXPECT_EQ(this->walked(this->backend_.root(), 0), Names{});
  EXPECT_EQ(this->walked(this->backend_.root(), 1), Names{this->at({"1", "x.mp3"})});
}

TYPED_TEST(FileReadingContract, AWalkEndsWhenItsVisitorReturnsFalse) {
  for (const char* name : {"1.mp3", "2.mp3", "3.mp3"}) this->backend_.addFile(this->at({name}), "");
  int count = 0;
  EXPECT_FALSE(this->files().walk(this->backend_.root(), 10, isSong, [&](std::string_view) { return ++count < 2; }));
  EXPECT_EQ(count, 2);
  EXPECT_TRUE(this->files().walk(this->backend_.root(), 10, isSong, [](std::string_view) { return true; }));
}

TYPED_TEST(FileReadingContract, AWalkFailsAtAFolderThatCannotBeListed) {
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may read and write everything";
  this->backend_.addFile(this->at({"a", "1.mp3"}), "");
  this->backend_.addFile(this->at({"b", "2.mp3"}), "");
  this->backend_.addFile(this->at({"c", "3.mp3"}), "");
  this->backend_.makeFolderUnreadable(this->at({"b"}));
  Names paths;
  try {
    this->files().walk(this->backend_.root(), 10, isSong, [&](std::string_view path) {
      paths.emplace_back(path);
      return true;
    });
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::permissionDenied);
    EXPECT_EQ(error.path(), this->at({"b"}));
  }
  EXPECT_EQ(paths, Names{this->at({"a", "1.mp3"})});
  EXPECT_EQ(this->errorOf([&] { this->walked(this->files().drives()[1].root, 10); }), 71);
  EXPECT_EQ(this->errorOf([&] { this->walked(this->at({"missing"}), 10); }), 76);
}

TYPED_TEST(FileReadingContract, AVisitorCanSkipFoldersThatCannotBeListed) {
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may read and write everything";
  this->backend_.addFile(this->at({"a", "1.mp3"}), "");
  this->backend_.addFile(this->at({"a", "closed", "2.mp3"}), "");
  this->backend_.addFile(this->at({"b", "3.mp3"}), "");
  this->backend_.addFile(this->at({"c", "4.mp3"}), "");
  this->backend_.makeFolderUnreadable(this->at({"a", "closed"}));
  this->backend_.makeFolderUnreadable(this->at({"b"}));
  Names found;
  Names entered;
  Names unreadable;
  std::size_t skips = 0;  // before the walk is to fail
  WalkVisitor visitor;
  visitor.wanted = isSong;
  visitor.found = [&](std::string_view path) {
    found.emplace_back(path);
    return true;
  };
  visitor.entered = [&](std::string_view path) {
    entered.emplace_back(path);
    return true;
  };
  visitor.unreadable = [&](const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::permissionDenied);
    unreadable.push_back(error.path());
    return unreadable.size() <= skips;
  };
  skips = 2;
  EXPECT_TRUE(this->files().walk(this->backend_.root(), 10, visitor));
  EXPECT_EQ(found, (Names{this->at({"a", "1.mp3"}), this->at({"c", "4.mp3"})}));
  EXPECT_EQ(unreadable, (Names{this->at({"a", "closed"}), this->at({"b"})}));
  EXPECT_EQ(entered, (Names{this->backend_.root(), this->at({"a"}), this->at({"a", "closed"}), this->at({"b"}),
                            this->at({"c"})}));
  found.clear();
  unreadable.clear();
  skips = 1;
  EXPECT_EQ(this->errorOf([&] { this->files().walk(this->backend_.root(), 10, visitor); }), 70);
  EXPECT_EQ(found, Names{this->at({"a", "1.mp3"})});
  EXPECT_EQ(unreadable.size(), 2U);
}

TYPED_TEST(FileReadingContract, TheFirstFolderOfAWalkCanBeSkippedToo) {
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may read and write everything";
  this->backend_.addFolder(this->at({"closed"}));
  this->backend_.makeFolderUnreadable(this->at({"closed"}));
  bool skip = true;
  WalkVisitor visitor;
  visitor.wanted = isSong;
  visitor.found = [](std::string_view) { return true; };
  visitor.unreadable = [&](const RuntimeError&) { return skip; };
  EXPECT_TRUE(this->files().walk(this->at({"closed"}), 10, visitor));
  skip = false;
  EXPECT_EQ(this->errorOf([&] { this->files().walk(this->at({"closed"}), 10, visitor); }), 70);
}

// Its files may have been listed already, in advance.
TYPED_TEST(FileReadingContract, AFolderThatVanishesDuringAWalkIsNoError) {
  this->backend_.addFile(this->at({"a", "1.mp3"}), "");
  this->backend_.addFile(this->at({"b", "2.mp3"}), "");
  this->backend_.addFile(this->at({"c", "3.mp3"}), "");
  Names found;
  WalkVisitor visitor;
  visitor.wanted = isSong;
  visitor.found = [&](std::string_view path) {
    found.emplace_back(path);
    this->backend_.remove(this->at({"b"}));
    return true;
  };
  visitor.unreadable = [](const RuntimeError&) {
    ADD_FAILURE() << "a folder that is gone needs no question";
    return true;
  };
  EXPECT_TRUE(this->files().walk(this->backend_.root(), 10, visitor));
  EXPECT_EQ(found.front(), this->at({"a", "1.mp3"}));
  EXPECT_EQ(found.back(), this->at({"c", "3.mp3"}));
}

TYPED_TEST(FileReadingContract, AFileIsReadCompletely) {
  const std::string large(3 * 1024 * 1024 + 1, 'x');
  this->backend_.addFile(this->at({"large"}), large);
  const std::string small = std::string("a\r\nb") + '\0' + "c";
  this->backend_.addFile(this->at({"small"}), small);
  this->backend_.addFile(this->at({"empty"}), "");
  EXPECT_EQ(this->files().openForReading(this->at({"large"}))->bytes(), large);
  EXPECT_EQ(this->files().openForReading(this->at({"small"}))->bytes(), small);
  EXPECT_EQ(this->files().openForReading(this->at({"empty"}))->bytes(), "");
  EXPECT_EQ(this->files().fileSize(this->at({"large"})), large.size());
  EXPECT_EQ(this->files().fileSize(this->at({"empty"})), 0U);
}

TYPED_TEST(FileReadingContract, AnOpenViewOutlivesItsFile) {
  for (const std::size_t size : {std::size_t{10}, std::size_t{2 * 1024 * 1024}}) {
    const std::string path = this->at({"x"});
    this->backend_.addFile(path, std::string(size, 'o'));
    const auto view = this->files().openForReading(path);
    replaceWhole(this->files(), path, "new", Force::no);
    EXPECT_EQ(view->bytes(), std::string(size, 'o'));
    this->files().deleteFile(path, Force::no);
    EXPECT_EQ(view->bytes(), std::string(size, 'o'));
  }
}

TYPED_TEST(FileReadingContract, EachReadingFailureHasItsErrorNumber) {
  auto& files = this->files();
  this->backend_.addFile(this->at({"secret"}), "x");
  this->backend_.makeUnreadable(this->at({"secret"}));
  this->backend_.addFolder(this->at({"folder"}));
  const auto opening = [&](const std::string& path) { return this->errorOf([&] { files.openForReading(path); }); };
  EXPECT_EQ(opening(this->at({"missing"})), 53);
  EXPECT_EQ(opening(this->at({"missing", "x"})), 76);
  EXPECT_EQ(opening(this->at({"secret", "x"})), 76);
  EXPECT_EQ(opening(this->at({"secret"})), this->backend_.deniesAccess() ? 75 : 0);
  EXPECT_EQ(opening(this->at({"folder"})), 75);
  EXPECT_EQ(opening(files.join(files.drives()[1].root, "x")), 71);
  EXPECT_EQ(this->errorOf([&] { files.fileSize(this->at({"missing"})); }), 53);
  EXPECT_EQ(this->errorOf([&] { files.fileSize(this->at({"folder"})); }), 53);
  EXPECT_EQ(files.fileSize(this->at({"secret"})), 1U);
}

TYPED_TEST(FileReadingContract, FilesInAFolderThatCannotBeListedCanBeOpened) {
  this->backend_.addFile(this->at({"closed", "a.txt"}), "x");
  this->backend_.makeFolderUnreadable(this->at({"closed"}));
  EXPECT_TRUE(this->files().fileExists(this->at({"closed", "a.txt"})));
  EXPECT_EQ(this->files().openForReading(this->at({"closed", "a.txt"}))->bytes(), "x");
  replaceWhole(this->files(), this->at({"closed", "a.txt"}), "new", Force::no);
  EXPECT_EQ(this->backend_.content(this->at({"closed", "a.txt"})), "new");
}

TYPED_TEST(FileReadingContract, ShortPathsReferToTheSameFiles) {
  auto& files = this->files();
  const std::string song = this->at({"My Music", "Dancing Queen.mp3"});
  this->backend_.addFile(song, "x");
  const std::string shortSong = files.shortFilePath(song);
  EXPECT_TRUE(files.sameFile(shortSong, song));
  EXPECT_EQ(files.openForReading(shortSong)->bytes(), "x");
  EXPECT_TRUE(files.folderExists(files.shortFolderPath(this->at({"My Music"}))));
  EXPECT_TRUE(files.sameFile(files.shortFolderPath(this->backend_.root()), this->backend_.root()));
  EXPECT_EQ(this->errorOf([&] { files.shortFilePath(this->at({"missing"})); }), 53);
  EXPECT_EQ(this->errorOf([&] { files.shortFilePath(this->at({"My Music"})); }), 53);
  EXPECT_EQ(this->errorOf([&] { files.shortFolderPath(this->at({"missing"})); }), 76);
  EXPECT_EQ(this->errorOf([&] { files.shortFolderPath(song); }), 76);
}

}  // namespace
}  // namespace plimo
