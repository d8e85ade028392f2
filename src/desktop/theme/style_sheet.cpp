#include "desktop/theme/style_sheet.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

QString withPixels(QString sheet, double scale) {
  if (scale == 1) return sheet;
  static const QRegularExpression size(QStringLiteral("(\\d+)px"));
  qsizetype from = 0;
  for (auto found = size.match(sheet); found.hasMatch(); found = size.match(sheet, from)) {
    const int wanted = found.captured(1).toInt();
    const QString put =
        QString::number(wanted == 0 ? 0 : std::max(1L, std::lround(wanted * scale))) + QLatin1String("px");
    sheet.replace(found.capturedStart(), found.capturedLength(), put);
    from = found.capturedStart() + put.size();
  }
  return sheet;
}

QString sheetOf(const Theme& l) {
  QString sheet = QStringLiteral(R"(
QMenuBar { background: %card; color: %text; border-bottom: 1px solid %border; padding: 2px 4px; }
QMenuBar::item { padding: 4px 10px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: %hover; }
QMenuBar::item:pressed { background: %accent; color: %onAccent; }
QMenu { background: %card; color: %text; border: 1px solid %border; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 14px; border-radius: 4px; }
QMenu::item:selected { background: %accent; color: %onAccent; }
QMenu::item:disabled { color: %quiet; }
QMenu::separator { height: 1px; background: %border; margin: 4px 8px; }
QToolTip { background: %card; color: %text; border: 1px solid %border; padding: 3px 6px; }
QDialog, QMessageBox { background: %card; }
QPushButton { background: %button; color: %text; border: 1px solid %border; border-radius: 6px;
              padding: 5px 16px; min-width: 56px; min-height: 14px; icon-size: 12px; }
QPushButton:hover { background: %hover; }
QPushButton:pressed { background: %pressed; }
QPushButton:default { background: %accent; color: %onAccent; border-color: %accent; }
QPushButton:focus { border: 2px solid %focus; padding: 4px 15px; }
QPushButton:default:disabled { background: %pressed; border-color: %border; }
QPushButton:disabled { color: %quiet; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: none; }
QLineEdit, QComboBox { background: %field; color: %text; border: 1px solid %border; border-radius: 6px;
                       padding: 4px 8px; }
QLineEdit:focus, QComboBox:focus { border: 2px solid %focus; padding: 3px 7px; }
QListWidget { background: %field; color: %text; border: 1px solid %border; border-radius: 6px; padding: 2px; }
QScrollBar:vertical { background: transparent; width: 12px; margin: 0; border: none; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 0; border: none; }
QScrollBar::handle { background: %border; border-radius: 4px; margin: 2px; min-height: 24px; min-width: 24px; }
QScrollBar::handle:hover { background: %quiet; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
QListWidget:focus { border: 2px solid %focus; padding: 1px; }
)");
  const auto put = [&sheet](const char* key, const QColor& colour) {
    sheet.replace(QLatin1String(key), colour.name());
  };
  put("%onAccent", l.onAccent);
  put("%accent", l.accent);
  put("%card", l.card);
  put("%text", l.text);
  put("%border", l.border);
  put("%hover", l.buttonHover);
  put("%pressed", l.buttonPressed);
  put("%button", l.button);
  put("%quiet", l.quiet);
  put("%focus", l.focus);
  put("%field", l.field);
  return sheet;
}

}  // namespace

QString scaledStyleSheet(QString sheet) { return withPixels(std::move(sheet), windowScale()); }

QString screenStyleSheet() { return withPixels(sheetOf(theme()), screenScale()); }

QString windowStyleSheet() { return windowScale() == screenScale() ? QString() : scaledStyleSheet(sheetOf(theme())); }

}  // namespace plimo
