// One owner of a folder, and messages to it.
#include "platform/linux/instance_socket.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <memory>
#include <thread>

#include "support/temporary_folder.h"

namespace plimo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds atOnce(0);
constexpr milliseconds patience(10'000);

// Waits for one message and takes it.
std::optional<std::string> next(InstanceSocket& owner) {
  pollfd waiting{owner.fd(), POLLIN, 0};
  if (::poll(&waiting, 1, static_cast<int>(patience.count())) != 1) return std::nullopt;
  return owner.take();
}

TEST(InstanceSockets, MakeTheFirstProgramTheOwner) {
  const TemporaryFolder folder;
  InstanceSocket owner(folder.path());
  EXPECT_EQ(owner.claim("first", atOnce), Claim::granted);
  EXPECT_GE(owner.fd(), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "there is a file in the folder";
}

TEST(InstanceSockets, CarryTheMessageOfALaterProgram) {
  const TemporaryFolder folder;
  InstanceSocket owner(folder.path());
  owner.claim("", atOnce);
  const std::string message("a\0b\xFF", 4);
  Claim claim = Claim::granted;
  std::thread later([&] { claim = InstanceSocket(folder.path() + "/.").claim(message, patience); });
  EXPECT_EQ(next(owner), message);
  later.join();
  EXPECT_EQ(claim, Claim::handedOver);
}

TEST(InstanceSockets, OfDifferentFoldersAreIndependent) {
  const TemporaryFolder one;
  const TemporaryFolder two;
  InstanceSocket first(one.path());
  InstanceSocket second(two.path());
  EXPECT_EQ(first.claim("", atOnce), Claim::granted);
  EXPECT_EQ(second.claim("", atOnce), Claim::granted);
  EXPECT_GE(second.fd(), 0);
}

TEST(InstanceSockets, AreTheSameUnderEveryNameOfAFolder) {
  const TemporaryFolder folder;
  const TemporaryFolder links;
  std::filesystem::create_directory_symlink(folder.path(), links / "link");
  InstanceSocket owner(folder.path());
  owner.claim("", atOnce);
  EXPECT_EQ(InstanceSocket(links / "link").claim("", milliseconds(50)), Claim::noAnswer);
}

TEST(InstanceSockets, OfAnOwnerThatDoesNotReactGetNoAnswer) {
  const TemporaryFolder folder;
  InstanceSocket owner(folder.path());
  owner.claim("", atOnce);
  InstanceSocket later(folder.path());
  EXPECT_EQ(later.claim("late", milliseconds(50)), Claim::noAnswer);
  EXPECT_EQ(later.fd(), -1);
  EXPECT_EQ(owner.take(), std::nullopt) << "the later program has given up";
}

TEST(InstanceSockets, AreFreeWhenTheOwnerEndsWhileALaterProgramWaits) {
  const TemporaryFolder folder;
  auto owner = std::make_unique<InstanceSocket>(folder.path());
  owner->claim("", atOnce);
  InstanceSocket later(folder.path());
  Claim claim = Claim::noAnswer;
  std::thread waiting([&] { claim = later.claim("late", patience); });
  pollfd connected{owner->fd(), POLLIN, 0};
  EXPECT_EQ(::poll(&connected, 1, static_cast<int>(patience.count())), 1);
  owner.reset();
  waiting.join();
  EXPECT_EQ(claim, Claim::granted);
  EXPECT_GE(later.fd(), 0);
}

TEST(InstanceSockets, AreFreeAfterTheOwnerWasKilled) {
  const TemporaryFolder folder;
  std::array<int, 2> ready{};
  ASSERT_EQ(::pipe(ready.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    InstanceSocket owner(folder.path());
    owner.claim("", atOnce);
    static_cast<void>(::write(ready[1], "", 1) == 1);
    ::pause();
    ::_exit(0);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(InstanceSocket(folder.path()).claim("", milliseconds(20)), Claim::noAnswer);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(InstanceSocket(folder.path()).claim("", atOnce), Claim::granted);
  ::close(ready[0]);
  ::close(ready[1]);
}

TEST(InstanceSockets, OfAFolderThatIsGoneGrantEverything) {
  InstanceSocket socket("/nonexistent");
  EXPECT_EQ(socket.claim("", atOnce), Claim::granted);
  EXPECT_EQ(socket.fd(), -1);
}

}  // namespace
}  // namespace plimo
