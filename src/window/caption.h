// The texts that open the main window's caption.
#pragma once

#include <string_view>

namespace plimo {

inline constexpr std::string_view plainCaption = "Plimo!";
inline constexpr std::string_view creditCaption = "Plimo! by the Plimo! team.";

}  // namespace plimo
