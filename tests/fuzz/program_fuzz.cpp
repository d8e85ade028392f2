// The whole program over four files of any content, and any actions. The input is the content of the files, then a byte
// or two for each choice.
#include <string>

#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "monkey/program_monkey.h"

using namespace plimo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  fuzz::ExactFiles files;
  const auto choose = [&input](std::size_t limit) {
    std::size_t number = input.byte();
    if (limit > 256) number = number << 8 | input.byte();
    return number % limit;
  };
  std::size_t replies = 0;
  ProgramMonkey monkey(files, [&](std::size_t limit) { return input.empty() ? replies++ % limit : choose(limit); });
  for (const char* name : {"plimo.ini", "plimo.kvx", "path.kvx", "default.m3u"}) {
    const std::string content(input.text());
    if (!content.empty()) monkey.world.writeStateFile(name, content);
  }
  for (int action = 0; action < 60 && !input.empty(); ++action) {
    const std::string broken = monkey.act();
    if (!broken.empty()) std::fprintf(stderr, "%s\n%s", broken.c_str(), monkey.history().c_str());
    fuzz::expect(broken.empty(), "nothing is broken");
  }
  const std::string broken = monkey.escape();
  if (!broken.empty()) std::fprintf(stderr, "%s\n%s", broken.c_str(), monkey.history().c_str());
  fuzz::expect(broken.empty(), "a way back to the three lists");
  return 0;
}
