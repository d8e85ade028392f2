// A text that the user looks for in a list, without regard to case and accents.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace plimo {

class SearchText {
 public:
  SearchText() = default;
  explicit SearchText(const QString& text);

  // Also true for a text of nothing but accents.
  bool empty() const { return key_.isEmpty(); }
  // Whether a row's text contains it. False for an empty search text.
  bool isIn(std::string_view text) const;
  // Whether a row's text, without its leading blanks, begins with it.
  bool begins(std::string_view text) const;

  struct Range {
    qsizetype first;
    qsizetype length;  // UTF-16 units
  };
  // The first occurrence in a shown text.
  std::optional<Range> rangeIn(const QString& text) const;

 private:
  QString key_;             // folded and without accents
  std::string lowerAscii_;  // the same if it is all ASCII: then ASCII texts are compared byte by byte
};

}  // namespace plimo
