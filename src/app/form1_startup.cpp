// How the main window begins and ends.
#include "app/form1.h"
#include "app/settings_file.h"

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

Form1::Form1(Dispatcher& dispatcher, Platform machine)
    : Form(dispatcher, "Form1"), Form1Controls(static_cast<Form&>(*this)), platform(machine) {
  design();
  wire();
}

std::string Form1::ownFile(std::string_view name) const { return platform.files.join(defdir, name); }

void Form1::deleteOwnFile(std::string_view name) {
  const std::string path = ownFile(name);
  if (!platform.files.fileExists(path)) return;
  try {
    platform.files.deleteFile(path, Force::yes);
  } catch (const RuntimeError&) {  // ignored: whoever writes the file next meets the reason
  }
}

void Form1::Form_Load() {
  for (Control* control : {static_cast<Control*>(&MediaPlayer1), static_cast<Control*>(&Slider1),
                           static_cast<Control*>(&Slider2), static_cast<Control*>(&Slider3)}) {
    control->setVisible(false);
  }
  setHeight(List1, List2.geometry().height);
  setHeight(List4, List1.geometry().height);
  frame(Shape1, List2);
  frame(Shape2, List1);
  frame(Shape3, List4);
  if (!here) arrayinitialize();
  dfc1 = List2.foreColour();
  dbc1 = List2.backColour();
  dfc2 = List1.foreColour();
  dbc2 = List1.backColour();
  dfc3 = List4.foreColour();
  dbc3 = List4.backColour();
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
  TreeView1.setVisible(false);
  show();
  if (!platform.files.fileExists(ownFile(settingsName))) {
    showFirstRun();
  } else {
    bool displayed = false;
    if (platform.files.fileExists(ownFile(settingsName))) {
      displayed = applySettings();
    } else {  // it went in between
      fc1 = fc2 = fc3 = 65535;
      bc1 = bc2 = bc3 = 4194304;
    }
    if (!here) {
      if (displayed) {
        displayAgain();
      } else {
        display();
      }
    }
  }
  here = false;
  if (!frommenu && Check5.ticked()) playdefaultlist();
  frommenu = false;
  if (runpref) {
    runpref = false;
    makethefile = true;
    Preferences_Click();
  }
}

void Form1::showFirstRun() {
  MediaPlayer1.setVisible(false);
  TreeView1.setVisible(false);
  Option4.setEnabled(false);
  showListFrames(false);
  Frame2.setVisible(true);
  for (Control* control :
       {static_cast<Control*>(&List2), static_cast<Control*>(&List1), static_cast<Control*>(&List4),
        static_cast<Control*>(&List6), static_cast<Control*>(&Function), static_cast<Control*>(&View),
        static_cast<Control*>(&Settings), static_cast<Control*>(&help)}) {
    control->setVisible(false);
  }
  Frame1.setVisible(true);
  List5.clear();
  fillDrives(List5);
}

void Form1::Exit_Click() { unload(); }

void Form1::Form_Terminate() { unload(); }

}  // namespace plimo
