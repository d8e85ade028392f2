// Random actions in the real window: fixed seeds, so that a failure can be repeated.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "desktop/window_monkey.h"

namespace plimo {
namespace {

constexpr std::size_t actionsOfSeed = 200;

// The sanitizers see more in each action.
#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t usualActions = 1000;
#else
constexpr std::size_t usualActions = 600;
#endif

std::size_t numberIn(const char* variable, std::size_t otherwise) {
  const char* const number = std::getenv(variable);
  return number == nullptr ? otherwise : std::strtoull(number, nullptr, 10);
}

// PLIMO_MONKEY_SEED starts with another seed.
TEST(WindowMonkey, BreaksNothingWhateverItDoes) {
  const std::size_t seeds = (numberIn("PLIMO_MONKEY_ACTIONS", usualActions) + actionsOfSeed - 1) / actionsOfSeed;
  const std::size_t first = numberIn("PLIMO_MONKEY_SEED", 0);
  for (std::size_t seed = first; seed < first + seeds; ++seed) {
    std::mt19937_64 random(seed);
    WindowMonkeyFolder folder(seed % 4 != 3);
    WindowMonkey monkey(folder, [&random](std::size_t limit) { return random() % limit; });
    std::size_t performed = 0;
    const std::string broken = monkey.run(actionsOfSeed, performed);
    ASSERT_EQ(broken, "") << "after action " << performed << " of seed " << seed << ":\n" << monkey.history();
    if (seeds > 10) {
      std::printf("   window: %zu of %zu actions\n", (seed - first + 1) * actionsOfSeed, seeds * actionsOfSeed);
      std::fflush(stdout);
    }
  }
}

}  // namespace
}  // namespace plimo
