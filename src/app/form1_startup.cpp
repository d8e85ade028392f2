// Start-up and shutdown of the main window.
#include "settings/settings_file.h"
#include "window/form1.h"

namespace plimo {

namespace {

constexpr int frameBorder = 3;  // pixels

void frame(Shape& shape, const ListBox& list) {
  shape.draw(Shape::Outline::rectangle, frameBorder);
  shape.setGeometry(list.geometry());
}

void setHeight(Control& control, double height) {
  Geometry geometry = control.geometry();
  geometry.height = height;
  control.setGeometry(geometry);
}

}  // namespace

void Form1::Form_Load() {
  for (Control* control : std::initializer_list<Control*>{&MediaPlayer1, &Slider1, &Slider2, &Slider3}) {
    control->setVisible(false);
  }
  setHeight(List1, List2.geometry().height);
  setHeight(List4, List1.geometry().height);
  frame(Shape1, List2);
  frame(Shape2, List1);
  frame(Shape3, List4);
  if (!here) arrayinitialize();
  Picture1.setPicture(Picture2.picture());
  if (here) {
    Geometry geometry = MediaPlayer1.geometry();
    geometry.left = orgleft;
    geometry.top = orgtop;
    MediaPlayer1.setGeometry(geometry);
  } else {
    orgleft = MediaPlayer1.geometry().left;
    orgtop = MediaPlayer1.geometry().top;
  }
  defdir = platform.files.currentDirectory();
  if (platform.files.isRootFolder(defdir)) {
    platform.dialogs.message(
        "Sorry, Plimo cannot be installed in the root folder! Please install Plimo in any sub-directory");
    unload();
    return;
  }
  platform.files.removeLeftovers(defdir);
  TreeView1.setVisible(false);
  show();
  if (!hasSettings(platform.files, ownFile(settingsName))) {
    fc1 = fc2 = fc3 = defaultTextColour;
    bc1 = bc2 = bc3 = defaultBackgroundColour;
    showFirstRun();
  } else {
    const bool displayed = applySettings();
    if (!here) {
      if (displayed) {
        displayAgain();
      } else {
        display();
      }
    }
  }
  here = false;
  if (closing()) return;  // during the scan
  if (!frommenu && Check5.ticked()) playdefaultlist();
  frommenu = false;
  if (runpref) {
    runpref = false;
    makethefile = true;
    Preferences_Click();
  }
}

void Form1::large_Click() {
  closePanels();
  showListFrames(true);
  returnToList4();
  // From a normal window the new size may come later; from any other state it is already known.
  const bool sizeToCome = comp && windowState() == WindowState::normal;
  if (comp) restorePlayer();
  comp = false;
  here = true;
  frommenu = true;
  resizing = true;
  const double width = scaleWidth();
  const double height = scaleHeight();
  setWindowState(WindowState::maximised);
  const auto finish = [&] {
    if (!Frame1.visible()) {  // the start-up may have opened the settings panel
      showListFrames(true);
      for (ListBox* list : {&List2, &List1, &List4}) list->setVisible(true);
      foldAllStrips();  // the headings show only above folded strips
    }
    if (sizeToCome && scaleWidth() == width && scaleHeight() == height) return;
    resizing = false;
    Form_Resize();
  };
  try {
    Form_Load();
  } catch (...) {
    here = false;
    frommenu = false;
    finish();
    throw;
  }
  finish();
}

// As their own Cancel does.
void Form1::closePanels() {
  if (Frame1.visible()) Command16_Click();
  if (Frame2.visible()) Command19_Click();
  if (Frame3.visible()) credit_Click();
  if (Frame4.visible()) Command7_Click();
  if (Frame5.visible()) Command18_Click();
}

void Form1::showFirstRun() {
  rememberPanel();
  offerAccept();
  MediaPlayer1.setVisible(false);
  TreeView1.setVisible(false);
  Option4.setEnabled(false);
  showListFrames(false);
  hidePictures();
  Frame2.setVisible(true);
  for (Control* control :
       std::initializer_list<Control*>{&List2, &List1, &List4, &List6, &Function, &View, &Settings, &help}) {
    control->setVisible(false);
  }
  Frame1.setVisible(true);
  List5.clear();
  fillDrives(List5);
}

void Form1::Exit_Click() { unload(); }

void Form1::Form_Terminate() {
  if (fromsettings) restoreOldColours();  // the settings file would lack its scheme
  unload();
}

}  // namespace plimo
