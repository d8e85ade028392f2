// One owner of a folder, and messages to it.
#include "platform/windows/instance_window.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <thread>

#include "support/temporary_folder.h"

namespace plimo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds atOnce(0);
constexpr milliseconds patience(10'000);

// An owner in a thread of its own, because a window receives the messages of its thread.
class Owner {
 public:
  explicit Owner(const std::string& folder) : thread_([this, folder] { run(folder); }) {
    claim = ready_.get_future().get();
  }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() {
    PostThreadMessageW(id_, WM_QUIT, 0, 0);
    thread_.join();
  }

  Claim claim = Claim::noAnswer;
  std::string message;  // the last one

 private:
  void run(const std::string& folder) {
    InstanceWindow window(folder);
    window.received = [this](std::string received) { message = std::move(received); };
    id_ = GetCurrentThreadId();
    ready_.set_value(window.claim("", atOnce));
    MSG next;
    while (GetMessageW(&next, nullptr, 0, 0) > 0) DispatchMessageW(&next);
  }

  DWORD id_ = 0;
  std::promise<Claim> ready_;
  std::thread thread_;
};

TEST(InstanceWindows, CarryTheMessageOfALaterProgram) {
  const TemporaryFolder folder;
  Owner owner(folder.path());
  EXPECT_EQ(owner.claim, Claim::granted);
  const std::string message("a\0b\xFF", 4);
  EXPECT_EQ(InstanceWindow(folder.path()).claim(message, patience), Claim::handedOver);
  EXPECT_EQ(owner.message, message);
}

TEST(InstanceWindows, OfDifferentFoldersAreIndependent) {
  const TemporaryFolder one;
  const TemporaryFolder two;
  Owner owner(one.path());
  EXPECT_EQ(InstanceWindow(two.path()).claim("", atOnce), Claim::granted);
}

TEST(InstanceWindows, OfAnOwnerThatDoesNotReactGetNoAnswer) {
  const TemporaryFolder folder;
  InstanceWindow owner(folder.path());
  ASSERT_EQ(owner.claim("", atOnce), Claim::granted);
  // This thread waits instead of dispatching messages.
  const auto later = std::async(std::launch::async, [&] {
                       return InstanceWindow(folder.path()).claim("late", milliseconds(100));
                     }).get();
  EXPECT_EQ(later, Claim::noAnswer);
}

TEST(InstanceWindows, AreFreeAfterTheOwnersEnd) {
  const TemporaryFolder folder;
  { Owner owner(folder.path()); }
  EXPECT_EQ(InstanceWindow(folder.path()).claim("", patience), Claim::granted);
}

TEST(InstanceWindows, OfAFolderThatIsGoneGrantEverything) {
  EXPECT_EQ(InstanceWindow(R"(C:\no such folder)").claim("", atOnce), Claim::granted);
}

}  // namespace
}  // namespace plimo
