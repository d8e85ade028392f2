// With a settings file the splash window shows nothing; without one it slides its picture in and waits.
#include <chrono>
#include <utility>

#include "app/frm_splash.h"

#include "settings/settings_file.h"

namespace plimo {

namespace {

// 480 x 300 pixels.
constexpr double splashWidth = 7200;
constexpr double splashHeight = 4500;
// The picture slides in from the left at a third of the window's size, in this many steps.
constexpr int slideSteps = 24;
constexpr std::chrono::milliseconds slidePause{16};
constexpr int waitMilliseconds = 300;

}  // namespace

FrmSplash::FrmSplash(Dispatcher& dispatcher, Platform platform, std::function<void()> next)
    : Form(dispatcher, "frmSplash"), platform_(platform), next_(std::move(next)) {
  designSize(splashWidth, splashHeight);
  setCaption("Plimo!");
  Image1.setPicture("splash");
  Image1.setStretched();
  Image1.setAccessibleName("Plimo!");
  load = [this] { Form_Load(); };
  Timer1.timer = [this] { Timer1_Timer(); };
}

void FrmSplash::Form_Load() {
  if (hasSettings(platform_.files, platform_.files.join(platform_.files.currentDirectory(), settingsName))) {
    unload();
    next_();
    return;
  }
  const double width = splashWidth / 3;
  const double height = splashHeight / 3;
  Image1.setGeometry({-width, (splashHeight - height) / 2, width, height});
  show();
  for (int step = 1; step <= slideSteps; ++step) {
    Geometry geometry = Image1.geometry();
    geometry.left = -width + (splashWidth + width) / 2 * step / slideSteps;
    Image1.setGeometry(geometry);
    pause(slidePause);
  }
  Image1.setGeometry({0, 0, splashWidth, splashHeight});
  Timer1.setInterval(waitMilliseconds);
}

void FrmSplash::Timer1_Timer() {
  Timer1.setInterval(0);
  unload();
  next_();
}

}  // namespace plimo
