// Files in memory whose views are heap blocks of exactly their size.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/memory/fake_file_system.h"

namespace plimo::fuzz {

// A string has room for more than its bytes; in a block of its own the address sanitizer reports a single byte beyond.
class ExactView : public FileView {
 public:
  explicit ExactView(std::string_view content) : bytes_(new char[content.size()]), size_(content.size()) {
    std::copy(content.begin(), content.end(), bytes_.get());
  }
  std::string_view bytes() const override { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

class ExactFiles : public FakeFileSystem {
 public:
  std::unique_ptr<FileView> openForReading(std::string_view path) override {
    return std::make_unique<ExactView>(FakeFileSystem::openForReading(path)->bytes());
  }
};

}  // namespace plimo::fuzz
