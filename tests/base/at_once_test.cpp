#include "base/at_once.h"

#include <gtest/gtest.h>

#include <chrono>
#include <latch>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace plimo {
namespace {

TEST(AtOnce, BothAreUnderWayAtTheSameTime) {
  std::latch both(2);  // neither gets past it alone
  std::thread::id second;
  atOnce([&both] { both.arrive_and_wait(); },
         [&] {
           both.arrive_and_wait();
           second = std::this_thread::get_id();
         });
  EXPECT_NE(second, std::this_thread::get_id());
  EXPECT_NE(second, std::thread::id());
}

TEST(AtOnce, WhatEitherThrowsIsThrownOnWhenBothAreDone) {
  bool done = false;
  EXPECT_THROW(atOnce([] { throw std::runtime_error("first"); },
                      [&done] {
                        std::this_thread::sleep_for(std::chrono::milliseconds(20));
                        done = true;
                      }),
               std::runtime_error);
  EXPECT_TRUE(done);
  EXPECT_THROW(atOnce([] {}, [] { throw std::logic_error("second"); }), std::logic_error);
}

TEST(MadeAtOnce, GivesWhatEachMakes) {
  const auto [text, number] = madeAtOnce([] { return std::make_unique<std::string>("made"); },
                                         [] {
                                           return std::vector<int>{1, 2};
                                         });
  EXPECT_EQ(*text, "made");
  EXPECT_EQ(number, (std::vector<int>{1, 2}));
  const auto fails = [] { return madeAtOnce([] { return 1; }, []() -> int { throw std::logic_error("second"); }); };
  EXPECT_THROW(fails(), std::logic_error);
}

}  // namespace
}  // namespace plimo
