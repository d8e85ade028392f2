// What a program that is started tells the one that runs in its folder already.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace plimo {

struct StartMessage {
  std::string token;       // permission of the desktop to bring the window in front; empty: none
  std::string file;        // to be opened, an absolute path; empty: none
  std::size_t others = 0;  // further files that were named
};

// As bytes, and back; nullopt if the bytes are no such message.
std::string encoded(const StartMessage& message);
std::optional<StartMessage> decodedStartMessage(std::string_view bytes);

}  // namespace plimo
