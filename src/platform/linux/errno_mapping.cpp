#include "platform/linux/errno_mapping.h"

#include <cerrno>
#include <string>

namespace plimo {

void throwError(ErrorNumber number, std::string_view path) { throw RuntimeError(number, std::string(path)); }

ErrorNumber mapWriteError(int error, ErrorNumber fallback) {
  if (error == ENOSPC || error == EDQUOT || error == EFBIG) return ErrorNumber::diskFull;
  // Too long, or with characters that this file system does not allow, such as a colon on FAT.
  if (error == ENAMETOOLONG || error == EILSEQ || error == EINVAL) return ErrorNumber::badFileName;
  return fallback;
}

bool isNotFound(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

}  // namespace plimo
