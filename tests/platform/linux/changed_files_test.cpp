// Files that another program changes while they are read.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "catalogue/distinct_artists.h"
#include "catalogue/song_lookup.h"
#include "platform/linux/linux_files.h"
#include "platform/linux/unique_fd.h"
#include "settings/settings_file.h"
#include "settings/winamp_path.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t large = 3 * 1024 * 1024;  // bytes; it is mapped

int errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return static_cast<int>(error.number());
  }
  return 0;
}

// Truncates each file as soon as it is open.
class TruncatingFiles : public LinuxFiles {
 public:
  TruncatingFiles() : LinuxFiles(std::vector<DriveRoot>{}) {}
  std::unique_ptr<FileView> openForReading(std::string_view path) override {
    auto view = LinuxFiles::openForReading(path);
    fs::resize_file(path, 5000);
    return view;
  }
};

class ChangedFilesTest : public testing::Test {
 protected:
  std::string addFile(std::size_t size) {
    writeFile(folder_ / "x", std::string(size, 'x'));
    return folder_ / "x";
  }

  TemporaryFolder folder_;
  LinuxFiles files_{std::vector<DriveRoot>{}};
};

TEST_F(ChangedFilesTest, ATruncatedFileReadsAsZerosAndIsReported) {
  const std::string path = addFile(large);
  const auto view = files_.openForReading(path);
  fs::resize_file(path, 5000);
  const std::string copy(view->bytes());
  EXPECT_EQ(copy.size(), large);
  EXPECT_EQ(copy.find_first_not_of('x'), 5000U);
  EXPECT_EQ(copy.find('x', 5000), std::string::npos);
  EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 75);
}

TEST_F(ChangedFilesTest, AFileThatIsRestoredAfterATruncationIsReported) {
  const std::string path = addFile(large);
  const auto view = files_.openForReading(path);
  fs::resize_file(path, 0);
  EXPECT_EQ(view->bytes().back(), '\0');
  writeFile(path, std::string(large, 'x'));
  EXPECT_EQ(view->bytes().back(), '\0');
  EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 75);
}

TEST_F(ChangedFilesTest, ALastPageThatBecomesShorterIsReported) {
  const std::string path = addFile(large - 1);
  const auto view = files_.openForReading(path);
  fs::resize_file(path, large - 2);
  EXPECT_EQ(view->bytes().size(), large - 1);
  EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 75);
}

TEST_F(ChangedFilesTest, AFileThatGrowsIsReported) {
  const std::string path = addFile(large);
  const auto view = files_.openForReading(path);
  std::ofstream(path, std::ios::app) << "more";
  EXPECT_EQ(view->bytes().size(), large);
  EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 75);
}

TEST_F(ChangedFilesTest, AFileThatIsReplacedKeepsItsContentInTheView) {
  const std::string path = addFile(large);
  const auto view = files_.openForReading(path);
  replaceWhole(files_, path, "new", Force::no);
  EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 0);
  EXPECT_EQ(view->bytes(), std::string(large, 'x'));
}

TEST_F(ChangedFilesTest, OnlyTheTruncatedFileIsReported) {
  const std::string first = addFile(large);
  writeFile(folder_ / "y", std::string(large, 'y'));
  const auto firstView = files_.openForReading(first);
  const auto secondView = files_.openForReading(folder_ / "y");
  fs::resize_file(first, 0);
  EXPECT_EQ(firstView->bytes().front(), '\0');
  EXPECT_EQ(secondView->bytes(), std::string(large, 'y'));
  EXPECT_EQ(errorOf([&] { firstView->throwIfChanged(); }), 75);
  EXPECT_EQ(errorOf([&] { secondView->throwIfChanged(); }), 0);
}

TEST_F(ChangedFilesTest, AViewAfterATruncatedOneStartsUnmarked) {
  const std::string path = addFile(large);
  for (int round = 0; round < 40; ++round) {
    writeFile(path, std::string(large, 'x'));
    const auto view = files_.openForReading(path);
    EXPECT_EQ(errorOf([&] { view->throwIfChanged(); }), 0);
    fs::resize_file(path, 0);
    EXPECT_EQ(view->bytes().back(), '\0');
  }
}

TEST_F(ChangedFilesTest, AnyNumberOfLargeFilesCanBeOpen) {
  const std::string path = addFile(large);
  std::vector<std::unique_ptr<FileView>> views;
  for (int i = 0; i < 40; ++i) views.push_back(files_.openForReading(path));
  for (const auto& view : views) EXPECT_EQ(view->bytes().back(), 'x');
}

TEST_F(ChangedFilesTest, ABusErrorElsewhereStillEndsTheProgram) {
  const std::string path = addFile(large);
  const auto view = files_.openForReading(path);
  EXPECT_DEATH(
      {
        const UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        const void* const other = ::mmap(nullptr, large, PROT_READ, MAP_PRIVATE, file.get(), 0);
        fs::resize_file(path, 0);
        std::exit(static_cast<const volatile char*>(other)[large - 1]);
      },
      "");
}

TEST_F(ChangedFilesTest, EveryReaderReportsATruncatedFile) {
  std::string catalogue;
  while (catalogue.size() < large) appendRecord(catalogue, {"/m/A - S.mp3", "A", "Don't know!", " S.mp3"});
  const std::string path = folder_ / "x";
  TruncatingFiles files;
  const std::vector<std::string_view> names = {" S"};
  const std::function<void()> readers[] = {
      [&] { readWhole(files, path); },       [&] { readSettings(files, path); },
      [&] { readWinampPath(files, path); },  [&] { distinctArtists(files, path); },
      [&] { firstPath(files, path, " S"); }, [&] { SongPaths(files, path, names, OnTruncation::ignore); },
  };
  for (const auto& reader : readers) {
    writeFile(path, catalogue);
    EXPECT_EQ(errorOf(reader), 75);
  }
}

// Another program keeps truncating the file and writing it again.
TEST_F(ChangedFilesTest, ASmallFileIsReadAsItWasOrNotAtAll) {
  constexpr std::size_t size = 900 * 1024;
  const std::string path = addFile(size);
  const std::string all(size, 'x');
  std::atomic<int> writes = 0;
  std::atomic<bool> stop = false;
  std::thread other([&] {
    for (; !stop; ++writes) writeFile(path, all);
  });
  while (writes < 1000) {
    std::string content;
    const int error = errorOf([&] { content = files_.openForReading(path)->bytes(); });
    if (content.find_first_not_of('x') == std::string::npos && (error == 0 || error == 75)) continue;
    ADD_FAILURE() << "error " << error << ", " << content.size() << " bytes";
    break;
  }
  stop = true;
  other.join();
}

TEST_F(ChangedFilesTest, AFileThatBecomesAPipeOrADeviceIsNeverRead) {
  const std::string path = addFile(4);
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", folder_ / "device");
  std::atomic<int> swaps = 0;
  std::atomic<bool> stop = false;
  std::thread other([&] {
    const auto swapWith = [&](const char* name) {
      ::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, (folder_ / name).c_str(), RENAME_EXCHANGE);
    };
    for (; !stop; ++swaps) {
      for (const char* name : {"pipe", "device"}) {
        swapWith(name);
        swapWith(name);
      }
    }
  });
  while (swaps < 20000) {
    std::string content = "xxxx";
    const int error = errorOf([&] { content = files_.openForReading(path)->bytes(); });
    if (content == "xxxx" && (error == 0 || error == 75)) continue;
    ADD_FAILURE() << "error " << error << ", content '" << content << "'";
    break;
  }
  stop = true;
  other.join();
}

}  // namespace
}  // namespace plimo
