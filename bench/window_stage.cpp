#include "window_stage.h"

#include <QApplication>
#include <QTimer>
#include <exception>

#include "bench_shell.h"
#include "desktop/shell/desktop.h"
#include "desktop/theme/theme.h"

namespace plimo::bench {

namespace {

constexpr int settling = 20;  // milliseconds in which a window is painted that has something new to show

}  // namespace

Form1& Stage::form() {
  if (form_ == nullptr) form_ = static_cast<Form1*>(&hands.list("List2").model().form());
  return *form_;
}

void Stage::give(const std::string& command, const std::function<void()>& act, const std::function<bool()>& done) {
  if (!gaps.empty()) hands.pause(settling);  // the first one is the start itself
  watch.restart();
  act();
  const bool came = hands.until(done) && hands.allAnswered();
  hands.pause(settling);
  gaps.push_back({command, watch.longest(), came});
}

std::vector<Gap> playWindow(FileSystemObject& files, const std::function<void(Stage&)>& script) {
  installTheme(*qApp);
  QApplication::setQuitOnLastWindowClosed(false);
  NoLauncher launcher;
  Desktop desktop(files, launcher);
  Stage stage;
  std::exception_ptr failure;
  QTimer::singleShot(0, qApp, [&] {
    try {
      script(stage);
    } catch (const std::exception&) {
      failure = std::current_exception();
    }
    QCoreApplication::exit();
  });
  desktop.run();
  if (failure) std::rethrow_exception(failure);
  return stage.gaps;
}

}  // namespace plimo::bench
