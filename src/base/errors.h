// The failures that the program reports to its user.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace plimo {

// A failure's number. Numbers and descriptions are the classic ones of the platform's run-time.
enum class ErrorNumber {
  invalidCall = 5,
  overflow = 6,
  outOfMemory = 7,
  typeMismatch = 13,
  badFileName = 52,
  fileNotFound = 53,
  fileExists = 58,
  diskFull = 61,
  inputPastEnd = 62,
  permissionDenied = 70,
  diskNotReady = 71,
  pathFileAccess = 75,
  pathNotFound = 76,
};

// The one-line English description of a number, without a full stop.
const char* describe(ErrorNumber number);

// A failure of an operation. It ends the event handler in which it rises, unless that handler ignores errors; the
// dispatch of events turns it into the run-time error report.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(ErrorNumber number, std::string path = {}) : number_(number), path_(std::move(path)) {}

  ErrorNumber number() const { return number_; }
  // The file or folder concerned; empty where there is none.
  const std::string& path() const { return path_; }
  const char* what() const noexcept override { return describe(number_); }

  // The report's text: "Run-time error 'N':", an empty line, the description and, on its own line, the path.
  std::string report() const;

 private:
  ErrorNumber number_;
  std::string path_;
};

}  // namespace plimo
