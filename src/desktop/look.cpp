#include "desktop/look.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QPalette>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QTextDocument>
#include <iterator>
#include <memory>
#include <utility>

#include "base/text.h"

namespace plimo {

namespace {

Look lightLook() {
  Look l;
  l.window = QColor(0xE9, 0xEA, 0xF3);
  l.card = QColor(0xFB, 0xFB, 0xFE);
  l.border = QColor(0xC3, 0xC5, 0xDA);
  l.field = QColor(0xFF, 0xFF, 0xFF);
  l.text = QColor(0x17, 0x17, 0x2E);
  l.quiet = QColor(0x5B, 0x5D, 0x7A);
  l.accent = QColor(0x34, 0x34, 0xA8);
  l.onAccent = QColor(0xFF, 0xFF, 0xFF);
  l.focus = QColor(0x4A, 0x4A, 0xE0);
  l.button = QColor(0xFF, 0xFF, 0xFF);
  l.buttonHover = QColor(0xEE, 0xEE, 0xFF);
  l.buttonPressed = QColor(0xDA, 0xDA, 0xF4);
  return l;
}

Look darkLook() {
  Look l;
  l.dark = true;
  l.window = QColor(0x14, 0x14, 0x22);
  l.card = QColor(0x1E, 0x1E, 0x32);
  l.border = QColor(0x3C, 0x3C, 0x5E);
  l.field = QColor(0x17, 0x17, 0x28);
  l.text = QColor(0xEC, 0xEC, 0xF6);
  l.quiet = QColor(0xA4, 0xA5, 0xC2);
  l.accent = QColor(0x8A, 0x8A, 0xF2);
  l.onAccent = QColor(0x10, 0x10, 0x20);
  l.focus = QColor(0xFF, 0xE0, 0x40);
  l.button = QColor(0x2A, 0x2A, 0x46);
  l.buttonHover = QColor(0x36, 0x36, 0x5A);
  l.buttonPressed = QColor(0x22, 0x22, 0x3A);
  return l;
}

Look& current() {
  static Look look = lightLook();
  return look;
}

QPalette paletteOf(const Look& l) {
  QPalette p;
  p.setColor(QPalette::Window, l.window);
  p.setColor(QPalette::WindowText, l.text);
  p.setColor(QPalette::Base, l.field);
  p.setColor(QPalette::AlternateBase, l.card);
  p.setColor(QPalette::Text, l.text);
  p.setColor(QPalette::PlaceholderText, l.quiet);
  p.setColor(QPalette::Button, l.button);
  p.setColor(QPalette::ButtonText, l.text);
  p.setColor(QPalette::BrightText, l.accent);
  p.setColor(QPalette::Highlight, l.accent);
  p.setColor(QPalette::HighlightedText, l.onAccent);
  p.setColor(QPalette::Link, l.accent);
  p.setColor(QPalette::ToolTipBase, l.card);
  p.setColor(QPalette::ToolTipText, l.text);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    QColor faded = l.quiet;
    faded.setAlpha(150);
    p.setColor(QPalette::Disabled, role, faded);
  }
  return p;
}

// What the style draws by itself: menus, the boxes that ask, lists that drop down.
QString sheetOf(const Look& l) {
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
              padding: 5px 16px; min-width: 56px; }
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

QString artPath(const QString& name) { return QStringLiteral(":/art/%1.svg").arg(name); }

QSvgRenderer& renderer(const QString& name) {
  static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
  auto& found = renderers[name];
  if (!found) {
    found = std::make_shared<QSvgRenderer>(artPath(name));
    found->setAspectRatioMode(Qt::IgnoreAspectRatio);
  }
  return *found;
}

}  // namespace

void installLook(QApplication& application) {
  current() = QApplication::palette().color(QPalette::Window).lightness() < 110 ? darkLook() : lightLook();
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(paletteOf(current()));
  application.setStyleSheet(sheetOf(current()));
}

const Look& look() { return current(); }

QColor qcolor(Rgb colour) { return {colour.red, colour.green, colour.blue}; }

Rgb rgbOf(const QColor& colour) { return {colour.red(), colour.green(), colour.blue()}; }

QString qstring(std::string_view text) {
  const std::string shown = displayText(text);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

std::string bytesOf(const QString& text) { return text.toUtf8().toStdString(); }

QString plainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

QFont titleFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 1.25);
  font.setBold(true);
  return font;
}

QFont smallFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 0.9);
  return font;
}

QIcon artIcon(const QString& name) { return QIcon(artPath(name)); }

bool artExists(const QString& name) { return !name.isEmpty() && QFile::exists(artPath(name)); }

void paintArt(QPainter& painter, const QString& name, const QRectF& place, Qt::AspectRatioMode mode) {
  if (!artExists(name)) return;
  QSvgRenderer& art = renderer(name);
  QRectF target = place;
  if (mode == Qt::KeepAspectRatio) {
    target.setSize(QSizeF(art.defaultSize()).scaled(place.size(), Qt::KeepAspectRatio));
    target.moveTop(place.center().y() - target.height() / 2);
  }
  art.render(&painter, target);
}

void paintRing(QPainter& painter, const QRectF& around, double corner) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look().focus, 2));
  painter.drawRoundedRect(around.adjusted(1, 1, -1, -1), corner, corner);
  painter.restore();
}

void paintCaption(QPainter& painter, const QRect& place, const QString& caption, Qt::Alignment alignment) {
  const QFont usual = painter.font();
  const int flags = static_cast<int>(alignment) | Qt::TextWordWrap;
  constexpr double smallest = 0.75;
  // Narrower letters before much smaller ones.
  constexpr std::pair<double, int> attempts[] = {{1, 100},  {0.95, 100}, {0.9, 100}, {0.95, 90},
                                                 {0.9, 85}, {0.85, 85},  {0.8, 85},  {smallest, 80}};
  for (const auto& [size, stretch] : attempts) {
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * size);
    font.setStretch(stretch);
    const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, place.width(), 10000), flags, caption);
    if (needed.width() > place.width() || needed.height() > place.height()) continue;
    painter.setFont(font);
    painter.drawText(place, flags, caption);
    painter.setFont(usual);
    return;
  }
  QFont font = usual;
  font.setPointSizeF(usual.pointSizeF() * smallest);
  font.setStretch(attempts[std::size(attempts) - 1].second);
  painter.setFont(font);
  const QString shortened = QFontMetrics(font).elidedText(caption, Qt::ElideRight, place.width());
  painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine, shortened);
  painter.setFont(usual);
}

}  // namespace plimo
