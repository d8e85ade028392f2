// The operating system's files in any test; defined for each operating system.
#pragma once

#include <memory>
#include <string>

#include "platform/file_system_object.h"

namespace plimo {

// With a drive C whose root is this folder.
std::unique_ptr<FileSystemObject> nativeFilesIn(const std::string& root);

// True if a view of a large file is mapped, so that it changes if another program changes the file; false if it is a
// copy.
extern const bool largeViewsAreMapped;

}  // namespace plimo
