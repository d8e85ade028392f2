// Runs scenarios, each in a fresh world.
#pragma once

#include <ostream>
#include <span>
#include <string>

namespace plimo::scenario {

// Failed expectations and unreadable lines go to `err`, the count of files passed and failed to `out`. Returns the
// program's exit status: 0 when all hold, 1 when one failed, 2 when a file or a line could not be read (such a file
// does not run and counts as failed).
int runScenarioFiles(std::span<const std::string> files, std::ostream& out, std::ostream& err);

}  // namespace plimo::scenario
