#include "desktop/theme/style_parts.h"

#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/theme/contrast.h"
#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

// Half a pixel inside, where a line of one pixel is sharp.
QRectF sharp(const QRect& rect) { return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5); }

void paintRounded(QPainter& painter, const QRect& rect, double cornerRadius, const QColor& fill, const QColor& edge) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(sharp(rect), cornerRadius, cornerRadius);
  painter.restore();
}

int cornerRadius(const QWidget* widget) { return scaledFor(widget, 6); }

}  // namespace

int scaledFor(const QWidget* widget, int pixels) {
  const Qt::WindowType type = widget == nullptr ? Qt::Window : widget->window()->windowType();
  const bool ownWindow = type == Qt::Dialog || type == Qt::Popup || type == Qt::ToolTip;
  return ownWindow ? scaledForBoxes(pixels) : scaled(pixels);
}

void paintCard(QPainter& painter, const QRect& rect) {
  paintRounded(painter, rect, 2 * radius(), theme().card, theme().border);
}

void paintTitledCard(QPainter& painter, const QRect& rect, const QString& title, const QWidget& card) {
  paintCard(painter, rect);
  painter.save();
  painter.setFont(titleFont());
  painter.setPen(theme().accent);
  const QPoint first = card.childrenRect().topLeft();
  const int line = painter.fontMetrics().height();
  const QRect titleRect(first.x(), std::max(0, (first.y() - line) * 3 / 5), rect.width() - 2 * first.x(), line);
  painter.drawText(titleRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
  painter.restore();
}

void paintField(QPainter& painter, const QRect& rect, bool focused, const QWidget* widget) {
  paintRounded(painter, rect, cornerRadius(widget), theme().field, theme().border);
  if (focused) paintFocusRing(painter, rect, cornerRadius(widget));
}

void paintDownArrow(QPainter& painter, const QRect& rect, const QWidget* widget) {
  const double arm = scaledFor(widget, 4);
  const QPointF tip = QRectF(rect).center() + QPointF(0, arm / 2);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme().quiet, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{{tip + QPointF(-arm, -arm), tip, tip + QPointF(arm, -arm)}});
  painter.restore();
}

void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool pressed = option.state.testFlag(QStyle::State_Sunken);
  QColor face = option.palette.color(QPalette::Button);
  QColor text = option.palette.color(QPalette::ButtonText);
  QColor edge = theme().border;
  if (option.features.testFlag(QStyleOptionButton::DefaultButton) && enabled) {
    face = edge = theme().accent;
    text = theme().onAccent;
  } else if (face == theme().button) {
    if (enabled && option.state.testFlag(QStyle::State_MouseOver)) face = theme().buttonHover;
    if (pressed) face = theme().buttonPressed;
  } else {
    edge = qcolor(mix(rgbOf(face), readableOn(rgbOf(face)), 0.25));
    if (pressed) face = face.darker(115);
  }
  if (!enabled) text = theme().quiet;
  paintRounded(painter, option.rect, cornerRadius(widget), face, edge);
  painter.setPen(text);
  paintCaption(painter, option.rect.adjusted(3, 1, -3, -1).translated(0, pressed ? 1 : 0), option.text,
               Qt::AlignCenter);
  if (option.state.testFlag(QStyle::State_HasFocus)) paintFocusRing(painter, option.rect, cornerRadius(widget));
}

void paintToolButtonPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  const bool down = option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On);
  const bool hover = option.state.testFlag(QStyle::State_Enabled) && option.state.testFlag(QStyle::State_MouseOver);
  const QColor face = down ? theme().buttonPressed : theme().buttonHover;
  if (down || hover) paintRounded(painter, option.rect, cornerRadius(widget), face, face);
  if (option.state.testFlag(QStyle::State_HasFocus)) paintFocusRing(painter, option.rect, cornerRadius(widget));
}

int choiceMarkSize() { return scaled(16); }

void paintChoice(QPainter& painter, const QStyleOptionButton& option, bool round) {
  const int side = choiceMarkSize();
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool on = option.state.testFlag(QStyle::State_On);
  const bool hover = option.state.testFlag(QStyle::State_MouseOver);
  const QRect& rect = option.rect;
  const QRectF mark(rect.left() + 2.5, rect.top() + (rect.height() - side) / 2.0, side, side);
  const QColor accent = enabled ? theme().accent : theme().quiet;
  const double corner = round ? side / 2.0 : scaled(4);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(on ? accent : theme().quiet, 1.5));
  painter.setBrush(on ? accent : hover ? theme().buttonHover : theme().field);
  painter.drawRoundedRect(mark, corner, corner);
  if (on && round) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().onAccent);
    painter.drawEllipse(mark.center(), side * 0.2, side * 0.2);
  } else if (on) {
    paintTick(painter, mark, theme().onAccent);
  }
  painter.restore();
  painter.setPen(enabled ? theme().text : theme().quiet);
  paintCaption(painter, rect.adjusted(side + 2 + spacing(), 0, -2, 0), option.text, Qt::AlignLeft | Qt::AlignVCenter);
  if (option.state.testFlag(QStyle::State_HasFocus)) paintFocusRing(painter, rect, 4);
}

void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget) {
  painter.fillRect(option.rect, theme().card);
  const bool open = option.state.testFlag(QStyle::State_Sunken);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const QColor face = open ? theme().accent : theme().buttonHover;
  if (open || selected) paintRounded(painter, option.rect, scaledFor(widget, 4), face, face);
  painter.setPen(open ? theme().onAccent : theme().text);
  painter.drawText(option.rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, option.text);
}

void paintMenuBarBackground(QPainter& painter, const QRect& rect) {
  painter.fillRect(rect, theme().card);
  painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, theme().border);
}

}  // namespace plimo
