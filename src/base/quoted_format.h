// The format of the program's files: one value per line, strings in double quotes, numbers bare, booleans as #TRUE# and
// #FALSE#. A double quote inside a string is doubled.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace plimo {

// One value of a file.
struct Field {
  enum class Form { bare, quoted };
  std::string_view text;  // without quotes and leading blanks; valid until the next read
  Form form = Form::bare;

  // True for a bare value between hash signs: #TRUE#, #FALSE#, #NULL#, ...
  bool hashFramed() const {
    return form == Form::bare && text.size() >= 2 && text.front() == '#' && text.back() == '#';
  }
  bool isTrue() const { return form == Form::bare && text == "#TRUE#"; }
};

// Reads the value at `position` and advances past its terminator. If the string contains doubled quotes, the result
// refers to `unescaped`, otherwise to `content`.
Field readField(std::string_view content, std::size_t& position, std::string& unescaped);

// The offset of the first value: after the byte-order mark, if there is one.
std::size_t skipBom(std::string_view content);

// Reads consecutive values from a string that must outlive the reader. Values end at a comma or a line end (CR LF, LF
// or CR) outside quotes; a leading byte-order mark is skipped; the last line end may be missing.
class QuotedReader {
 public:
  // `path` is the file reported in errors.
  explicit QuotedReader(std::string_view content, std::string path = {});

  bool atEnd() const { return position_ == content_.size(); }
  // Throws RuntimeError 62 at the end.
  Field next();

 private:
  std::string_view content_;
  std::size_t position_ = 0;
  std::string path_;
  std::string unescaped_;  // the last value, if it contained doubled quotes
};

// Each appends one value and a line end (CR LF).
void writeText(std::string& file, std::string_view text);
void writeNumber(std::string& file, long long number);
void writeBoolean(std::string& file, bool value);

// Parses a decimal number: a sign, digits, a fraction and an exponent are allowed, and blanks around it. Returns false
// for anything else.
bool parseNumber(std::string_view text, double& number);

}  // namespace plimo
