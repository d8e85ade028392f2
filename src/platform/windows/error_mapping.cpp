#include "platform/windows/error_mapping.h"

#include <windows.h>

#include <string>

namespace plimo {

namespace {

constexpr DWORD quotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which the headers of mingw-w64 do not have

}  // namespace

void throwError(ErrorNumber number, std::string_view path) { throw RuntimeError(number, std::string(path)); }

bool isNotFound(SystemError error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:  // a file instead of a folder
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_CANT_ACCESS_FILE:  // a link to nothing
    case ERROR_CANT_RESOLVE_FILENAME:
    case ERROR_DELETE_PENDING:
      return true;
    default:
      return false;
  }
}

bool isNotReady(SystemError error) {
  switch (error) {
    case ERROR_NOT_READY:
    case ERROR_WRONG_DISK:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_UNRECOGNIZED_MEDIA:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_MEDIA_CHANGED:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEVICE_REMOVED:
    case ERROR_IO_DEVICE:
    case ERROR_CRC:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR:
      return true;
    default:
      return false;
  }
}

bool isInUse(SystemError error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE;
}

bool isUnsupported(SystemError error) {
  return error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_CALL_NOT_IMPLEMENTED || error == ERROR_INVALID_LEVEL;
}

ErrorNumber mapWriteError(SystemError error, ErrorNumber fallback) {
  switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case quotaExceeded:
    case ERROR_FILE_TOO_LARGE:
      return ErrorNumber::diskFull;
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return ErrorNumber::badFileName;
    default:
      return isNotReady(error) ? ErrorNumber::diskNotReady : fallback;
  }
}

}  // namespace plimo
