// Checks a command's arguments against its signature.
//
// A signature is a list of parameters separated by blanks. A parameter in capitals names an argument type; one in small
// letters is a keyword, or several keywords separated by `|`. A suffix says how often it occurs: `?` at most once, `*`
// any number of times, `+` at least once. " / " separates two alternative signatures.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scenario/control_names.h"

namespace plimo::scenario {

// Throws ParseError with the first argument that does not match, or the last one (`command` if there is none) if one is
// missing.
void checkArguments(std::string_view command, std::string_view signature, const std::vector<std::string>& arguments,
                    const ControlNames& names);

}  // namespace plimo::scenario
