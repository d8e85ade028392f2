// The program's own pictures: the SVG files in art/, known by their names without the ending. The build renders them,
// larger than they are painted.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QString>

namespace plimo {

QIcon artIcon(const QString& name);
// The icon of the program's windows.
QIcon programIcon();
bool artExists(const QString& name);
// Paints nothing if there is no such picture. With its aspect ratio kept the picture is aligned left and centred
// vertically. It begins and ends on whole pixels of the device. Returns the rectangle that it covers.
QRectF paintArt(QPainter& painter, const QString& name, const QRectF& area, Qt::AspectRatioMode mode);

}  // namespace plimo
