#include "support/window/window_fixture.h"

#include <QApplication>
#include <QTimer>
#include <chrono>
#include <exception>

#include "desktop/shell/desktop.h"
#include "desktop/shell/responsive_files.h"
#include "desktop/theme/theme.h"
#include "platform/memory/fake_launcher.h"

namespace plimo {

namespace {

constexpr int paintDelayMs = 20;  // in which changes are painted

}  // namespace

Form1& WindowFixture::form() {
  if (form_ == nullptr) {
    form_ = static_cast<Form1*>(&driver.list("List2").model().form());
    if (onForm) onForm(*form_);
  }
  return *form_;
}

void WindowFixture::run(const std::string& command, const std::function<void()>& act,
                        const std::function<bool()>& done) {
  if (!results.empty()) driver.runEventLoop(paintDelayMs);  // the first command is the start itself
  latency.restart();
  act();
  const bool succeeded = driver.waitUntil(done) && driver.dialogsAsExpected();
  driver.runEventLoop(paintDelayMs);
  results.push_back({command, latency.longest(), succeeded, latency.phasesOfLongest()});
}

std::vector<CommandResult> runInWindow(FileSystemObject& files, const std::function<void(WindowFixture&)>& script) {
  installTheme(*qApp);
  QApplication::setQuitOnLastWindowClosed(false);
  FakeLauncher launcher(files);
  Desktop desktop(files, launcher);
  auto* const responsive = dynamic_cast<ResponsiveFiles*>(&files);
  if (responsive != nullptr) {
    responsive->waiting = [&desktop](std::chrono::milliseconds since) { return desktop.waitForDisk(since); };
    responsive->waited = [&desktop] { desktop.diskAnswered(); };
    responsive->background = [&desktop](const std::function<void()>& work) { desktop.runInBackground(work); };
  }
  WindowFixture fixture;
  std::exception_ptr failure;
  QTimer::singleShot(0, qApp, [&] {
    try {
      script(fixture);
    } catch (const std::exception&) {
      failure = std::current_exception();
    }
    QCoreApplication::exit();
  });
  desktop.run();
  if (responsive != nullptr) {
    responsive->waiting = nullptr;
    responsive->waited = nullptr;
    responsive->background = nullptr;
  }
  if (failure) std::rethrow_exception(failure);
  return fixture.results;
}

}  // namespace plimo
