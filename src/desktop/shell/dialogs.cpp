#include "desktop/shell/dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "app/program.h"
#include "base/text.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/strings.h"
#include "platform/windows_paths/wtf8.h"

namespace plimo {

namespace {

// Pixels as designed.
constexpr int widestText = 640;
constexpr int inputWidth = 480;
constexpr int margin = 20;  // between a box's edges and its contents

QString title() { return QString::fromUtf8(programName); }

// The text as it is shown: no line of it is longer than what the text layout can take.
QString shownLines(const std::string& text) {
  std::string shown;
  for (const std::string_view line : split(text, '\n')) {
    if (!shown.empty() || line.data() != text.data()) shown += '\n';
    shown += elideMiddle(line, longestShownText);
  }
  return qstring(shown).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

// Breaks words that are wider than a line, paths above all: after a separator if there is one.
QString brokenToWidth(const QString& text, const QFontMetrics& metrics, int width) {
  QString broken;
  qsizetype lineStart = 0;   // in `broken`, of the word that is being written
  qsizetype breakable = -1;  // the last position in it after a separator
  for (const QChar c : text) {
    broken += c;
    if (c.isSpace()) {
      lineStart = broken.size();
      breakable = -1;
      continue;
    }
    if (metrics.horizontalAdvance(broken.mid(lineStart)) > width) {
      const qsizetype at = breakable > lineStart ? breakable : broken.size() - 1;
      if (at > lineStart) {
        broken.insert(at, QLatin1Char('\n'));
        lineStart = at + 1;
      }
      breakable = -1;
    }
    if (c == QLatin1Char('/') || c == QLatin1Char('\\')) breakable = broken.size();
  }
  return broken;
}

// A message box with plain text: a file's name in it must not be taken for markup.
class Box : public QMessageBox {
 public:
  Box(QWidget* owner, Icon icon, const std::string& text, StandardButtons buttons)
      : QMessageBox(icon, title(), QString(), buttons, owner) {
    setTextFormat(Qt::PlainText);
    const QString shown = shownLines(text);
    setText(shown);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
      const int widest = scaledForBoxes(widestText);
      label->setText(brokenToWidth(shown, label->fontMetrics(), widest));
      label->setAccessibleName(shown);
      label->setWordWrap(true);
      label->setMinimumWidth(std::min(
          widest, label->fontMetrics().boundingRect(QRect(0, 0, 4000, 4000), 0, label->text()).width() + spacing()));
    }
    setMargins();
  }

  // A smaller text below the first one.
  void addDetails(const std::string& details) {
    if (details.empty()) return;
    setInformativeText(shownLines(details));
    if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
      label->setTextFormat(Qt::PlainText);
      QFont smaller = label->font();
      smaller.setPointSizeF(QFontInfo(smaller).pointSizeF() * 0.9);
      label->setFont(smaller);
      label->setWordWrap(true);
    }
    setMargins();
  }

 private:
  void setMargins() {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) return;
    const int edge = scaledForBoxes(margin);
    grid->setContentsMargins(edge, edge, edge, edge);
    grid->setVerticalSpacing(edge / 2);
    // The toolkit indents a text without an icon; it is aligned with the buttons instead.
    QLayoutItem* first = grid->itemAtPosition(0, 0);
    if (icon() == NoIcon && first != nullptr && first->spacerItem() != nullptr) {
      first->spacerItem()->changeSize(0, 0);
      grid->setHorizontalSpacing(0);
    }
    grid->invalidate();
  }
};

QString nativeName(const std::string& bytes) { return QString::fromStdU16String(wtf8ToUtf16(bytes)); }

// A path as the machine writes it: the toolkit separates its parts by "/" on every machine.
std::string nativeBytes(const QString& name) { return utf16ToWtf8(QDir::toNativeSeparators(name).toStdU16String()); }

bool namesPattern(const std::string& name) { return name.find('*') != std::string::npos; }

// Sets up a dialog. A pattern ("*.m3u") as the name is its filter, and the initial text of its name field.
void prepareFileDialog(QFileDialog& dialog, const FileDialog& request) {
  const QString pattern = nativeName(request.name);
  if (!request.folder.empty()) dialog.setDirectory(nativeName(request.folder));
  QStringList filters;
  if (namesPattern(request.name)) filters << QStringLiteral("Playlists (%1)").arg(pattern);
  filters << QStringLiteral("All files (*)");
  dialog.setNameFilters(filters);
  if (auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
    field->setText(pattern);
    field->selectAll();
  } else if (!namesPattern(request.name)) {
    dialog.selectFile(pattern);
  }
}

}  // namespace

QWidget* DesktopDialogs::prepare() {
  if (beforeBox) beforeBox();
  return owner ? owner() : nullptr;
}

bool DesktopDialogs::asks() const { return !silent_ && !(ending && ending()); }

void DesktopDialogs::silence() {
  silent_ = true;
  if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) box->reject();
}

bool DesktopDialogs::askToStartBesideAnother() {
  Box box(nullptr, QMessageBox::Warning, "Plimo! is running in this folder already, and does not answer.",
          QMessageBox::NoButton);
  box.addDetails(
      "It may be waiting for a disk. If you start another one, each of them replaces the settings and the catalogue "
      "that "
      "the other one has written.");
  QPushButton* quit = box.addButton(QStringLiteral("Quit"), QMessageBox::RejectRole);
  const QPushButton* start = box.addButton(QStringLiteral("Start nevertheless"), QMessageBox::AcceptRole);
  box.setDefaultButton(quit);
  box.setEscapeButton(quit);
  box.exec();
  return box.clickedButton() == start;
}

void DesktopDialogs::message(const std::string& text) {
  if (silent_) return;
  Box box(prepare(), QMessageBox::NoIcon, text, QMessageBox::Ok);
  box.exec();
}

bool DesktopDialogs::repeatedMessage(const std::string& text) {
  if (!asks()) return true;
  Box box(prepare(), QMessageBox::NoIcon, text, QMessageBox::Ok);
  const QPushButton* noMore = box.addButton(QStringLiteral("Say no more"), QMessageBox::ActionRole);
  box.setDefaultButton(QMessageBox::Ok);
  box.setEscapeButton(QMessageBox::Ok);
  box.exec();
  return box.clickedButton() == noMore;
}

bool DesktopDialogs::ask(const Question& question) {
  if (!asks()) return false;
  Box box(prepare(), QMessageBox::NoIcon, question.text, QMessageBox::Yes | QMessageBox::No);
  box.addDetails(question.details);
  box.setDefaultButton(question.defaultButton == Question::Default::yes ? QMessageBox::Yes : QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

FolderAnswer DesktopDialogs::askAboutFolder(const std::string& folder) {
  if (!asks()) return FolderAnswer::stop;
  Box box(prepare(), QMessageBox::Warning, "This folder cannot be read:\n\n" + folder, QMessageBox::NoButton);
  const QPushButton* skip = box.addButton(QStringLiteral("Skip"), QMessageBox::AcceptRole);
  const QPushButton* skipAll = box.addButton(QStringLiteral("Skip all"), QMessageBox::AcceptRole);
  QPushButton* stop = box.addButton(QStringLiteral("Stop"), QMessageBox::RejectRole);
  box.setDefaultButton(stop);
  box.setEscapeButton(stop);
  box.exec();
  if (box.clickedButton() == skip) return FolderAnswer::skip;
  return box.clickedButton() == skipAll ? FolderAnswer::skipAll : FolderAnswer::stop;
}

bool DesktopDialogs::askToStartAnew(const std::string& text) { return ask({text, {}, Question::Default::no}); }

std::string DesktopDialogs::input(const std::string& boxTitle, const std::string& prompt, const std::string& proposed) {
  if (!asks()) return {};
  QInputDialog box(prepare());
  box.setWindowTitle(boxTitle.empty() ? title() : qstring(boxTitle));
  box.setLabelText(qstring(prompt));
  const QString shown = nativeName(proposed);
  box.setTextValue(shown);
  static_cast<void>(box.sizeHint());  // creates the layout
  const int edge = scaledForBoxes(margin);
  box.layout()->setContentsMargins(edge, edge, edge, edge);
  box.layout()->setSpacing(edge / 2);
  box.setFixedSize(scaledForBoxes(inputWidth), box.sizeHint().height());
  if (box.exec() != QDialog::Accepted) return {};
  // An unchanged name keeps its bytes, even if they are not valid text.
  return box.textValue() == shown ? proposed : utf16ToWtf8(box.textValue().toStdU16String());
}

std::optional<std::string> DesktopDialogs::openFile(const FileDialog& request) {
  if (!asks()) return std::nullopt;
  QFileDialog dialog(prepare(), request.title.empty() ? QStringLiteral("Open") : qstring(request.title));
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  prepareFileDialog(dialog, request);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return nativeBytes(dialog.selectedFiles().constFirst());
}

std::optional<std::string> DesktopDialogs::saveFile(const FileDialog& request) {
  if (!asks()) return std::nullopt;
  QFileDialog dialog(prepare(), request.title.empty() ? QStringLiteral("Save") : qstring(request.title));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  prepareFileDialog(dialog, request);
  while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
    const QString name = dialog.selectedFiles().constFirst();
    if (namesPattern(bytesOf(name.mid(name.lastIndexOf(QLatin1Char('/')) + 1)))) {
      message("Please type a name without a * in it.");
      continue;
    }
    const QString written = name + QStringLiteral(".m3u");
    // The program asks before it overwrites the name itself, but not before it overwrites the name with .m3u appended.
    if (QFile::exists(name) || !QFile::exists(written)) return nativeBytes(name);
    if (question(nativeBytes(written) + " already exists. Overwrite it?")) return nativeBytes(name);
  }
  return std::nullopt;
}

void DesktopDialogs::report(const RuntimeError& error) {
  if (silent_) return;
  Box box(prepare(), QMessageBox::Critical, error.report(), QMessageBox::Ok);
  box.exec();
}

}  // namespace plimo
