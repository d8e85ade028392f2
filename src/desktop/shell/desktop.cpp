#include "desktop/shell/desktop.h"

#include <QApplication>
#include <QDir>
#include <QSessionManager>
#include <QThread>
#include <QTimer>
#include <utility>

#include "desktop/shell/first_paint.h"
#include "desktop/theme/strings.h"
#include "desktop/widgets/list_accessible.h"
#include "desktop/widgets/widget_accessible.h"
#include "platform/player/native_engine.h"

namespace plimo {

namespace {

PlayerHooks hooksFor(InputBlocker& blocker, DesktopProgress& progress) {
  return {
      [](std::function<void()> action) { QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection); },
      startNativeEngine,
      [&progress](const std::function<void()>& work) { progress.runInBackground(work); },
      [&blocker] { return !blocker.isBlocked(); },
  };
}

}  // namespace

Desktop::Desktop(FileSystemObject& files, Launcher& launcher, OpenRequest atStart)
    : player_(hooksFor(blocker_, progress_)),
      volume_(player_, QDir::current().filePath(QStringLiteral("plimo-window.ini"))),
      progress_(blocker_),
      program_(Platform{files, player_, dialogs_, launcher, progress_}) {
  QObject::connect(qApp, &QGuiApplication::commitDataRequest, &context_, [this](QSessionManager&) { requestEnd(); });
  const auto flush = [this] { program_.dispatcher().flush(); };
  dialogs_.beforeBox = flush;
  dialogs_.owner = [this] { return frontWindow(); };
  dialogs_.ending = [this] { return progress_.ending(); };
  progress_.beforePaint = flush;
  progress_.window = [this] { return frontWindow(); };
  blocker_.unblocked = [this] { player_.drainEvents(); };
  program_.openAtStart(std::move(atStart));
  installListAccessible();
  installWidgetAccessible();
  FormWindow::installAccessible();
  bindWindows();
  program_.dispatcher().atEnd([this] {
    if (!pending_.file.empty())
      QMetaObject::invokeMethod(
          &context_, [this] { openPending(); }, Qt::QueuedConnection);
  });
  afterFirstPaint(*main_, [this] { startRemote(); });
}

Desktop::~Desktop() {
  remote_.reset();
  program_.form1().setHost(nullptr);
  program_.splash().setHost(nullptr);
}

void Desktop::bindWindows() {
  Form1& form1 = program_.form1();
  main_ = std::make_unique<FormWindow>(form1, &form1, player_, [&form1] { return form1.comp; });
  splash_ = std::make_unique<FormWindow>(program_.splash(), nullptr, player_, [] { return false; });
  main_->filesDropped = [this](const std::vector<std::string>& files) { open(requestToOpen(files)); };
  for (FormWindow* window : {main_.get(), splash_.get()}) {
    window->acceptsInput = [this] { return !blocker_.isBlocked(); };
    window->confirm = [this](const std::string& question) {
      return dialogs_.ask({question, {}, Question::Default::no});
    };
    window->closed = [this, window] { close(window->form()); };
    window->form().setHost(this);
    program_.dispatcher().beforePaint([window] { window->refresh(); });
  }
}

int Desktop::run() {
  program_.ended = [](int status) {
    QMetaObject::invokeMethod(
        qApp, [status] { QCoreApplication::exit(status); }, Qt::QueuedConnection);
  };
  // A timer of its own, because an event posted now is not delivered in a nested event loop that an earlier one runs.
  QTimer::singleShot(std::chrono::milliseconds(1), qApp, [this] { program_.start(); });
  return QCoreApplication::exec();
}

void Desktop::startRemote() {
  const auto later = [this](std::function<void()> action) {
    QMetaObject::invokeMethod(&context_, std::move(action), Qt::QueuedConnection);
  };
  remote_ = startRemoteControl({
      player_,
      [this] { raise(); },
      [this, later] { later([this] { requestEnd(); }); },  // the caller gets its answer first
      [this](const std::string& path) {
        open({path, 0, true});
      },
  });
}

void Desktop::raise(const std::string& token) {
  // Qt takes the token from there.
  if (!token.empty()) qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
  QWidget* window = frontWindow();
  if (window == nullptr) window = QApplication::activeModalWidget();
  if (window == nullptr) return;
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  for (QWidget* each : {window, QApplication::activeModalWidget()}) {
    if (each == nullptr) continue;
    each->raise();
    each->activateWindow();
  }
}

void Desktop::open(OpenRequest request) {
  if (request.file.empty()) return;
  if (!program_.loaded()) {
    program_.openAtStart(std::move(request));
    return;
  }
  pending_ = std::move(request);
  if (!program_.canOpen()) program_.form1().setStatus("the file is opened when this is finished");
  QMetaObject::invokeMethod(
      &context_, [this] { openPending(); }, Qt::QueuedConnection);
}

void Desktop::openPending() {
  if (pending_.file.empty() || !program_.canOpen()) return;
  const OpenRequest request = std::exchange(pending_, {});
  program_.form1().setStatus({});
  program_.open(request);
}

FormWindow* Desktop::windowOf(const Form& form) const { return &form == &main_->form() ? main_.get() : splash_.get(); }

QWidget* Desktop::frontWindow() const {
  for (FormWindow* window : {main_.get(), splash_.get()}) {
    if (window != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

bool Desktop::waitForDisk(std::chrono::milliseconds since) {
  const bool goesOn = progress_.waitForDisk(since);
  if (!goesOn && progress_.ending()) dialogs_.silence();
  return goesOn;
}

void Desktop::close(Form& form) {
  if (form.dispatcher().busy()) progress_.cancelAll();
  form.userClose();
}

void Desktop::requestEnd() {
  if (!program_.running()) {
    QCoreApplication::exit();
    return;
  }
  dialogs_.silence();
  Form& form1 = program_.form1();
  close(form1.loaded() ? static_cast<Form&>(form1) : program_.splash());
}

void Desktop::show(Form& form) { windowOf(form)->present(); }

void Desktop::unload(Form& form) { windowOf(form)->hide(); }

void Desktop::captionChanged(Form& form) { windowOf(form)->setWindowTitle(shownText(form.caption())); }

void Desktop::statusChanged(Form& form) { windowOf(form)->showStatus(); }

void Desktop::stateChanged(Form& form) { windowOf(form)->applyState(); }

void Desktop::resizeTo(Form& form, double width, double height) { windowOf(form)->resizeOuter(width, height); }

// During a handler the focus is moved by the next refresh, since the control may not be visible yet.
void Desktop::focusChanged(Form& form) {
  if (!form.dispatcher().busy()) windowOf(form)->refresh();
}

void Desktop::popUp(Form& form, Menu& menu) { windowOf(form)->popUp(menu); }

void Desktop::pause(Form& form, std::chrono::milliseconds time) {
  form.dispatcher().flush();
  blocker_.block();
  QElapsedTimer elapsed;
  elapsed.start();
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents();
    const qint64 left = time.count() - elapsed.elapsed();
    if (left > 0) QThread::msleep(static_cast<unsigned long>(std::min<qint64>(left, 5)));
  } while (elapsed.elapsed() < time.count());
  blocker_.unblock();
}

}  // namespace plimo
