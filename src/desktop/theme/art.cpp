#include "desktop/theme/art.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QIconEngine>
#include <QImageReader>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
#include <utility>

namespace plimo {

namespace {

QString artPath(const QString& name) { return QStringLiteral(":/art/%1.png").arg(name); }

// Said to be PNG, so that no plugin for another format is loaded to look at it: that takes longer than decoding.
QImage decoded(const QString& path) {
  QImageReader reader(path, QByteArrayLiteral("png"));
  reader.setAutoDetectImageFormat(false);
  return reader.read();
}

// The picture as the build rendered it.
const QImage& rendered(const QString& name) {
  static QHash<QString, QImage> images;
  auto found = images.find(name);
  if (found == images.end()) {
    found = images.insert(name, decoded(artPath(name)).convertToFormat(QImage::Format_ARGB32_Premultiplied));
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

// Decodes its picture when it is first painted.
class ArtIconEngine : public QIconEngine {
 public:
  explicit ArtIconEngine(QString name) : name_(std::move(name)) {}

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const QSize fitting = rendered(name_).size().scaled(size, Qt::KeepAspectRatio);
    if (fitting.isEmpty()) return {};
    const QPixmap normal = reduced(name_, fitting);
    if (mode == QIcon::Normal) return normal;
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, normal, &option);
  }

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
    const double scale = painter->device()->devicePixelRatio();
    const QPixmap picture = pixmap((QSizeF(area.size()) * scale).toSize(), mode, state);
    QRectF target(QPointF(), QSizeF(picture.size()) / scale);
    target.moveCenter(QRectF(area).center());
    painter->drawPixmap(target, picture, QRectF(picture.rect()));
  }

  QIconEngine* clone() const override { return new ArtIconEngine(*this); }

 private:
  QString name_;
};

}  // namespace

QIcon artIcon(const QString& name) { return QIcon(new ArtIconEngine(name)); }

QIcon programIcon() {
  QIcon icon;
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128, 256}) {
    icon.addPixmap(QPixmap::fromImage(decoded(artPath(QStringLiteral("plimo-%1").arg(size)))));
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
