// The program's pictures at the sizes of ordinary and of finer screens.
#include <gtest/gtest.h>

#include <QImage>

#include "desktop/theme/art.h"

namespace plimo {
namespace {

// A picture of 48 x 16 on a screen of this scale, painted at the left of a white area of twice the height.
QImage painted(const QString& name, qreal scale) {
  QImage image((QSizeF(48, 32) * scale).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  QPainter painter(&image);
  paintArt(painter, name, QRectF(0, 0, 48, 32), Qt::KeepAspectRatio);
  return image;
}

TEST(Art, KeepsItsRatioAtTheLeftAndIsCentredVertically) {
  const QImage image = painted(QStringLiteral("handle-songs"), 1);
  EXPECT_EQ(image.pixelColor(24, 7), QColor(Qt::white));
  EXPECT_NE(image.pixelColor(24, 8), QColor(Qt::white));
  EXPECT_NE(image.pixelColor(24, 23), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(24, 24), QColor(Qt::white));
}

// A pixel painted twice, or between two others, would be a blend of its neighbours.
TEST(Art, IsPaintedPixelByPixelOnScreensOfEveryScale) {
  for (const qreal scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    const QImage image = painted(QStringLiteral("handle-songs"), scale);
    QImage expected(QStringLiteral(":/art/handle-songs.png"));
    ASSERT_FALSE(expected.isNull());
    const QSize size = (QSizeF(48, 16) * scale).toSize();
    expected = expected.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                   .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage area(size, QImage::Format_RGB32);
    area.fill(Qt::white);
    QPainter(&area).drawImage(0, 0, expected);
    QImage found = image.copy(QRect(QPoint(0, (image.height() - size.height()) / 2), size));
    found.setDevicePixelRatio(1);
    EXPECT_EQ(found, area) << scale;
  }
}

TEST(Art, OfAnUnknownNamePaintsNothing) {
  const QImage image = painted(QStringLiteral("no such picture"), 1);
  EXPECT_EQ(image, painted(QString(), 1));
  EXPECT_EQ(image.pixelColor(2, 16), QColor(Qt::white));
}

TEST(Art, OfTheProgramsIconIsThereInAllItsSizes) {
  const QList<QSize> sizes = programIcon().availableSizes();
  for (const int size : {16, 20, 24, 32, 40, 48, 64, 128, 256}) EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
}

}  // namespace
}  // namespace plimo
