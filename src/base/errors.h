// The failures that the program reports to its user.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace plimo {

// Error numbers. Numbers and descriptions are the classic ones of the platform's runtime.
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

// A one-line English description without a full stop.
const char* describe(ErrorNumber number);

// The failure of an operation. It ends the event handler that threw it, unless that handler ignores errors; the
// event dispatcher then shows the run-time error report.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(ErrorNumber number, std::string path = {}) : number_(number), path_(std::move(path)) {}

  ErrorNumber number() const { return number_; }
  // The file or folder concerned; may be empty.
  const std::string& path() const { return path_; }
  const char* what() const noexcept override { return describe(number_); }

  // The message shown to the user: "Run-time error 'N':", an empty line, the description and the path, if any, on a
  // line of its own.
  std::string report() const;

 private:
  ErrorNumber number_;
  std::string path_;
};

}  // namespace plimo
