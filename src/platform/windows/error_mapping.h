// Maps error codes of the system (GetLastError) to the program's error numbers.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/errors.h"

namespace plimo {

using SystemError = std::uint32_t;  // a DWORD

[[noreturn]] void throwError(ErrorNumber number, std::string_view path);

// There is nothing at a path, or it cannot be one.
bool isNotFound(SystemError error);
// The drive has no medium, or it is gone.
bool isNotReady(SystemError error);
// Another program has the file open and does not share it.
bool isInUse(SystemError error);
// This system or file system does not have the operation.
bool isUnsupported(SystemError error);

// 61 for a full disk or an exceeded quota, 52 for a name that the file system does not accept, 71 for a drive that is
// not ready, else `fallback`.
ErrorNumber mapWriteError(SystemError error, ErrorNumber fallback);

}  // namespace plimo
