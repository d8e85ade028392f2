#include "desktop/widgets/search_text.h"

#include <algorithm>
#include <vector>

#include "desktop/theme/strings.h"

namespace plimo {

namespace {

// Decomposed, without accents, case-folded.
QString keyOf(const QString& text) {
  QString key;
  for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
    if (character.category() != QChar::Mark_NonSpacing) key += character;
  }
  return key.toCaseFolded();
}

bool isAscii(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsWithLower(std::string_view text, std::string_view wanted) {
  return text.size() >= wanted.size() &&
         std::equal(wanted.begin(), wanted.end(), text.begin(), [](char w, char c) { return w == lower(c); });
}

bool containsLower(std::string_view text, std::string_view wanted) {
  for (; text.size() >= wanted.size(); text.remove_prefix(1)) {
    if (lower(text.front()) == wanted.front() && startsWithLower(text, wanted)) return true;
  }
  return false;
}

}  // namespace

SearchText::SearchText(const QString& text) : key_(keyOf(text)) {
  const std::string bytes = bytesOf(key_);
  if (isAscii(bytes)) lowerAscii_ = bytes;
}

bool SearchText::isIn(std::string_view text) const {
  if (empty()) return false;
  if (isAscii(text)) return !lowerAscii_.empty() && containsLower(text, lowerAscii_);
  return keyOf(qstring(text)).contains(key_);
}

bool SearchText::begins(std::string_view text) const {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  if (isAscii(text)) return (empty() || !lowerAscii_.empty()) && startsWithLower(text, lowerAscii_);
  return keyOf(qstring(text)).startsWith(key_);
}

std::optional<SearchText::Range> SearchText::rangeIn(const QString& text) const {
  if (empty()) return std::nullopt;
  QString key;
  std::vector<qsizetype> origins;  // of each unit of the key, in the text
  for (qsizetype i = 0; i < text.size();) {
    const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    key += keyOf(text.mid(i, length));
    origins.resize(static_cast<std::size_t>(key.size()), i);
    i += length;
  }
  const qsizetype first = key.indexOf(key_);
  if (first < 0) return std::nullopt;
  const auto originOf = [&](qsizetype unit) {
    return unit < key.size() ? origins[static_cast<std::size_t>(unit)] : text.size();
  };
  const qsizetype begin = originOf(first);
  return Range{begin, originOf(first + key_.size()) - begin};
}

}  // namespace plimo
