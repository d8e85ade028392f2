// The fixture of the contract tests, which every implementation of FileSystemObject passes.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "platform/fake_backend.h"
#include "platform/native_backend.h"

namespace plimo {

template <typename Backend>
class FileContract : public testing::Test {
 protected:
  FileSystemObject& files() { return backend_.files(); }

  // A path below the drive's root.
  std::string at(std::initializer_list<const char*> names) {
    std::string path = backend_.root();
    for (const char* name : names) path = files().join(path, name);
    return path;
  }

  std::vector<std::string> namesIn(const std::string& folder) { return files().contents(folder).files; }

  // The number of the RuntimeError that the call throws; 0 for none.
  static int errorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return static_cast<int>(error.number());
    }
    return 0;
  }

  Backend backend_;
};

using Backends = testing::Types<FakeBackend, NativeBackend>;

}  // namespace plimo
