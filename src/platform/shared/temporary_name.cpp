#include "platform/shared/temporary_name.h"

#include <atomic>
#include <cstddef>

namespace plimo {

namespace {

constexpr std::string_view prefix = ".plimo-";
constexpr std::string_view suffix = ".tmp";

}  // namespace

std::string makeTemporaryName(std::uint32_t processId) {
  static std::atomic<unsigned> count{0};
  return std::string(prefix) + std::to_string(processId) + "-" + std::to_string(count++) + std::string(suffix);
}

bool isTemporaryName(std::string_view name) {
  if (!name.starts_with(prefix) || !name.ends_with(suffix)) return false;
  name.remove_prefix(prefix.size());
  if (name.size() < suffix.size()) return false;
  name.remove_suffix(suffix.size());
  const auto isNumber = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  const std::size_t dash = name.find('-');
  return dash != std::string_view::npos && isNumber(name.substr(0, dash)) && isNumber(name.substr(dash + 1));
}

}  // namespace plimo
