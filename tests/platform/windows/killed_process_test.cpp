// A process that is killed while it writes.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/native_path.h"
#include "platform/windows/unique_handle.h"
#include "platform/windows/windows_files.h"
#include "support/temporary_folder.h"
#include "support/windows/disk.h"

namespace plimo {
namespace {

using Names = std::vector<std::string>;

TEST(KilledProcess, LeavesTheOldFileAndNothingElse) {
  const TemporaryFolder folder;
  writeFile(folder / "old", "old");
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information{};
  ASSERT_TRUE(::CreateProcessW(toWide(PLIMO_HALF_WRITER).c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                               toWide(folder.path()).c_str(), &startup, &information));
  const UniqueHandle process(information.hProcess);
  const UniqueHandle thread(information.hThread);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!readFile(folder / "begun") && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  ASSERT_TRUE(readFile(folder / "begun"));
  WindowsFiles files;
  files.removeLeftovers(folder.path());
  EXPECT_EQ(files.contents(folder.path()).files.size(), 3U) << "the file of a running process stays";
  ::TerminateProcess(process.get(), 1);
  ::WaitForSingleObject(process.get(), INFINITE);
  EXPECT_EQ(readFile(folder / "old"), "old");
  replaceWhole(files, folder / "old", "new", Force::no);
  EXPECT_EQ(files.contents(folder.path()).files, (Names{"begun", "old"}));
  EXPECT_EQ(readFile(folder / "old"), "new");
}

}  // namespace
}  // namespace plimo
