// The names of the program's own controls, as a scenario writes them.
#pragma once

#include <string_view>

#include "app/program.h"

namespace plimo::scenario {

inline constexpr std::string_view mainWindowName = "Form1";
inline constexpr std::string_view splashName = "frmSplash";

// The control, menu item or timer of that name; those of the splash window are written "frmSplash.Timer1". Null if
// there is none.
Control* findControl(Program& program, std::string_view name);

// Looks names up in a program that is never started.
class ControlNames {
 public:
  explicit ControlNames(Platform platform) : program_(platform) {}
  // Null if there is none.
  const Control* find(std::string_view name) const { return findControl(program_, name); }

 private:
  mutable Program program_;
};

}  // namespace plimo::scenario
