// What must hold for every catalogue.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace plimo::fuzz {

// Reads the catalogue in all ways and compares each result with that of the naive reader.
void checkCatalogue(std::string_view content, std::span<const std::string_view> names);

}  // namespace plimo::fuzz
