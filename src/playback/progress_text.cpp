#include "playback/progress_text.h"

#include <charconv>
#include <cmath>

#include "base/errors.h"
#include "base/text.h"
#include "window/caption.h"

namespace plimo {

namespace {

constexpr double secondsInMinute = 60;
constexpr double mostMinutes = 32767;

// With a leading blank in the position of a minus sign.
std::string numberText(double whole) {
  if (whole == 0) whole = 0;  // never "-0"
  char digits[400];           // the longest double has 309 digits
  const auto end = std::to_chars(digits, digits + sizeof digits, whole, std::chars_format::fixed, 0).ptr;
  return (whole < 0 ? "" : " ") + std::string(digits, end);
}

}  // namespace

std::string minutesAndSeconds(double seconds) {
  if (!std::isfinite(seconds) || seconds >= (mostMinutes + 1) * secondsInMinute) {
    throw RuntimeError(ErrorNumber::overflow);
  }
  const double rest = seconds < secondsInMinute ? seconds : std::fmod(seconds, secondsInMinute);
  const double minutes = std::round((seconds - rest) / secondsInMinute);
  return std::string(trimBlanks(numberText(minutes) + " :" + numberText(std::nearbyint(rest))));
}

std::string lengthCaption(std::string_view length) {
  return std::string(creditCaption).append("  Total length of current song ").append(length);
}

std::string elapsedCaption(std::string_view length, std::string_view elapsed) {
  return lengthCaption(length).append(" minutes. Elapsed Time : ").append(elapsed);
}

}  // namespace plimo
