// The window's two views, and how its controls follow its size.
//
// While the compact layout is on, or the window is on its way back to full size, `resizing` holds the controls where
// they are. The window may answer a change of state at once, in the middle of the handler, or later: large_Click lays
// everything out itself when the new size is there already, and leaves it to Form_Resize when it is not.
#include "app/form1.h"
#include "app/layout.h"

namespace plimo {

namespace {

void restorePlayer(Form1& form) {
  form.MediaPlayer1.setGeometry({static_cast<double>(form.playerleft), static_cast<double>(form.playertop),
                                 static_cast<double>(form.playerwidth), static_cast<double>(form.playerheight)});
}

}  // namespace

void Form1::arrayinitialize() {
  ratios.assign(controls().size(), {});
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    const Control& control = *controls()[i];
    if (hasGeometry(control.kind())) ratios[i] = ratioOf(control.geometry(), scaleWidth(), scaleHeight());
  }
}

void Form1::Form_Resize() {
  if (resizing) {
    if (comp || here) return;
    resizing = false;  // the window has come back to full size
  }
  for (std::size_t i = 0; i < ratios.size(); ++i) {
    Control& control = *controls()[i];
    if (hasGeometry(control.kind())) control.setGeometry(geometryFor(ratios[i], scaleWidth(), scaleHeight()));
  }
}

void Form1::Compact_Click() {
  if (winamp1) {
    setWindowState(WindowState::minimised);
    return;
  }
  const Geometry player = MediaPlayer1.geometry();
  if (!comp) {
    playerheight = wholeMeasure(player.height);
    playerleft = static_cast<float>(player.left);
    playertop = static_cast<float>(player.top);
    playerwidth = static_cast<float>(player.width);
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

void Form1::large_Click() {
  showListFrames(true);
  if (List6.visible()) showlist4();
  // Out of an ordinary window, nothing is spoilt by laying out before its new size comes; it may have it already.
  const bool sizeToCome = comp && windowState() == WindowState::normal;
  if (comp) restorePlayer(*this);
  comp = false;
  here = true;
  frommenu = true;
  resizing = true;
  const double width = scaleWidth();
  const double height = scaleHeight();
  setWindowState(WindowState::maximised);
  const auto layOut = [&] {
    if (sizeToCome && scaleWidth() == width && scaleHeight() == height) return;
    resizing = false;
    Form_Resize();
  };
  try {
    Form_Load();
  } catch (...) {
    here = false;
    frommenu = false;
    layOut();
    throw;
  }
  layOut();
}

void Form1::leaveCompactLayout() {
  if (!comp) return;
  restorePlayer(*this);
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
