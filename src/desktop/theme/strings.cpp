#include "desktop/theme/strings.h"

#include <QTextDocument>
#include <algorithm>

#include "base/text.h"

namespace plimo {

QString qstring(std::string_view text) {
  const std::string shown = toValidUtf8(text);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

QString shownText(std::string_view text) { return qstring(elideMiddle(text, longestShownText)); }

std::string bytesOf(const QString& text) { return text.toUtf8().toStdString(); }

QString clockText(double seconds) {
  const auto whole = static_cast<long long>(std::max(0.0, seconds));
  const auto two = [](long long number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
  const long long hours = whole / 3600;
  const long long minutes = whole / 60 % 60;
  const QString start = hours > 0 ? QString::number(hours) + QLatin1Char(':') + two(minutes) : QString::number(minutes);
  return start + QLatin1Char(':') + two(whole % 60);
}

QString plainTip(const QString& text) { return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text; }

}  // namespace plimo
