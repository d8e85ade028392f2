// What screen readers get from the window on Windows: the same tree as on Linux, as the toolkit translates it for UI
// Automation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "desktop/shell/desktop.h"
#include "desktop/theme/theme.h"
#include "element.h"
#include "platform/memory/fake_launcher.h"
#include "support/native_files.h"
#include "support/sample_settings.h"
#include "support/temporary_folder.h"

namespace plimo {
namespace {

using testing::ElementsAre;

// UIA_...ControlTypeId.
constexpr int button = 50000;
constexpr int checkBox = 50002;
constexpr int list = 50008;
constexpr int listItem = 50007;
constexpr int radioButton = 50013;
constexpr int slider = 50015;

constexpr qint64 deadlineMs = 30'000;

bool waitFor(const std::function<bool()>& condition) {
  QElapsedTimer time;
  time.start();
  while (!condition()) {
    if (time.elapsed() > deadlineMs) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
  return true;
}

QWidget* mainWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == QLatin1String("Form1")) return window;
  }
  return nullptr;
}

std::vector<std::string> namesOf(const std::vector<Element>& elements) {
  std::vector<std::string> names;
  for (const Element& element : elements) names.push_back(element.name());
  return names;
}

class ScreenReaderTest : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::current_path(folder_.path());
    makeFolders(folder_ / "music");
    writeFile(folder_ / "plimo.ini", settingsText({false, false, "C:"}));
    std::string catalogue;
    for (const char* song : {"Alder - Ash", "Alder - Birch", "Beech - Fir"}) {
      const std::string name = song;
      catalogue += "\"C:\\Music\\" + name + ".mp3\"\r\n\"" + name.substr(0, 5) + "\"\r\n\"Don't know!\"\r\n\"" +
                   name.substr(7) + ".mp3\"\r\n";
    }
    writeFile(folder_ / "plimo.kvx", catalogue);
  }
  void TearDown() override { std::filesystem::current_path(std::filesystem::temp_directory_path()); }

  // Starts the program and calls the script, when the artists are listed, with the window's element.
  void inWindow(const std::function<void(const Element& window)>& script) {
    const auto files = nativeFilesIn(folder_ / "music");
    FakeLauncher launcher(*files);
    Desktop desktop(*files, launcher);
    bool done = false;
    QTimer::singleShot(0, qApp, [&] {
      if (waitFor([] { return mainWindow() != nullptr; })) {
        const Element window = Element::ofWindow(reinterpret_cast<HWND>(mainWindow()->winId()));
        if (waitFor([&] { return window.find(list, "Artists").has_value(); })) {
          script(window);
          done = true;
        }
      }
      QCoreApplication::exit();
    });
    desktop.run();
    EXPECT_TRUE(done) << "the artists are not listed";
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(ScreenReaderTest, TheWindowAnswersARequestForItsElement) {
  inWindow([](const Element& window) {
    EXPECT_THAT(window.name(), testing::StartsWith("Plimo!"));
    EXPECT_FALSE(window.children().empty());
  });
}

TEST_F(ScreenReaderTest, TheRowsOfTheArtistsHaveNamesAndBoxes) {
  inWindow([](const Element& window) {
    const auto rows = window.find(list, "Artists")->children();
    ASSERT_THAT(namesOf(rows), ElementsAre("ALDER", "BEECH"));
    for (const Element& row : rows) {
      EXPECT_EQ(row.controlType(), listItem);
      EXPECT_EQ(row.ticked(), false) << row.name();
    }
  });
}

TEST_F(ScreenReaderTest, TickingARowListsItsSongs) {
  inWindow([](const Element& window) {
    const auto rows = window.find(list, "Artists")->children();
    ASSERT_TRUE(rows.at(0).toggle());
    EXPECT_EQ(rows.at(0).ticked(), true);
    EXPECT_EQ(rows.at(1).ticked(), false);
    const auto songs = window.find(list, "Scratch playlist");
    ASSERT_TRUE(songs);
    EXPECT_TRUE(waitFor([&] { return songs->children().size() == 2; }));
    EXPECT_THAT(namesOf(songs->children()), ElementsAre(" Ash", " Birch"));
    EXPECT_EQ(songs->children().front().ticked(), std::nullopt);
  });
}

TEST_F(ScreenReaderTest, AButtonIsPressedAndEverythingThatCanBeUsedHasAName) {
  inWindow([](const Element& window) {
    const auto strip = window.find(button, "Show the song commands");
    ASSERT_TRUE(strip);
    ASSERT_TRUE(strip->press());
    EXPECT_TRUE(waitFor([&] { return window.find(button, "Add All").has_value(); }));
    std::size_t named = 0;
    window.visit([&](const Element& element) {
      const int type = element.controlType();
      if (element.isOffscreen() || (type != button && type != checkBox && type != list && type != listItem &&
                                    type != radioButton && type != slider)) {
        return;
      }
      EXPECT_NE(element.name(), "") << "an element of type " << type;
      ++named;
    });
    EXPECT_GE(named, 12U);
  });
}

}  // namespace
}  // namespace plimo

int main(int count, char** words) {
  testing::InitGoogleTest(&count, words);
  QApplication application(count, words);
  QApplication::setQuitOnLastWindowClosed(false);
  plimo::installTheme(application);
  return RUN_ALL_TESTS();
}
