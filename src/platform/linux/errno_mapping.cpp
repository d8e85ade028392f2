#include "platform/linux/errno_mapping.h"

#include <cerrno>
#include <string>

namespace plimo {

void fail(ErrorNumber number, std::string_view path) { throw RuntimeError(number, std::string(path)); }

ErrorNumber writeFailure(int error, ErrorNumber otherwise) {
  if (error == ENOSPC || error == EDQUOT || error == EFBIG) return ErrorNumber::diskFull;
  // Too long, or with letters that this disk does not know: a colon on a memory stick.
  if (error == ENAMETOOLONG || error == EILSEQ || error == EINVAL) return ErrorNumber::badFileName;
  return otherwise;
}

bool isMissing(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

}  // namespace plimo
