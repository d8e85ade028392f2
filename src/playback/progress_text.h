// What the caption tells of the song that plays.
#pragma once

#include <string>
#include <string_view>

namespace plimo {

// A time in seconds as whole minutes and seconds: "3 : 25". The seconds are rounded, halves to the even neighbour, and
// not carried into the minutes (119.5 is "1 : 60"); a negative time counts as seconds ("0 :-1"). Throws RuntimeError 6
// where there are more than 32767 minutes, or no number at all.
std::string minutesAndSeconds(double seconds);

// The caption when a song has been opened; `length` as minutesAndSeconds gives it.
std::string lengthCaption(std::string_view length);
// The caption while it plays.
std::string elapsedCaption(std::string_view length, std::string_view elapsed);

}  // namespace plimo
