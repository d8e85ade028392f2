#include "scenario/control_names.h"

namespace plimo::scenario {

Control* findControl(Program& program, std::string_view name) {
  if (!name.starts_with(splashName)) return program.form1().find(name);
  name.remove_prefix(splashName.size());
  return name.starts_with('.') ? program.splash().find(name.substr(1)) : nullptr;
}

}  // namespace plimo::scenario
