// plimo-bench-bare: the least that a program like this consists of, a window with a menu and a list. The start of
// Plimo! is compared with it.
#include <QApplication>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QMainWindow window;
  for (const char* title : {"File", "View", "Options", "Help"}) {
    window.menuBar()->addMenu(QString::fromLatin1(title))->addAction(QStringLiteral("Item"));
  }
  auto* list = new QListWidget;
  QPalette palette = list->palette();
  palette.setColor(QPalette::Base, QColor(0, 0, 0x40));  // the colour that startup_time waits for
  palette.setColor(QPalette::Text, QColor(0xFF, 0xFF, 0));
  list->setPalette(palette);
  list->addItem(QStringLiteral("SOME ARTIST"));
  window.setCentralWidget(list);
  window.showMaximized();
  return QApplication::exec();
}
