#include "platform/posix/failures.h"

#include <cerrno>
#include <string>

namespace plimo {

void fail(ErrorNumber number, std::string_view path) { throw RuntimeError(number, std::string(path)); }

ErrorNumber writeFailure(int error, ErrorNumber otherwise) {
  return error == ENOSPC || error == EDQUOT || error == EFBIG ? ErrorNumber::diskFull : otherwise;
}

bool isMissing(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

}  // namespace plimo
