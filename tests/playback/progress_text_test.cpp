#include "playback/progress_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/errors.h"

namespace plimo {
namespace {

TEST(MinutesAndSeconds, AreWholeNumbersWithoutPadding) {
  EXPECT_EQ(minutesAndSeconds(205.4), "3 : 25");
  EXPECT_EQ(minutesAndSeconds(65), "1 : 5");
  EXPECT_EQ(minutesAndSeconds(0), "0 : 0");
  EXPECT_EQ(minutesAndSeconds(60), "1 : 0");
  EXPECT_EQ(minutesAndSeconds(3600), "60 : 0");
}

TEST(MinutesAndSeconds, RoundHalvesToTheEvenNeighbour) {
  EXPECT_EQ(minutesAndSeconds(42.5), "0 : 42");
  EXPECT_EQ(minutesAndSeconds(43.5), "0 : 44");
  EXPECT_EQ(minutesAndSeconds(120.5), "2 : 0");
  EXPECT_EQ(minutesAndSeconds(0.5), "0 : 0");
  EXPECT_EQ(minutesAndSeconds(1.5), "0 : 2");
}

TEST(MinutesAndSeconds, DoNotCarryASixtiethSecond) {
  EXPECT_EQ(minutesAndSeconds(119.5), "1 : 60");
  EXPECT_EQ(minutesAndSeconds(59.6), "0 : 60");
  EXPECT_EQ(minutesAndSeconds(59.5), "0 : 60");
  EXPECT_EQ(minutesAndSeconds(59.4), "0 : 59");
}

TEST(MinutesAndSeconds, ShowANegativeTimeInTheSeconds) {
  EXPECT_EQ(minutesAndSeconds(-1), "0 :-1");
  EXPECT_EQ(minutesAndSeconds(-75.2), "0 :-75");
  EXPECT_EQ(minutesAndSeconds(-1.5), "0 :-2");
}

TEST(MinutesAndSeconds, NeverShowMinusZero) {
  EXPECT_EQ(minutesAndSeconds(-0.0), "0 : 0");
  EXPECT_EQ(minutesAndSeconds(-0.3), "0 : 0");
  EXPECT_EQ(minutesAndSeconds(-0.5), "0 : 0");
  EXPECT_EQ(minutesAndSeconds(-0.6), "0 :-1");
}

TEST(MinutesAndSeconds, EqualRepeatedSubtractionOfSixtySeconds) {
  for (const double seconds : {59.999999, 60.000001, 119.999999, 205.4, 3599.4999, 86400.75, 1966019.5, 1966079.25}) {
    double rest = seconds;
    int minutes = 0;
    while (!(rest < 60)) {
      rest -= 60;
      ++minutes;
    }
    const std::string text = minutesAndSeconds(seconds);
    EXPECT_EQ(text.substr(0, text.find(' ')), std::to_string(minutes)) << seconds;
    EXPECT_NEAR(std::stod(text.substr(text.find(':') + 1)), rest, 0.5) << seconds;
  }
}

TEST(MinutesAndSeconds, GoUpTo32767Minutes) {
  EXPECT_EQ(minutesAndSeconds(32767.0 * 60 + 30), "32767 : 30");
  EXPECT_EQ(minutesAndSeconds(32767.0 * 60 + 59.9), "32767 : 60");
}

void expectOverflow(double seconds) {
  try {
    minutesAndSeconds(seconds);
    ADD_FAILURE() << seconds << " was accepted";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::overflow);
  }
}

TEST(MinutesAndSeconds, OverflowAbove32767Minutes) {
  expectOverflow(32768.0 * 60);
  expectOverflow(1e300);
  expectOverflow(std::numeric_limits<double>::infinity());
  expectOverflow(std::numeric_limits<double>::quiet_NaN());
}

TEST(MinutesAndSeconds, AcceptAnyNegativeNumber) { EXPECT_EQ(minutesAndSeconds(-1e300).substr(0, 4), "0 :-"); }

TEST(ProgressCaptions, JoinTheirPieces) {
  EXPECT_EQ(lengthCaption("3 : 25"), "Plimo! by the Plimo! team.  Total length of current song 3 : 25");
  EXPECT_EQ(elapsedCaption("3 : 25", "1 : 5"),
            "Plimo! by the Plimo! team.  Total length of current song 3 : 25 minutes. Elapsed Time : 1 : 5");
}

}  // namespace
}  // namespace plimo
