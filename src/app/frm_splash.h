// The splash window, the first window of the program.
#pragma once

#include <functional>

#include "controls/form.h"
#include "controls/simple_controls.h"
#include "platform/platform.h"

namespace plimo {

class FrmSplash : public Form {
 public:
  // `next` loads the main window.
  FrmSplash(Dispatcher& dispatcher, Platform platform, std::function<void()> next);

  Picture Image1{*this, "Image1"};
  Timer Timer1{*this, "Timer1"};

  void Form_Load();
  void Timer1_Timer();

 private:
  Platform platform_;
  std::function<void()> next_;
};

}  // namespace plimo
