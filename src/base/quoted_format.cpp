#include "base/quoted_format.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace plimo {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// The offset of the next comma, CR or LF; the content's size if there is none. Searches in chunks: three vectorised
// searches are faster than one for any of three characters, and the chunk bounds how far each one runs past the others.
std::size_t findTerminator(std::string_view content, std::size_t from) {
  constexpr std::size_t chunkSize = 256;
  for (; from < content.size(); from += chunkSize) {
    const std::string_view chunk = content.substr(from, chunkSize);
    const std::size_t end = std::min({chunk.find(','), chunk.find('\r'), chunk.find('\n')});
    if (end != std::string_view::npos) return from + end;
  }
  return content.size();
}

}  // namespace

Field readField(std::string_view content, std::size_t& position, std::string& unescaped) {
  position = std::min(content.find_first_not_of(' ', position), content.size());
  Field field;
  if (position < content.size() && content[position] == '"') {
    field.form = Field::Form::quoted;
    std::size_t start = ++position;
    std::size_t end = std::min(content.find('"', start), content.size());
    field.text = content.substr(start, end - start);
    if (end + 1 < content.size() && content[end + 1] == '"') {  // a doubled quote: the string must be copied
      unescaped.clear();
      for (;;) {
        unescaped.append(content, start, end - start);
        if (end + 1 >= content.size() || content[end + 1] != '"') break;
        unescaped += '"';
        start = end + 2;
        end = std::min(content.find('"', start), content.size());
      }
      field.text = unescaped;
    }
    position = std::min(end + 1, content.size());
  }
  const std::size_t start = position;
  position = findTerminator(content, start);
  if (field.form == Field::Form::bare) field.text = content.substr(start, position - start);
  if (content.substr(position, 2) == "\r\n") {
    position += 2;
  } else if (position < content.size()) {
    ++position;
  }
  return field;
}

std::size_t skipBom(std::string_view content) { return content.starts_with(byteOrderMark) ? byteOrderMark.size() : 0; }

QuotedReader::QuotedReader(std::string_view content, std::string path)
    : content_(content), position_(skipBom(content)), path_(std::move(path)) {}

Field QuotedReader::next() {
  if (atEnd()) throw RuntimeError(ErrorNumber::inputPastEnd, path_);
  return readField(content_, position_, unescaped_);
}

void writeText(std::string& file, std::string_view text) {
  if (text.find('"') == std::string_view::npos) {  // the common case: a single resize
    const std::size_t start = file.size();
    file.resize(start + text.size() + 4);
    char* const target = file.data() + start;
    target[0] = '"';
    const auto end = std::copy(text.begin(), text.end(), target + 1);
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
