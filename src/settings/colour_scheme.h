// The colours of the three lists, as the settings file stores them.
#pragma once

#include <array>

#include "base/colour.h"

namespace plimo {

// In the order of the file: text and background of the artists, of the scratch playlist and of the final playlist.
using ColourScheme = std::array<Colour, 6>;

// Yellow on dark blue, used until a settings file says otherwise.
inline constexpr Colour defaultTextColour = mixColour(255, 255, 0);
inline constexpr Colour defaultBackgroundColour = mixColour(0, 0, 64);

}  // namespace plimo
