#include "desktop/pump.h"

#include <QApplication>
#include <QLocale>
#include <QThread>

#include "desktop/look.h"
#include "desktop/player_strip.h"
#include "desktop/progress_panel.h"

namespace plimo {

namespace {

// Milliseconds. The window hears of what goes on around it (Cancel is pressed, another window was over it) more often
// than the panel has something new to show.
constexpr qint64 lookInterval = 40;
constexpr qint64 paintInterval = 100;
// Work that is over sooner shows no panel.
constexpr qint64 patience = 200;

const QLocale& numbers() {
  static const QLocale english(QLocale::English);
  return english;
}

QString grouped(std::uint64_t number) { return numbers().toString(static_cast<qulonglong>(number)); }

QString sizeText(std::uint64_t bytes) {
  return numbers().formattedDataSize(static_cast<qint64>(bytes), 1, QLocale::DataSizeTraditionalFormat);
}

}  // namespace

DesktopPump::DesktopPump(InputGate& gate) : gate_(gate) {}

DesktopPump::~DesktopPump() = default;

void DesktopPump::pause(std::chrono::milliseconds time) {
  if (beforePaint) beforePaint();
  gate_.close();
  QElapsedTimer passed;
  passed.start();
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents();
    const qint64 left = time.count() - passed.elapsed();
    if (left > 0) QThread::msleep(static_cast<unsigned long>(std::min<qint64>(left, 5)));
  } while (passed.elapsed() < time.count());
  gate_.reopen();
}

void DesktopPump::begin(const QString& title, bool cancellable) {
  working_ = true;
  title_ = title;
  cancellable_ = cancellable;
  since_.start();
  lastLook_ = 0;
  lastPaint_ = 0;
  if (beforePaint) beforePaint();
  keyboard_ = QApplication::focusWidget();
  QWidget* over = window ? window() : nullptr;
  if (over != nullptr) panel_ = new ProgressPanel(over);
  gate_.close(panel_);
}

void DesktopPump::end() {
  if (!working_) return;
  working_ = false;
  const bool hadKeyboard = panel_ != nullptr && panel_->isVisible();
  delete panel_.data();
  gate_.reopen();
  if (hadKeyboard && keyboard_ != nullptr && keyboard_->isVisible()) keyboard_->setFocus();
}

bool DesktopPump::due() {
  const qint64 now = since_.elapsed();
  const bool toPaint = now >= patience && now - lastPaint_ >= paintInterval;
  if (!toPaint && now - lastLook_ < lookInterval) return false;
  lastLook_ = now;
  if (!toPaint) {
    look();
    return false;
  }
  lastPaint_ = now;
  if (panel_ != nullptr && panel_->isHidden()) panel_->begin(title_, cancellable_);
  return true;
}

void DesktopPump::look() { QCoreApplication::processEvents(QEventLoop::AllEvents, 5); }

void DesktopPump::scanBegins() { begin(QStringLiteral("Looking for songs"), true); }

bool DesktopPump::scanned(std::size_t songs, std::string_view folder) {
  if (!working_ || !due()) return panel_ == nullptr || !panel_->cancelled();
  if (panel_ != nullptr) {
    const QString found = songs == 1 ? QStringLiteral("1 song found") : grouped(songs) + QStringLiteral(" songs found");
    panel_->tell(qstring(folder),
                 found + QStringLiteral("  ·  ") + clockText(static_cast<double>(since_.elapsed()) / 1000), -1);
  }
  look();
  return panel_ == nullptr || !panel_->cancelled();
}

void DesktopPump::scanEnds() { end(); }

void DesktopPump::copied(const CopyProgress& progress) {
  if (!working_) {
    begin(QStringLiteral("Copying"), false);
  }
  if (!due() || panel_ == nullptr) return;
  const double ofFile =
      progress.size > 0 ? static_cast<double>(progress.bytes) / static_cast<double>(progress.size) : 0;
  const double done = static_cast<double>(progress.file > 0 ? progress.file - 1 : 0) + ofFile;
  panel_->tell(
      qstring(progress.name),
      QStringLiteral("File %1 of %2  ·  %3 of %4")
          .arg(grouped(progress.file), grouped(progress.files), sizeText(progress.bytes), sizeText(progress.size)),
      progress.files > 0 ? done / static_cast<double>(progress.files) : -1);
  look();
}

void DesktopPump::deleted(std::size_t file, std::size_t files) {
  if (!working_) begin(QStringLiteral("Deleting"), false);
  if (!due() || panel_ == nullptr) return;
  panel_->tell(QString(), QStringLiteral("File %1 of %2").arg(grouped(file), grouped(files)),
               files > 0 ? static_cast<double>(file) / static_cast<double>(files) : -1);
  look();
}

void DesktopPump::workEnds() { end(); }

}  // namespace plimo
