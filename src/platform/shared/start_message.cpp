#include "platform/shared/start_message.h"

#include <charconv>

namespace plimo {

namespace {

// The first bytes. The number is that of the format: programs of two versions may share a folder.
constexpr std::string_view signature = "plimo start 1";

// Takes a text that ends in a zero byte, which no path contains.
std::optional<std::string_view> takeText(std::string_view& bytes) {
  const std::size_t end = bytes.find('\0');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view text = bytes.substr(0, end);
  bytes.remove_prefix(end + 1);
  return text;
}

}  // namespace

std::string encoded(const StartMessage& message) {
  std::string bytes;
  for (const std::string_view text : {signature, std::string_view(message.token), std::string_view(message.file)}) {
    bytes.append(text).push_back('\0');
  }
  return bytes + std::to_string(message.others) + '\0';
}

std::optional<StartMessage> decodedStartMessage(std::string_view bytes) {
  const auto start = takeText(bytes);
  const auto token = takeText(bytes);
  const auto file = takeText(bytes);
  const auto others = takeText(bytes);
  if (start != signature || !token || !file || !others) return std::nullopt;
  StartMessage message{std::string(*token), std::string(*file)};
  const auto [end, error] = std::from_chars(others->data(), others->data() + others->size(), message.others);
  if (error != std::errc() || end != others->data() + others->size()) return std::nullopt;
  return message;
}

}  // namespace plimo
