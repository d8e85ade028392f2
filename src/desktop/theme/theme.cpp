#include "desktop/theme/theme.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QPalette>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <utility>

#include "base/text.h"

namespace plimo {

namespace {

Theme lightTheme() {
  Theme l;
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

Theme darkTheme() {
  Theme l;
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

Theme& current() {
  static Theme theme = lightTheme();
  return theme;
}

// How large things are painted relative to the size they were designed in.
struct Scales {
  QFont usual;         // the desktop's own
  double screen = 1;   // menus and boxes
  double window = 1;   // what stands on the window
  double reading = 1;  // titles and texts on it
};

Scales& scales() {
  static Scales now;
  return now;
}

QFont usualFont(double scale) {
  QFont font = scales().usual;
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * scale))));
  }
  return font;
}

// How many times what is designed for a screen of 1024 x 768 fits into the size; a title bar is taken off its height.
double roomIn(QSize size, double largest) {
  constexpr double designedWidth = 1024;
  constexpr double designedHeight = 740;
  constexpr double smallest = 0.5;
  return std::clamp(std::min(size.width() / designedWidth, size.height() / designedHeight), smallest, largest);
}

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

QPalette paletteOf(const Theme& l) {
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

void installTheme(QApplication& application) {
  current() = QApplication::palette().color(QPalette::Window).lightness() < 110 ? darkTheme() : lightTheme();
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(paletteOf(current()));
  Scales& now = scales();
  now.usual = QApplication::font();
  // Menus and boxes have to fit on a small screen, too.
  const QScreen* screen = QGuiApplication::primaryScreen();
  now.screen = screen == nullptr ? 1 : roomIn(screen->size(), 1);
  now.window = now.screen;
  QApplication::setFont(usualFont(now.screen));
  application.setStyleSheet(withPixels(sheetOf(current()), now.screen));
}

void setWindowSize(QSize size) {
  // In steps, so that a window drawn smaller by hand is not dressed anew with every pixel.
  constexpr double steps = 32;
  scales().window = std::floor(roomIn(size, 1) * steps) / steps;
  constexpr double largest = 1.5;
  scales().reading = std::floor(roomIn(size, largest) * steps) / steps;
}

double windowScale() { return scales().window; }

int scaled(int pixels) { return std::max(1, static_cast<int>(std::lround(pixels * windowScale()))); }

int scaledForBoxes(int pixels) { return std::max(1, static_cast<int>(std::lround(pixels * scales().screen))); }

QString scaledSheet(QString sheet) { return withPixels(std::move(sheet), windowScale()); }

QString windowSheet() { return windowScale() == scales().screen ? QString() : scaledSheet(sheetOf(current())); }

const Theme& theme() { return current(); }

QColor qcolor(Rgb colour) { return {colour.red, colour.green, colour.blue}; }

Rgb rgbOf(const QColor& colour) { return {colour.red(), colour.green(), colour.blue()}; }

QString qstring(std::string_view text) {
  const std::string shown = toValidUtf8(text);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

std::string bytesOf(const QString& text) { return text.toUtf8().toStdString(); }

QString plainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

QFont windowFont() { return usualFont(windowScale()); }

QFont smallFont() { return usualFont(0.9 * windowScale()); }

QFont titleFont() {
  QFont font = usualFont(1.25 * scales().reading);
  font.setBold(true);
  return font;
}

QFont readingFont() { return usualFont(7.0 / 6 * scales().reading); }

QIcon artIcon(const QString& name) { return QIcon(artPath(name)); }

bool artExists(const QString& name) { return !name.isEmpty() && QFile::exists(artPath(name)); }

QRectF paintArt(QPainter& painter, const QString& name, const QRectF& place, Qt::AspectRatioMode mode) {
  if (!artExists(name)) return place;
  QSvgRenderer& art = renderer(name);
  QRectF target = place;
  if (mode == Qt::KeepAspectRatio) {
    target.setSize(QSizeF(art.defaultSize()).scaled(place.size(), Qt::KeepAspectRatio));
    target.moveTop(place.center().y() - target.height() / 2);
  }
  art.render(&painter, target);
  return target;
}

void paintRing(QPainter& painter, const QRectF& around, double corner) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(theme().focus, 2));
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
