#include "desktop/theme/art.h"

#include <QFile>
#include <QHash>
#include <QSvgRenderer>
#include <memory>

namespace plimo {

namespace {

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

QIcon artIcon(const QString& name) { return QIcon(artPath(name)); }

bool artExists(const QString& name) { return !name.isEmpty() && QFile::exists(artPath(name)); }

QRectF paintArt(QPainter& painter, const QString& name, const QRectF& area, Qt::AspectRatioMode mode) {
  if (!artExists(name)) return area;
  QSvgRenderer& art = renderer(name);
  QRectF target = area;
  if (mode == Qt::KeepAspectRatio) {
    target.setSize(QSizeF(art.defaultSize()).scaled(area.size(), Qt::KeepAspectRatio));
    target.moveTop(area.center().y() - target.height() / 2);
  }
  art.render(&painter, target);
  return target;
}

}  // namespace plimo
