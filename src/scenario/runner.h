// Runs scenario files.
#pragma once

#include <ostream>
#include <span>
#include <string>

namespace plimo::scenario {

// Runs each file in a fresh world. Failed expectations and parse errors go to `err`, the number of files passed and
// failed to `out`. Returns the exit status: 0 if all passed, 1 if one failed, 2 if a file or a line could not be read
// (such a file is not executed and counts as failed).
int runScenarios(std::span<const std::string> files, std::ostream& out, std::ostream& err);

}  // namespace plimo::scenario
