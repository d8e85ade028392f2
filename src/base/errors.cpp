#include "base/errors.h"

#include "base/text.h"

namespace plimo {

const char* describe(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::invalidCall:
      return "Invalid procedure call or argument";
    case ErrorNumber::overflow:
      return "Overflow";
    case ErrorNumber::outOfMemory:
      return "Out of memory";
    case ErrorNumber::typeMismatch:
      return "Type mismatch";
    case ErrorNumber::badFileName:
      return "Bad file name or number";
    case ErrorNumber::fileNotFound:
      return "File not found";
    case ErrorNumber::fileExists:
      return "File already exists";
    case ErrorNumber::diskFull:
      return "Disk full";
    case ErrorNumber::inputPastEnd:
      return "Input past end of file";
    case ErrorNumber::permissionDenied:
      return "Permission denied";
    case ErrorNumber::diskNotReady:
      return "Disk not ready";
    case ErrorNumber::pathFileAccess:
      return "Path/File access error";
    case ErrorNumber::pathNotFound:
      return "Path not found";
  }
  return "Unknown error";
}

std::string RuntimeError::report() const {
  std::string text = "Run-time error '" + std::to_string(static_cast<int>(number_)) + "':\r\n\r\n" + what();
  if (!path_.empty()) text += "\r\n" + elideMiddle(path_, longestShownText);
  return text;
}

}  // namespace plimo
