#include "desktop/theme/theme.h"

#include <QApplication>
#include <QPalette>

#include "desktop/theme/scaling.h"
#include "desktop/theme/style.h"
#include "desktop/theme/style_sheet.h"

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
  p.setColor(QPalette::Mid, l.border);  // the handles of scroll bars
  p.setColor(QPalette::Dark, l.quiet);  // the same under the pointer
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

}  // namespace

void installTheme(QApplication& application) {
  current() = QApplication::palette().color(QPalette::Window).lightness() < 110 ? darkTheme() : lightTheme();
  QApplication::setStyle(new Style);
  QApplication::setPalette(paletteOf(current()));
  scaleToScreen();
  // Otherwise an application with a style sheet does not pass the window's font on to its widgets.
  QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
  application.setStyleSheet(menuStyleSheet());
}

const Theme& theme() { return current(); }

}  // namespace plimo
