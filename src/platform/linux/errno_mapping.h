// Maps errno values to the program's error numbers.
#pragma once

#include <string_view>

#include "base/errors.h"

namespace plimo {

[[noreturn]] void throwError(ErrorNumber number, std::string_view path);

// 61 for a full disk or an exceeded quota, 52 for a name that the file system does not accept, else `fallback`.
ErrorNumber mapWriteError(int error, ErrorNumber fallback);

// True for an error that says that there is nothing at a path.
bool isNotFound(int error);

}  // namespace plimo
