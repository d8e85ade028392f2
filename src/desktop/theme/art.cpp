#include "desktop/theme/art.h"

#include <QFile>
#include <QHash>
#include <QImage>
#include <QPixmapCache>

namespace plimo {

namespace {

QString artPath(const QString& name) { return QStringLiteral(":/art/%1.png").arg(name); }

// The picture as the build rendered it.
const QImage& rendered(const QString& name) {
  static QHash<QString, QImage> images;
  auto found = images.find(name);
  if (found == images.end()) {
    const QImage image(artPath(name));
    found = images.insert(name, image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
  }
  return *found;
}

// The picture at a size in pixels of the device. Each of its pixels is the mean of those that it covers in the rendered
// one, so edges are as smooth as if the picture had been rendered at this size.
QPixmap reduced(const QString& name, QSize size) {
  const QString key = QStringLiteral("plimo %1 %2x%3").arg(name).arg(size.width()).arg(size.height());
  QPixmap pixmap;
  if (!QPixmapCache::find(key, &pixmap)) {
    pixmap = QPixmap::fromImage(rendered(name).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    QPixmapCache::insert(key, pixmap);
  }
  return pixmap;
}

}  // namespace

QIcon artIcon(const QString& name) { return QIcon(artPath(name)); }

QIcon programIcon() {
  QIcon icon;
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128, 256}) {
    icon.addFile(QStringLiteral(":/art/plimo-%1.png").arg(size));
  }
  return icon;
}

bool artExists(const QString& name) { return !name.isEmpty() && QFile::exists(artPath(name)); }

QRectF paintArt(QPainter& painter, const QString& name, const QRectF& area, Qt::AspectRatioMode mode) {
  if (!artExists(name)) return area;
  QRectF target = area;
  if (mode == Qt::KeepAspectRatio) {
    target.setSize(QSizeF(rendered(name).size()).scaled(area.size(), Qt::KeepAspectRatio));
    target.moveTop(area.center().y() - target.height() / 2);
  }
  const QTransform& toDevice = painter.deviceTransform();
  const QRect pixels = toDevice.mapRect(target).toRect();
  if (pixels.isEmpty()) return target;
  const QPixmap pixmap = reduced(name, pixels.size());
  painter.drawPixmap(toDevice.inverted().mapRect(QRectF(pixels)), pixmap, QRectF(pixmap.rect()));
  return target;
}

}  // namespace plimo
