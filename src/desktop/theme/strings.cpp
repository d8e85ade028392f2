#include "desktop/theme/strings.h"

#include <QTextDocument>
#include <algorithm>

#include "base/text.h"

namespace plimo {

namespace {

// The sign for a character that is not shown itself; the character if it is.
QChar signFor(QChar character) {
  const char16_t unit = character.unicode();
  constexpr char16_t firstPicture = 0x2400;  // Unicode's pictures of the control characters
  constexpr char16_t deletePicture = 0x2421;
  constexpr char16_t newlinePicture = 0x2424;
  constexpr char16_t anyOther = 0x2426;
  if (unit < ' ') return QChar(static_cast<char16_t>(firstPicture + unit));
  if (unit == 0x7F) return QChar(deletePicture);
  if (unit == 0x2028 || unit == 0x2029) return QChar(newlinePicture);
  const bool control = unit > 0x7F && unit < 0xA0;
  const bool overridesDirection = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
  return control || overridesDirection ? QChar(anyOther) : character;
}

}  // namespace

QString qstring(std::string_view text) {
  const std::string shown = toValidUtf8(text);
  return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

QString shownText(std::string_view text) { return qstring(elideMiddle(text, longestShownText)); }

QString shownName(std::string_view name) {
  QString shown = shownText(name).normalized(QString::NormalizationForm_C);
  for (QChar& character : shown) character = signFor(character);
  return shown;
}

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
