#include "base/parallel.h"

#include <gtest/gtest.h>

#include <chrono>
#include <latch>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace plimo {
namespace {

TEST(Parallel, RunsBothFunctionsAtTheSameTime) {
  std::latch both(2);  // neither function passes it alone
  std::thread::id second;
  parallelInvoke([&both] { both.arrive_and_wait(); },
                 [&] {
                   both.arrive_and_wait();
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
