// Random actions on the program in memory: fixed seeds, so that a failure can be repeated.
#include "monkey/program_monkey.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace plimo {
namespace {

constexpr std::size_t actionsOfSeed = 500;

std::size_t wantedActions() {
  const char* const actions = std::getenv("PLIMO_MONKEY_ACTIONS");
  return actions == nullptr ? 20'000 : std::strtoull(actions, nullptr, 10);
}

TEST(ProgramMonkey, BreaksNothingWhateverItDoes) {
  const std::size_t seeds = (wantedActions() + actionsOfSeed - 1) / actionsOfSeed;
  for (std::size_t seed = 0; seed < seeds; ++seed) {
    std::mt19937_64 random(seed);
    FakeFileSystem files;
    ProgramMonkey monkey(files, [&random](std::size_t limit) { return random() % limit; });
    for (std::size_t action = 1; action <= actionsOfSeed; ++action) {
      std::string broken = monkey.act();
      if (broken.empty() && action % 100 == 0) broken = monkey.escape();
      ASSERT_EQ(broken, "") << "after action " << action << " of seed " << seed << ":\n" << monkey.history();
    }
    if (seed % 100 == 99) std::printf("   %zu of %zu actions\n", (seed + 1) * actionsOfSeed, seeds * actionsOfSeed);
  }
}

}  // namespace
}  // namespace plimo
