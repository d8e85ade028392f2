#include "desktop/theme/strings.h"

#include <QTextDocument>

#include "base/text.h"

namespace plimo {

QString qstring(std::string_view text) {
  const std::string shown = toValidUtf8(text);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

std::string bytesOf(const QString& text) { return text.toUtf8().toStdString(); }

QString plainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

}  // namespace plimo
