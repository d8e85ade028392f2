#include "base/notation.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

NotationReader::NotationReader(std::string_view content, std::string path) : content_(content), path_(std::move(path)) {
  if (content_.starts_with(byteOrderMark)) position_ = byteOrderMark.size();
}

Item NotationReader::next() {
  if (atEnd()) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  position_ = std::min(content_.find_first_not_of(' ', position_), content_.size());
  Item item;
  if (position_ < content_.size() && content_[position_] == '"') {
    item.form = Item::Form::quoted;
    std::size_t start = ++position_;
    std::size_t end = std::min(content_.find('"', start), content_.size());
    item.text = content_.substr(start, end - start);
    if (end + 1 < content_.size() && content_[end + 1] == '"') {  // a doubled quote: the text must be put together
      unescaped_.clear();
      for (;;) {
        unescaped_.append(content_, start, end - start);
        if (end + 1 >= content_.size() || content_[end + 1] != '"') break;
        unescaped_ += '"';
        start = end + 2;
        end = std::min(content_.find('"', start), content_.size());
      }
      item.text = unescaped_;
    }
    position_ = std::min(end + 1, content_.size());
  }
  const std::size_t start = position_;
  position_ = std::min(content_.find_first_of(",\r\n", start), content_.size());
  if (item.form == Item::Form::bare) item.text = content_.substr(start, position_ - start);
  if (content_.substr(position_, 2) == "\r\n") {
    position_ += 2;
  } else if (position_ < content_.size()) {
    ++position_;
  }
  return item;
}

void writeText(std::string& file, std::string_view text) {
  file += '"';
  for (std::size_t start = 0;;) {
    const std::size_t quote = text.find('"', start);
    if (quote == std::string_view::npos) {
      file.append(text, start);
      break;
    }
    file.append(text, start, quote + 1 - start);
    file += '"';
    start = quote + 1;
  }
  file += "\"\r\n";
}

void writeNumber(std::string& file, long long number) { file += std::to_string(number) + "\r\n"; }

void writeBoolean(std::string& file, bool value) { file += value ? "#TRUE#\r\n" : "#FALSE#\r\n"; }

bool parseNumber(std::string_view text, double& number) {
  text = trimBlanks(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || (text[0] != '-' && text[0] != '.' && (text[0] < '0' || text[0] > '9'))) return false;
  if (text.find_first_of("iInN") != std::string_view::npos) return false;  // infinity, not-a-number
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

}  // namespace plimo
