// Files of other programs, dropped on the window.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

#include "desktop/theme/file_uris.h"
#include "platform/linux/linux_files.h"
#include "support/sample_library.h"
#include "support/temporary_folder.h"
#include "support/window/list_commands.h"
#include "support/window/window_fixture.h"

namespace plimo {
namespace {

struct FileDrop : testing::Test {
  FileDrop() {
    library.songs = 100;
    library.folders = 10;
    prepareListCommands(library, folder.path());
    const std::string song = lastSongPath(library, folder.path());
    writeFile(folder / "evening.m3u", song + "\r\n" + song + "\r\n");
  }

  // Drags addresses over a widget and drops them. False if the window does not take them.
  static bool drop(QWidget& widget, const QByteArray& uris) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), uris);
    const QPoint centre = widget.rect().center();
    QDragEnterEvent enter(centre, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted()) return false;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "the other program would delete what it moves";
    QDropEvent drop(centre, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &drop);
    return true;
  }

  void inWindow(const std::function<void(WindowFixture&)>& script) {
    LinuxFiles files(std::vector<DriveRoot>{{'M', DriveType::fixed, "/srv"}});
    runInWindow(files, [&](WindowFixture& fixture) {
      ASSERT_TRUE(fixture.driver.waitUntil([&] { return fixture.driver.isVisible("List1"); }));
      script(fixture);
    });
  }

  SampleLibrary library;
  TemporaryFolder folder;
};

TEST_F(FileDrop, APlaylistIsOpened) {
  inWindow([this](WindowFixture& fixture) {
    QWidget& list = *fixture.driver.list("List1").viewport();
    EXPECT_TRUE(drop(list, fileUri(folder / "evening.m3u")));
    EXPECT_TRUE(fixture.driver.waitUntil([&] { return fixture.form().List4.count() == 2; }));
  });
}

TEST_F(FileDrop, OfSeveralFilesTheFirstPlaylistIsOpened) {
  inWindow([this](WindowFixture& fixture) {
    const QByteArray uris = "file:///a.mp3\r\n" + fileUri(folder / "evening.m3u") + "\r\nfile:///b.m3u\r\n";
    EXPECT_TRUE(drop(*fixture.driver.list("List1").window(), uris));
    EXPECT_TRUE(fixture.driver.waitUntil([&] { return fixture.form().List4.count() == 2; }));
    EXPECT_EQ(fixture.form().status(), "2 more files not opened: one playlist is opened at a time");
  });
}

TEST_F(FileDrop, OtherFilesAreNotTaken) {
  inWindow([](WindowFixture& fixture) {
    QWidget& window = *fixture.driver.list("List1").window();
    for (const char* uris : {"", "file:///a.mp3", "http://localhost/a.m3u"}) EXPECT_FALSE(drop(window, uris)) << uris;
  });
}

}  // namespace
}  // namespace plimo
