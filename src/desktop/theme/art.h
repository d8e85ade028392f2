// The program's own pictures: SVG files in art/, known by their names without the ending.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QString>

namespace plimo {

QIcon artIcon(const QString& name);
bool artExists(const QString& name);
// Paints nothing if there is no such picture. With its aspect ratio kept the picture is aligned left and centred
// vertically. Returns the rectangle that it covers.
QRectF paintArt(QPainter& painter, const QString& name, const QRectF& area, Qt::AspectRatioMode mode);

}  // namespace plimo
