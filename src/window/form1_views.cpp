// The window's two views, and how its controls follow its size.
//
// `resizing` keeps the controls in place while the compact layout is active and while the window returns to full size.
// The host may report the new size immediately, in the middle of the handler, or later: large_Click lays everything out
// itself if the size is known already, and otherwise leaves it to Form_Resize.
#include "window/form1.h"
#include "window/layout.h"

namespace plimo {

void Form1::arrayinitialize() {
  ratios_.assign(controls().size(), {});
  for (std::size_t i = 0; i < ratios_.size(); ++i) {
    const Control& control = *controls()[i];
    if (hasGeometry(control.kind())) ratios_[i] = ratioOf(control.geometry(), scaleWidth(), scaleHeight());
  }
}

void Form1::Form_Resize() {
  if (resizing) {
    if (comp || here) return;
    resizing = false;  // the window is back at full size
  }
  for (std::size_t i = 0; i < ratios_.size(); ++i) {
    Control& control = *controls()[i];
    if (hasGeometry(control.kind())) control.setGeometry(geometryFor(ratios_[i], scaleWidth(), scaleHeight()));
  }
}

void Form1::Compact_Click() {
  if (winamp1) {
    setWindowState(WindowState::minimised);
    return;
  }
  const Geometry player = MediaPlayer1.geometry();
  if (!comp) {
    playerHeight_ = wholeMeasure(player.height);
    playerLeft_ = static_cast<float>(player.left);
    playerTop_ = static_cast<float>(player.top);
    playerWidth_ = static_cast<float>(player.width);
  }
  comp = true;
  resizing = true;
  MediaPlayer1.setVisible(true);
  platform.player.setAutoStart(true);
  setWindowState(WindowState::normal);
  const WindowSize size = compactSize(player.width, player.height);
  setSize(size.width, size.height);
  MediaPlayer1.setGeometry({0, 0, player.width, player.height});
}

void Form1::restorePlayer() {
  MediaPlayer1.setGeometry({static_cast<double>(playerLeft_), static_cast<double>(playerTop_),
                            static_cast<double>(playerWidth_), static_cast<double>(playerHeight_)});
}

void Form1::leaveCompactLayout() {
  if (!comp) return;
  restorePlayer();
  comp = false;
  resizing = false;
  if (windowState() == WindowState::maximised) {
    Form_Resize();
  } else {
    setWindowState(WindowState::maximised);
  }
}

void Form1::hidemainview() {
  hidePictures();
  for (Control* control :
       std::initializer_list<Control*>{&List2, &List1, &List4, &List6, &Function, &View, &help, &Settings}) {
    control->setVisible(false);
  }
  setWindowState(WindowState::maximised);
}

}  // namespace plimo
