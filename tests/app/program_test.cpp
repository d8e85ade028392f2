// The program's start with a playlist named by its user.
#include "app/program.h"

#include <gtest/gtest.h>

#include "support/test_program.h"

namespace plimo {
namespace {

constexpr const char* playlist = R"(D:\Lists\evening.m3u)";

struct StartedWithPlaylist : testing::Test {
  StartedWithPlaylist() {
    machine.addSong(R"(C:\Music\Alder - Ash.mp3)");
    machine.addSong(R"(C:\Music\Beech - Fir.mp3)");
    machine.files.addTextFile(playlist, "C:\\Music\\Beech - Fir.mp3\r\nC:\\Music\\Alder - Ash.mp3\r\n");
  }

  std::vector<std::string> finalRows() {
    const auto texts = machine.form().List4.texts();
    return {texts.begin(), texts.end()};
  }

  TestProgram machine;
};

TEST_F(StartedWithPlaylist, OpensItAsOpenDoes) {
  machine.program.openAtStart(playlist);
  machine.program.start();
  EXPECT_EQ(finalRows(), (std::vector<std::string>{" Fir", " Ash"}));
  EXPECT_EQ(machine.form().List2.selectedRows().size(), 2U);
  EXPECT_FALSE(machine.form().Picture4.visible());
  EXPECT_TRUE(machine.dialogs.messages.empty());
}

TEST_F(StartedWithPlaylist, ReportsThatItIsMissingAndStaysUsable) {
  machine.program.openAtStart(R"(D:\Lists\gone.m3u)");
  machine.program.start();
  EXPECT_TRUE(machine.program.running());
  ASSERT_EQ(machine.dialogs.reports.size(), 1U);
}

TEST_F(StartedWithPlaylist, RefusesAFileThatIsNoPlaylist) {
  machine.program.openAtStart(R"(C:\Music\Beech - Fir.mp3)");
  machine.program.start();
  EXPECT_EQ(machine.dialogs.messages, std::vector<std::string>{"Sorry, you can only open a playlist! Try again!"});
}

TEST_F(StartedWithPlaylist, DoesNotOpenItOnTheFirstRun) {
  machine.files.deleteFile(R"(C:\Plimo\plimo.ini)", Force::yes);
  machine.program.openAtStart(playlist);
  machine.program.start();
  machine.program.splash().Timer1.elapsed();
  EXPECT_TRUE(finalRows().empty());
  EXPECT_TRUE(machine.form().Frame1.visible());
}

}  // namespace
}  // namespace plimo
