#include "base/parallel.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace plimo {
namespace {

TEST(Parallel, RunsBothFunctionsAtTheSameTime) {
  // Each function waits for the other. std::latch is not used: its wait can miss a wake-up on Windows with GCC 12.
  std::promise<void> firstRuns;
  std::promise<void> secondRuns;
  std::thread::id second;
  parallelInvoke(
      [&] {
        firstRuns.set_value();
        secondRuns.get_future().wait();
      },
      [&] {
        secondRuns.set_value();
        firstRuns.get_future().wait();
        second = std::this_thread::get_id();
      });
  EXPECT_NE(second, std::this_thread::get_id());
  EXPECT_NE(second, std::thread::id());
}

TEST(Parallel, RethrowsAfterBothHaveFinished) {
  bool done = false;
  EXPECT_THROW(parallelInvoke([] { throw std::runtime_error("first"); },
                              [&done] {
                                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                                done = true;
                              }),
               std::runtime_error);
  EXPECT_TRUE(done);
  EXPECT_THROW(parallelInvoke([] {}, [] { throw std::logic_error("second"); }), std::logic_error);
}

TEST(Parallel, NoMemoryOnTheSecondThreadIsRethrown) {
  EXPECT_THROW(parallelInvoke([] {}, [] { throw std::bad_alloc(); }), std::bad_alloc);
  const auto fails = [] { return parallelResults([] { return 1; }, []() -> int { throw std::bad_alloc(); }); };
  EXPECT_THROW(fails(), std::bad_alloc);
}

TEST(Parallel, ReturnsBothResults) {
  const auto [text, number] = parallelResults([] { return std::make_unique<std::string>("made"); },
                                              [] {
                                                return std::vector<int>{1, 2};
                                              });
  EXPECT_EQ(*text, "made");
  EXPECT_EQ(number, (std::vector<int>{1, 2}));
  const auto fails = [] {
    return parallelResults([] { return 1; }, []() -> int { throw std::logic_error("second"); });
  };
  EXPECT_THROW(fails(), std::logic_error);
}

}  // namespace
}  // namespace plimo
