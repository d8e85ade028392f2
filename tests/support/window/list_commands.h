// Every command on large lists, performed through the real window.
#pragma once

#include <string>

#include "support/sample_library.h"
#include "support/window/window_fixture.h"

namespace plimo {

// Writes the program's files for this library into the existing folder and makes it the current one.
void prepareListCommands(const SampleLibrary& library, const std::string& folder);

// Performs all commands that show no progress, in the prepared folder.
void runListCommands(WindowFixture& fixture, const SampleLibrary& library, const std::string& folder);

}  // namespace plimo
