#include "platform/memory/memory_launcher.h"

#include "base/errors.h"

namespace plimo {

void MemoryLauncher::start(const std::string& program, const std::string& argument) {
  if (!files_.fileExists(program)) throw RuntimeError(ErrorNumber::fileNotFound, program);
  started_.push_back({program + " " + argument, true});
}

}  // namespace plimo
