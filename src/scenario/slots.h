// What may stand in each place of a line.
//
// A shape is a row of slots parted by blanks. A slot in capitals names a kind of word; one in small letters is the word
// itself, or several to choose from, parted by `|`. Behind it, `?` means that the word may be left out, `*` that any
// number of them follows, `+` that at least one does. " / " parts two shapes, of which either will do.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scenario/vocabulary.h"

namespace plimo::scenario {

// Throws Unreadable, which names the first word that does not fit; `command` is named where one is missing.
void checkWords(std::string_view command, std::string_view shape, const std::vector<std::string>& words,
                const Vocabulary& vocabulary);

}  // namespace plimo::scenario
