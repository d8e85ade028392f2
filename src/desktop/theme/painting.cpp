#include "desktop/theme/painting.h"

#include <iterator>
#include <utility>

#include "desktop/theme/theme.h"

namespace plimo {

void paintFocusRing(QPainter& painter, const QRectF& around, double cornerRadius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(theme().focus, 2));
  painter.drawRoundedRect(around.adjusted(1, 1, -1, -1), cornerRadius, cornerRadius);
  painter.restore();
}

void paintTick(QPainter& painter, const QRectF& square, const QColor& colour) {
  const auto at = [&square](double x, double y) {
    return QPointF(square.left() + square.width() * x, square.top() + square.height() * y);
  };
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, square.width() / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF{{at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.3)}});
  painter.restore();
}

void paintCaption(QPainter& painter, const QRect& area, const QString& caption, Qt::Alignment alignment) {
  const QFont usual = painter.font();
  const int flags = static_cast<int>(alignment) | Qt::TextWordWrap | Qt::TextShowMnemonic;
  constexpr double smallest = 0.75;
  // A narrower font is tried before a much smaller one.
  constexpr std::pair<double, int> attempts[] = {{1, 100},  {0.95, 100}, {0.9, 100}, {0.95, 90},
                                                 {0.9, 85}, {0.85, 85},  {0.8, 85},  {smallest, 80}};
  for (const auto& [size, stretch] : attempts) {
    QFont font = usual;
    font.setPointSizeF(usual.pointSizeF() * size);
    font.setStretch(stretch);
    const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, area.width(), 10000), flags, caption);
    if (needed.width() > area.width() || needed.height() > area.height()) continue;
    painter.setFont(font);
    painter.drawText(area, flags, caption);
    painter.setFont(usual);
    return;
  }
  QFont font = usual;
  font.setPointSizeF(usual.pointSizeF() * smallest);
  font.setStretch(attempts[std::size(attempts) - 1].second);
  painter.setFont(font);
  const QString shortened = QFontMetrics(font).elidedText(caption, Qt::ElideRight, area.width());
  painter.drawText(area, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextShowMnemonic, shortened);
  painter.setFont(usual);
}

}  // namespace plimo
