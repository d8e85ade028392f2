#include "base/quoted_format.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Where the first comma, CR or LF stands from here on; the content's size where there is none. Some bytes at a time,
// so that each of the three is found as fast as one can be, and none is looked for far beyond the others.
std::size_t endOfItem(std::string_view content, std::size_t from) {
  constexpr std::size_t step = 256;
  for (; from < content.size(); from += step) {
    const std::string_view bytes = content.substr(from, step);
    const std::size_t end = std::min({bytes.find(','), bytes.find('\r'), bytes.find('\n')});
    if (end != std::string_view::npos) return from + end;
  }
  return content.size();
}

}  // namespace

Field readField(std::string_view content, std::size_t& position, std::string& unescaped) {
  position = std::min(content.find_first_not_of(' ', position), content.size());
  Field item;
  if (position < content.size() && content[position] == '"') {
    item.form = Field::Form::quoted;
    std::size_t start = ++position;
    std::size_t end = std::min(content.find('"', start), content.size());
    item.text = content.substr(start, end - start);
    if (end + 1 < content.size() && content[end + 1] == '"') {  // a doubled quote: the text must be put together
      unescaped.clear();
      for (;;) {
        unescaped.append(content, start, end - start);
        if (end + 1 >= content.size() || content[end + 1] != '"') break;
        unescaped += '"';
        start = end + 2;
        end = std::min(content.find('"', start), content.size());
      }
      item.text = unescaped;
    }
    position = std::min(end + 1, content.size());
  }
  const std::size_t start = position;
  position = endOfItem(content, start);
  if (item.form == Field::Form::bare) item.text = content.substr(start, position - start);
  if (content.substr(position, 2) == "\r\n") {
    position += 2;
  } else if (position < content.size()) {
    ++position;
  }
  return item;
}

std::size_t skipBom(std::string_view content) { return content.starts_with(byteOrderMark) ? byteOrderMark.size() : 0; }

QuotedReader::QuotedReader(std::string_view content, std::string path)
    : content_(content), position_(skipBom(content)), path_(std::move(path)) {}

Field QuotedReader::next() {
  if (atEnd()) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  return readField(content_, position_, unescaped_);
}

void writeText(std::string& file, std::string_view text) {
  if (text.find('"') == std::string_view::npos) {  // as nearly all are: one step, for catalogues hold many
    const std::size_t start = file.size();
    file.resize(start + text.size() + 4);
    char* const at = file.data() + start;
    at[0] = '"';
    const auto end = std::copy(text.begin(), text.end(), at + 1);
    end[0] = '"';
    end[1] = '\r';
    end[2] = '\n';
    return;
  }
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
