#include "platform/memory/fake_launcher.h"

#include "base/errors.h"

namespace plimo {

void FakeLauncher::start(const std::string& program, const std::string& argument) {
  if (!files_.fileExists(program)) throw RuntimeError(ErrorNumber::fileNotFound, program);
  started_.push_back({program + " " + argument, true});
}

}  // namespace plimo
