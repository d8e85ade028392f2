// Every command on large lists, given as by a user to the real window.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "library.h"
#include "window_stage.h"

namespace plimo::bench {

// Makes the program's files in the folder, which must exist, and enters it.
void prepareFolder(const Library& library, const std::string& folder);

// Commands that show no progress, in the folder prepared.
void giveCommands(Stage& stage, const Library& library, const std::string& folder);

// Scrolls all songs by so many pages: the seconds from each key to the painted page.
std::vector<double> scrollByPages(Stage& stage, const Library& library, std::size_t pages);

}  // namespace plimo::bench
