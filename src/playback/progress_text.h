// The caption texts about the current song.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// A time in seconds as whole minutes and seconds: "3 : 25". The seconds are rounded, ties to even, and
// not carried into the minutes (119.5 is "1 : 60"); a negative time counts as seconds ("0 :-1"). Throws RuntimeError 6
// if there are more than 32767 minutes, or if it is no number.
std::string minutesAndSeconds(double seconds);

// The caption when a song has been opened; `length` as minutesAndSeconds gives it.
std::string lengthCaption(std::string_view length);
// The caption while it plays.
std::string elapsedCaption(std::string_view length, std::string_view elapsed);

}  // namespace plimo
