// The quoted notation of the program's files: one value a line, texts in double quotes, numbers bare, true and false
// as #TRUE# and #FALSE#. A double quote inside a text is written twice.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace plimo {

// One value as it stands in a file.
struct Field {
  enum class Form { bare, quoted };
  std::string_view text;  // without quotes and leading blanks; valid until the reader reads on or goes
  Form form = Form::bare;

  // Bare and framed by hashes: #TRUE#, #FALSE#, #NULL#, ...
  bool hashFramed() const {
    return form == Form::bare && text.size() >= 2 && text.front() == '#' && text.back() == '#';
  }
  bool isTrue() const { return form == Form::bare && text == "#TRUE#"; }
};

// Reads the value at `position` and moves behind what ends it. `unescaped` holds the text where its quotes were
// doubled.
Field readField(std::string_view content, std::size_t& position, std::string& unescaped);

// Where the values of a file begin: behind its byte-order mark, if it has one.
std::size_t skipBom(std::string_view content);

// Reads values one after the other from a text that must outlive it. Values end at a comma or a line end (CR LF, LF
// or CR) outside quotes; a byte-order mark in front is passed over; the last line end may be missing.
class QuotedReader {
 public:
  // `path` names the text's file in the error of `next`.
  explicit QuotedReader(std::string_view content, std::string path = {});

  bool atEnd() const { return position_ == content_.size(); }
  // Throws RuntimeError 62 at the end.
  Field next();

 private:
  std::string_view content_;
  std::size_t position_ = 0;
  std::string path_;
  std::string unescaped_;  // the last item, when its quotes were doubled
};

// Append one value and its line end (CR LF).
void writeText(std::string& file, std::string_view text);
void writeNumber(std::string& file, long long number);
void writeBoolean(std::string& file, bool value);

// The number that a text holds: optional blanks around, a sign, decimal digits, optionally a fraction or exponent.
// False where it holds anything else.
bool parseNumber(std::string_view text, double& number);

}  // namespace plimo
