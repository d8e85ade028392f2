// Runs a fuzz target on the files of a folder.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
    return 2;
  }
  std::size_t inputs = 0;
  for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", entry.path().filename().string().c_str());
    std::fflush(stdout);  // the last line names the input of a crash
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    ++inputs;
  }
  std::printf("%zu inputs\n", inputs);
  return inputs > 0 ? 0 : 1;
}
