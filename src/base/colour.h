// Colour numbers as the settings file stores them.
#pragma once

namespace plimo {

// red + 256 * green + 65536 * blue, each 0 to 255.
using Colour = long;

constexpr Colour mixColour(int red, int green, int blue) { return red + 256L * green + 65536L * blue; }

inline constexpr Colour blackColour = 0;
inline constexpr Colour whiteColour = mixColour(255, 255, 255);

}  // namespace plimo
