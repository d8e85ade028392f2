// The colours that the editor mixes, and the settings file as it takes a new scheme.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace plimo {

// Text and background of the artists, of the scratch playlist and of the final playlist, as the file orders them.
using ColourScheme = std::array<Colour, 6>;

// Each part 0 to 255.
constexpr Colour mixColour(int red, int green, int blue) { return red + 256L * green + 65536L * blue; }

// The settings before the scheme where there is no settings file: six empty values.
inline constexpr std::string_view noSettings = "\r\n\r\n\r\n\"\"\r\n\r\n\r\n";

// The first six values of a settings file's content as they are written back: each in the form in which it was read,
// the fourth as a text. Throws RuntimeError 62 where there are fewer, 13 where the fourth is framed by hashes; `path`
// names the file in it.
std::string rewriteFirstSix(std::string_view content, const std::string& path);

// The settings file that begins with these six values; the scheme follows, its last colour as a text.
std::string settingsWithScheme(std::string_view firstSix, const ColourScheme& scheme);

}  // namespace plimo
