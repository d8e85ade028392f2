// The rules of Windows paths, and the encoding of its names. The input is a name or path.
#include <string>

#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "platform/windows_paths/path_rules.h"
#include "platform/windows_paths/wtf8.h"

using namespace plimo;

namespace {

void checkEncoding(std::string_view bytes) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units +=
        static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 | static_cast<unsigned char>(bytes[i + 1]));
  }
  const std::string encoded = utf16ToWtf8(units);
  fuzz::expect(wtf8ToUtf16(encoded) == units, "every name survives");
  const std::string again = utf16ToWtf8(wtf8ToUtf16(bytes));
  fuzz::expect(utf16ToWtf8(wtf8ToUtf16(again)) == again, "what has been decoded once stays as it is");
}

void checkPath(std::string_view path) {
  using namespace windows_paths;
  const auto absolute = absolutePath(path, "C:\\Music");
  if (!absolute) return;
  fuzz::expect(isAbsolutePath(*absolute), "an absolute path is absolute");
  fuzz::expect(absolutePath(*absolute, "D:\\") == absolute, "an absolute path stays as it is");
  const std::string parent = parentPath(*absolute);
  fuzz::expect(folderContains(parent, *absolute), "a folder contains its entries");
  fuzz::expect(isRootPath(*absolute) == (parent == *absolute), "only a root is its own parent");
  if (!isRootPath(*absolute)) {
    fuzz::expect(joinPath(parent, baseName(*absolute)) == *absolute, "folder and name make the path");
  }
  const std::string extended = extendedPath(*absolute);
  const bool plain = extended.find('?', 4) == std::string::npos;
  fuzz::expect(!plain || plainPath(extended) == *absolute, "the extended path leads back");
  isAllowedName(baseName(path));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const fuzz::ExactView view(input.rest());
  checkEncoding(view.bytes());
  checkPath(view.bytes());
  return 0;
}
