// What the system's loader does with the program's libraries before any of its own code runs.
#include <windows.h>

// The structure that the loader looks for, in a place of the program file that set_load_configuration.py enters into
// the file's directory.
extern "C" {
extern const IMAGE_LOAD_CONFIG_DIRECTORY64 plimo_load_configuration;
__attribute__((used)) constinit const IMAGE_LOAD_CONFIG_DIRECTORY64 plimo_load_configuration = [] {
  IMAGE_LOAD_CONFIG_DIRECTORY64 result{};
  result.Size = sizeof result;
  // Libraries are taken from the system's folder alone, never from that of the program, into which anything may have
  // been downloaded. The member is called DependentLoadFlags today; these headers are from before it had its meaning.
  result.Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32;
  return result;
}();
}
