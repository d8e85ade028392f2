#include "controls/dispatcher.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace plimo {
namespace {

class DispatcherTest : public testing::Test {
 protected:
  DispatcherTest() {
    dispatcher_.failed = [this](const RuntimeError& error) { reports_.push_back(error.report()); };
  }

  Dispatcher dispatcher_;
  std::vector<std::string> reports_;
};

TEST_F(DispatcherTest, NoMemoryIsErrorSeven) {
  dispatcher_.run([] { throw std::bad_alloc(); });
  ASSERT_EQ(reports_.size(), 1U);
  EXPECT_EQ(reports_[0], "Run-time error '7':\r\n\r\nOut of memory");
  bool ran = false;
  dispatcher_.run([&] { ran = true; });
  EXPECT_TRUE(ran) << "the next command works";
}

TEST_F(DispatcherTest, AnErrorIsReported) {
  dispatcher_.run([] { throw RuntimeError(ErrorNumber::fileNotFound, "x"); });
  EXPECT_EQ(reports_, std::vector<std::string>{"Run-time error '53':\r\n\r\nFile not found\r\nx"});
}

TEST_F(DispatcherTest, AProgrammingErrorIsNotCaught) {
  EXPECT_THROW(dispatcher_.run([] { throw std::logic_error("bug"); }), std::logic_error);
  EXPECT_TRUE(reports_.empty());
}

}  // namespace
}  // namespace plimo
