// What the kernel's errors are to the program.
#pragma once

#include <string_view>

#include "base/errors.h"

namespace plimo {

[[noreturn]] void fail(ErrorNumber number, std::string_view path);

// Full disks and used-up quotas are 61, names that the disk cannot hold 52; everything else is `otherwise`.
ErrorNumber writeFailure(int error, ErrorNumber otherwise);

// True for an error that says that nothing stands at a path.
bool isMissing(int error);

}  // namespace plimo
