// The walk over a tree that FileSystemObject promises, on the directories that a prefetcher lists.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "base/errors.h"
#include "platform/file_system_object.h"
#include "platform/shared/directory_prefetcher.h"

namespace plimo {

// What the system's error codes of opening and reading a directory mean.
struct ListingErrors {
  std::function<bool(std::uint32_t error)> isNotFound;
  std::function<ErrorNumber(std::uint32_t error, std::string_view folder)> number;
};

// Calls the visitor, and returns and throws, as FileSystemObject::walk does.
bool walkTree(DirectoryPrefetcher& directories, char separator, const WalkVisitor& visitor,
              const ListingErrors& errors);

}  // namespace plimo
