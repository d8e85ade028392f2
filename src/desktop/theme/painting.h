// Shapes that several widgets paint alike.
#pragma once

#include <QPainter>
#include <QString>

namespace plimo {

// The ring around the widget with the keyboard focus, inside the rectangle.
void paintFocusRing(QPainter& painter, const QRectF& around, double cornerRadius);

// The tick of a check box that fills the square.
void paintTick(QPainter& painter, const QRectF& square, const QColor& colour);

// Paints a caption in as many lines as fit. If it does not fit, it is set narrower and smaller, and at last elided. An
// ampersand underlines the letter after it.
void paintCaption(QPainter& painter, const QRect& area, const QString& caption, Qt::Alignment alignment);

}  // namespace plimo
