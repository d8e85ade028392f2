#include "desktop/theme/style_bars.h"

#include <QTime>
#include <algorithm>
#include <cmath>

#include "desktop/theme/painting.h"
#include "desktop/theme/scaling.h"
#include "desktop/theme/style_parts.h"
#include "desktop/theme/theme.h"

namespace plimo {

namespace {

void paintBar(QPainter& painter, const QRectF& bar, const QColor& colour) {
  const double end = std::min(bar.width(), bar.height()) / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRoundedRect(bar, end, end);
}

}  // namespace

int sliderHandleSize() { return scaled(16); }

QRect sliderPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
  const QRect& rect = option.rect;
  const int handle = sliderHandleSize();
  const int length = rect.width() - handle;
  if (part == QStyle::SC_SliderHandle) {
    const int at = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition, length,
                                                   option.upsideDown);
    return {rect.left() + at, rect.top() + (rect.height() - handle) / 2, handle, handle};
  }
  const int thickness = scaled(4);
  return {rect.left() + handle / 2, rect.top() + (rect.height() - thickness) / 2, length, thickness};
}

void paintSlider(QPainter& painter, const QStyleOptionSlider& option) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const QColor accent = enabled ? option.palette.color(QPalette::Highlight) : theme().border;
  const QRectF handle = QRectF(sliderPart(option, QStyle::SC_SliderHandle));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (option.subControls.testFlag(QStyle::SC_SliderGroove)) {
    QRectF groove = sliderPart(option, QStyle::SC_SliderGroove);
    paintBar(painter, groove, theme().border);
    groove.setRight(handle.center().x());
    paintBar(painter, groove, accent);
  }
  if (option.subControls.testFlag(QStyle::SC_SliderHandle) && enabled) {
    painter.setPen(QPen(theme().quiet, 1));
    painter.setBrush(theme().button);
    painter.drawEllipse(handle.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    painter.drawEllipse(handle.center(), handle.width() * 0.28, handle.width() * 0.28);
  }
  painter.restore();
  if (option.state.testFlag(QStyle::State_HasFocus)) paintFocusRing(painter, option.rect, 4);
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part, const QWidget* widget) {
  const QRect& rect = option.rect;
  const bool horizontal = option.orientation == Qt::Horizontal;
  const int length = horizontal ? rect.width() : rect.height();
  const double whole = static_cast<double>(option.maximum) - option.minimum + option.pageStep;
  const int wanted = whole > 0 ? static_cast<int>(length * (option.pageStep / whole)) : length;
  const int handle = std::min(length, std::max(wanted, scaledFor(widget, 28)));
  const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                    length - handle, option.upsideDown);
  const auto span = [&](int from, int size) {
    return horizontal ? QRect(rect.left() + from, rect.top(), size, rect.height())
                      : QRect(rect.left(), rect.top() + from, rect.width(), size);
  };
  switch (part) {
    case QStyle::SC_ScrollBarSlider:
      return span(start, handle);
    case QStyle::SC_ScrollBarGroove:
      return rect;
    case QStyle::SC_ScrollBarSubPage:
      return span(0, start);
    case QStyle::SC_ScrollBarAddPage:
      return span(start + handle, length - start - handle);
    default:
      return {};
  }
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget) {
  const bool hover =
      option.state.testFlag(QStyle::State_MouseOver) && option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const int margin = scaledFor(widget, 2);
  paintBar(painter,
           QRectF(scrollBarPart(option, QStyle::SC_ScrollBarSlider, widget)).adjusted(margin, margin, -margin, -margin),
           option.palette.color(hover ? QPalette::Dark : QPalette::Mid));
  painter.restore();
}

void paintProgressBar(QPainter& painter, const QStyleOptionProgressBar& option) {
  const QRectF bar(option.rect);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  paintBar(painter, bar, theme().border);
  QRectF filled = bar;
  const int range = option.maximum - option.minimum;
  if (range > 0) {
    filled.setWidth(bar.width() * (option.progress - option.minimum) / range);
  } else {
    constexpr int period = 4800;  // milliseconds to and fro
    const double part = QTime::currentTime().msecsSinceStartOfDay() % period / (period / 2.0);
    filled.setWidth(bar.width() / 4);
    filled.moveLeft(bar.left() + (bar.width() - filled.width()) * (part < 1 ? part : 2 - part));
  }
  paintBar(painter, filled, theme().accent);
  painter.restore();
}

}  // namespace plimo
