// Contract tests: replacing, deleting and copying.
#include "platform/file_contract.h"

namespace plimo {
namespace {

using Names = std::vector<std::string>;

template <typename Backend>
class FileWritingContract : public FileContract<Backend> {
 protected:
  int replacing(const std::string& path, Force force = Force::no) {
    return this->errorOf([&] { replaceWhole(this->files(), path, "new", force); });
  }
  int deleting(const std::string& path, Force force = Force::no) {
    return this->errorOf([&] { this->files().deleteFile(path, force); });
  }
  int copying(const std::string& from, const std::string& to, bool overwrite) {
    return this->errorOf([&] { this->files().copyFile(from, to, overwrite); });
  }
};

TYPED_TEST_SUITE(FileWritingContract, Backends);

TYPED_TEST(FileWritingContract, ANewFileIsVisibleOnlyAfterTheCommit) {
  const std::string path = this->at({"f", "new.m3u"});
  this->backend_.addFolder(this->at({"f"}));
  {
    const auto replacement = this->files().replaceFile(path, Force::no);
    replacement->write("one");
    EXPECT_FALSE(this->files().fileExists(path));
    replacement->write(std::string(700 * 1024, 'x'));
    replacement->write("two");
    EXPECT_FALSE(this->files().fileExists(path));
    replacement->commit();
  }
  EXPECT_EQ(this->backend_.content(path), "one" + std::string(700 * 1024, 'x') + "two");
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"new.m3u"});
}

TYPED_TEST(FileWritingContract, WithoutACommitTheOldFileRemainsAndNothingIsLeft) {
  const std::string path = this->at({"f", "list.m3u"});
  this->backend_.addFile(path, "old");
  {
    const auto replacement = this->files().replaceFile(path, Force::no);
    replacement->write(std::string(1024 * 1024, 'x'));
    EXPECT_EQ(this->backend_.content(path), "old");
  }
  EXPECT_EQ(this->backend_.content(path), "old");
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"list.m3u"});
  { this->files().replaceFile(this->at({"f", "other"}), Force::no)->write("x"); }
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"list.m3u"});
}

TYPED_TEST(FileWritingContract, AReplacementMayBeEmpty) {
  const std::string path = this->at({"f", "list.m3u"});
  this->backend_.addFile(path, "old");
  this->files().replaceFile(path, Force::no)->commit();
  EXPECT_EQ(this->backend_.content(path), "");
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"list.m3u"});
}

TYPED_TEST(FileWritingContract, AReadOnlyFileIsReplacedOnlyWithForce) {
  const std::string path = this->at({"plimo.ini"});
  this->backend_.addFile(path, "old");
  this->backend_.makeReadOnly(path);
  EXPECT_EQ(this->replacing(path), 75);
  EXPECT_EQ(this->backend_.content(path), "old");
  EXPECT_EQ(this->replacing(path, Force::yes), 0);
  EXPECT_EQ(this->backend_.content(path), "new");
  EXPECT_EQ(this->replacing(path), 0) << "a forced file is writable afterwards";
}

TYPED_TEST(FileWritingContract, EachReplacingFailureHasItsErrorNumber) {
  this->backend_.addFile(this->at({"locked", "old"}), "old");
  this->backend_.makeFolderUnwritable(this->at({"locked"}));
  this->backend_.addFile(this->at({"file"}), "");
  EXPECT_EQ(this->replacing(this->at({"missing", "x"})), 76);
  EXPECT_EQ(this->replacing(this->at({"file", "x"})), 76);
  EXPECT_EQ(this->replacing(this->at({"locked"})), 75);
  EXPECT_EQ(this->replacing(this->files().join(this->files().drives()[1].root, "x")), 71);
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may write everything";
  EXPECT_EQ(this->replacing(this->at({"locked", "x"})), 75);
  EXPECT_EQ(this->replacing(this->at({"locked", "old"}), Force::yes), 75);
  EXPECT_EQ(this->backend_.content(this->at({"locked", "old"})), "old");
  EXPECT_EQ(this->namesIn(this->at({"locked"})), Names{"old"});
}

TYPED_TEST(FileWritingContract, AFullDiskKeepsTheOldFile) {
  std::string failure;
  const bool shown = this->backend_.onFullDisk(
      [this](FileSystemObject& files, const std::string& folder) -> std::string {
        const std::string old = files.join(folder, "old");
        const FolderContents before = files.contents(folder);
        if (this->errorOf([&] { replaceWhole(files, old, "much longer than before", Force::no); }) != 61) {
          return "replacing: not 61";
        }
        if (this->errorOf([&] { replaceWhole(files, files.join(folder, "other"), "x", Force::no); }) != 61) {
          return "a new file: not 61";
        }
        if (this->errorOf([&] { files.copyFile(old, files.join(folder, "copy"), false); }) != 61) {
          return "copying: not 61";
        }
        if (files.openForReading(old)->bytes() != "old") return "the old content is lost";
        return files.contents(folder).files == before.files ? "" : "something is left behind";
      },
      failure);
  if (!shown) GTEST_SKIP() << "a small disk cannot be mounted here";
  EXPECT_EQ(failure, "");
}

TYPED_TEST(FileWritingContract, AFileIsDeleted) {
  this->backend_.addFile(this->at({"f", "a"}), "x");
  this->backend_.addFile(this->at({"f", "b"}), "x");
  EXPECT_EQ(this->deleting(this->at({"f", "a"})), 0);
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"b"});
}

TYPED_TEST(FileWritingContract, EachDeletingFailureHasItsErrorNumber) {
  this->backend_.addFile(this->at({"closed", "a"}), "x");
  this->backend_.makeFolderUnwritable(this->at({"closed"}));
  EXPECT_EQ(this->deleting(this->at({"missing"})), 53);
  EXPECT_EQ(this->deleting(this->at({"missing", "x"})), 53);
  EXPECT_EQ(this->deleting(this->at({"closed"})), 53);
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may write everything";
  EXPECT_EQ(this->deleting(this->at({"closed", "a"})), 70);
  EXPECT_EQ(this->deleting(this->at({"closed", "a"}), Force::yes), 70);
  EXPECT_TRUE(this->files().fileExists(this->at({"closed", "a"})));
}

TYPED_TEST(FileWritingContract, AReadOnlyFileIsDeletedOnlyWithForce) {
  const std::string path = this->at({"song.mp3"});
  this->backend_.addFile(path, "x");
  this->backend_.makeReadOnly(path);
  EXPECT_EQ(this->deleting(path), 70);
  EXPECT_TRUE(this->files().fileExists(path));
  EXPECT_EQ(this->deleting(path, Force::yes), 0);
  EXPECT_FALSE(this->files().fileExists(path));
}

TYPED_TEST(FileWritingContract, ACopyIsCompleteAndReportsItsProgress) {
  const std::string content(20 * 1024 * 1024 + 3, 'y');
  this->backend_.addFile(this->at({"a.mp3"}), content);
  this->backend_.addFolder(this->at({"f"}));
  std::uint64_t last = 0;
  this->files().copyFile(this->at({"a.mp3"}), this->at({"f", "b.mp3"}), false,
                         [&](std::uint64_t copied, std::uint64_t size) {
                           EXPECT_GE(copied, last);
                           EXPECT_EQ(size, content.size());
                           EXPECT_FALSE(this->files().fileExists(this->at({"f", "b.mp3"})));
                           last = copied;
                           return true;
                         });
  EXPECT_EQ(last, content.size());
  EXPECT_TRUE(this->backend_.content(this->at({"f", "b.mp3"})) == content);
  EXPECT_TRUE(this->backend_.content(this->at({"a.mp3"})) == content);
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"b.mp3"});
}

TYPED_TEST(FileWritingContract, ACancelledCopyLeavesNothing) {
  this->backend_.addFile(this->at({"a.mp3"}), "x");
  this->backend_.addFolder(this->at({"f"}));
  EXPECT_FALSE(this->files().copyFile(this->at({"a.mp3"}), this->at({"f", "b.mp3"}), false,
                                      [](std::uint64_t, std::uint64_t) { return false; }));
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{});
  EXPECT_THROW(this->files().copyFile(this->at({"a.mp3"}), this->at({"f", "b.mp3"}), false,
                                      [](std::uint64_t, std::uint64_t) -> bool { throw 1; }),
               int);
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{});
}

TYPED_TEST(FileWritingContract, AMoveReplacesItsTarget) {
  this->backend_.addFile(this->at({"f", "a.mp3"}), "new");
  this->backend_.addFile(this->at({"f", "b.mp3"}), "old");
  EXPECT_TRUE(this->files().moveFile(this->at({"f", "a.mp3"}), this->at({"f", "b.mp3"})));
  EXPECT_EQ(this->backend_.content(this->at({"f", "b.mp3"})), "new");
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"b.mp3"});
}

TYPED_TEST(FileWritingContract, AMoveFailsAsACopyDoes) {
  this->backend_.addFile(this->at({"f", "a.mp3"}), "x");
  this->backend_.addFolder(this->at({"f", "b.mp3"}));
  const auto moving = [this](const std::string& from, const std::string& to) {
    try {
      this->files().moveFile(from, to);
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  };
  EXPECT_EQ(moving(this->at({"f", "gone.mp3"}), this->at({"f", "c.mp3"})), 53);
  EXPECT_EQ(moving(this->at({"f", "a.mp3"}), this->at({"f", "b.mp3"})), 70);
  EXPECT_EQ(moving(this->at({"f", "a.mp3"}), this->at({"f", "a.mp3"})), 70);
  EXPECT_EQ(moving(this->at({"f", "a.mp3"}), this->at({"none", "c.mp3"})), 76);
  EXPECT_EQ(this->backend_.content(this->at({"f", "a.mp3"})), "x");
}

TYPED_TEST(FileWritingContract, AMoveThatPermissionsForbidChangesNothing) {
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may read and write everything";
  this->backend_.addFile(this->at({"f", "a.mp3"}), "a");
  this->backend_.addFile(this->at({"f", "fixed.mp3"}), "fixed");
  this->backend_.makeReadOnly(this->at({"f", "fixed.mp3"}));
  this->backend_.addFile(this->at({"f", "secret.mp3"}), "s");
  this->backend_.makeUnreadable(this->at({"f", "secret.mp3"}));
  this->backend_.addFile(this->at({"closed", "b.mp3"}), "b");
  this->backend_.makeFolderUnwritable(this->at({"closed"}));
  const auto moving = [this](const std::string& from, const std::string& to) {
    return this->errorOf([&] { this->files().moveFile(from, to); });
  };
  EXPECT_EQ(moving(this->at({"f", "a.mp3"}), this->at({"f", "fixed.mp3"})), 70);
  EXPECT_EQ(moving(this->at({"f", "secret.mp3"}), this->at({"f", "c.mp3"})), 70);
  EXPECT_EQ(moving(this->at({"closed", "b.mp3"}), this->at({"closed", "c.mp3"})), 70);
  EXPECT_EQ(moving(this->at({"f", "a.mp3"}), this->at({"closed", "c.mp3"})), 70);
  EXPECT_FALSE(this->files().moveFile(this->at({"f", "fixed.mp3"}), this->at({"f", "c.mp3"}))) << "it stays read-only";
  EXPECT_EQ(this->namesIn(this->at({"f"})), (Names{"a.mp3", "fixed.mp3", "secret.mp3"}));
  EXPECT_EQ(this->namesIn(this->at({"closed"})), Names{"b.mp3"});
  EXPECT_EQ(this->backend_.content(this->at({"f", "fixed.mp3"})), "fixed");
}

TYPED_TEST(FileWritingContract, AnOwnFileIsForced) {
  const std::string path = this->at({"plimo.ini"});
  this->backend_.addFile(path, "old");
  this->backend_.makeReadOnly(path);
  EXPECT_EQ(this->replacing(path, Force::own), 0);
  EXPECT_EQ(this->backend_.content(path), "new");
  EXPECT_EQ(this->replacing(path), 0) << "a forced file is writable afterwards";
}

TYPED_TEST(FileWritingContract, ADestinationThatVanishesDuringACopyIsAnError) {
  this->backend_.addFile(this->at({"a.mp3"}), std::string(3 * 1024 * 1024, 'x'));
  for (const bool overwrite : {false, true}) {
    this->backend_.addFolder(this->at({"f"}));
    const int error = this->errorOf([&] {
      this->files().copyFile(this->at({"a.mp3"}), this->at({"f", "b.mp3"}), overwrite,
                             [this](std::uint64_t, std::uint64_t) {
                               this->backend_.remove(this->at({"f"}));
                               return true;
                             });
    });
    // Some systems do not remove a folder in which a file is being written.
    const bool remains = this->files().folderExists(this->at({"f"}));
    EXPECT_EQ(error, remains ? 0 : 76);
    EXPECT_EQ(this->files().fileExists(this->at({"f", "b.mp3"})), remains);
    this->backend_.remove(this->at({"f"}));
  }
  EXPECT_EQ(this->files().fileSize(this->at({"a.mp3"})), 3U * 1024 * 1024);
}

TYPED_TEST(FileWritingContract, ACopyReplacesItsTargetOnlyIfOverwritingIsOn) {
  this->backend_.addFile(this->at({"a"}), "new");
  this->backend_.addFile(this->at({"f", "b"}), "old");
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"f", "b"}), false), 58);
  EXPECT_EQ(this->backend_.content(this->at({"f", "b"})), "old");
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"f", "b"}), true), 0);
  EXPECT_EQ(this->backend_.content(this->at({"f", "b"})), "new");
  EXPECT_EQ(this->namesIn(this->at({"f"})), Names{"b"});
}

TYPED_TEST(FileWritingContract, ACopyOfAReadOnlyFileIsReadOnly) {
  this->backend_.addFile(this->at({"a"}), "x");
  this->backend_.makeReadOnly(this->at({"a"}));
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"b"}), false), 0);
  EXPECT_EQ(this->deleting(this->at({"b"})), 70);
}

TYPED_TEST(FileWritingContract, EachCopyingFailureHasItsErrorNumber) {
  this->backend_.addFile(this->at({"a"}), "a");
  this->backend_.addFile(this->at({"fixed"}), "old");
  this->backend_.makeReadOnly(this->at({"fixed"}));
  this->backend_.addFile(this->at({"secret"}), "x");
  this->backend_.makeUnreadable(this->at({"secret"}));
  this->backend_.addFolder(this->at({"closed"}));
  this->backend_.makeFolderUnwritable(this->at({"closed"}));
  EXPECT_EQ(this->copying(this->at({"missing"}), this->at({"b"}), false), 53);
  EXPECT_EQ(this->copying(this->at({"closed"}), this->at({"b"}), false), 53);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"a"}), true), 70);
  EXPECT_EQ(this->copying(this->at({"a"}), this->files().joinAlwaysSeparated(this->backend_.root(), "a"), true), 70);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"fixed"}), true), 70);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"closed"}), true), 70);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"missing", "b"}), false), 76);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"fixed", "b"}), false), 76);
  EXPECT_EQ(this->backend_.content(this->at({"a"})), "a");
  EXPECT_EQ(this->backend_.content(this->at({"fixed"})), "old");
  EXPECT_EQ(this->namesIn(this->backend_.root()), (Names{"a", "fixed", "secret"}));
  if (!this->backend_.deniesAccess()) GTEST_SKIP() << "this user may read and write everything";
  EXPECT_EQ(this->copying(this->at({"secret"}), this->at({"b"}), false), 70);
  EXPECT_EQ(this->copying(this->at({"a"}), this->at({"closed", "b"}), false), 70);
  EXPECT_EQ(this->namesIn(this->backend_.root()), (Names{"a", "fixed", "secret"}));
}

}  // namespace
}  // namespace plimo
