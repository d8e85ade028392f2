// The colour editor, and the way back from it and from the settings panel to the lists.
#include <algorithm>

#include "app/form1.h"
#include "app/settings_file.h"
#include "prefs/colour_scheme.h"

namespace plimo {

namespace {

constexpr Colour white = 16777215;
constexpr Colour black = 0;

constexpr std::string_view artistSample[] = {" ", "This is the Artist Playlist"};
constexpr std::string_view scratchSample[] = {"   ",
                                              "This is the Scratch Playlist",
                                              "",
                                              "",
                                              "1) Please Select one  of  the  lists",
                                              "   Artist, scratch or the final list",
                                              "",
                                              "",
                                              "2) Please    choose    Foreground  or",
                                              "   background  and  adjust the slider",
                                              "   bars to change the required colour"};
constexpr std::string_view finalSample[] = {"   ", "This is the Final Playlist"};

// Removes the last row with each of the texts.
void removeSample(ListBox& list, std::span<const std::string_view> sample) {
  std::vector<std::size_t> removed;
  const auto counted = [&removed](std::size_t row) {
    return std::find(removed.begin(), removed.end(), row) != removed.end();
  };
  for (const std::string_view text : sample) {
    std::size_t row = list.count();
    while (row > 0 && (list.text(row - 1) != text || counted(row - 1))) --row;
    if (row > 0) removed.push_back(row - 1);
  }
  std::sort(removed.begin(), removed.end());
  list.removeAll(removed);
}

void showEditor(Form1& form, bool shown) {
  for (Control* control :
       std::initializer_list<Control*>{&form.Slider1, &form.Slider2, &form.Slider3, &form.Option1, &form.Option2,
                                       &form.Option3, &form.accept, &form.cancel, &form.Check1, &form.Check2}) {
    control->setVisible(shown);
  }
}

ListBox* chosenList(Form1& form) {
  if (form.Option1.value()) return &form.List2;
  if (form.Option2.value()) return &form.List1;
  if (form.Option3.value()) return &form.List4;
  return nullptr;
}

}  // namespace

void Form1::openColourEditor() {
  List2.addAll(artistSample);
  List1.addAll(scratchSample);
  sampledList_ = finalListAtOpening_;
  sampledList_->addAll(finalSample);
  Frame1.setVisible(false);
  hidePictures();
  for (ListBox* list : {&List2, &List1, &List4}) list->setVisible(true);
  showEditor(*this, true);
}

void Form1::recolour() {
  ListBox* const list = chosenList(*this);
  if (list == nullptr) return;
  const Colour colour = mixColour(Slider1.value(), Slider2.value(), Slider3.value());
  if (Check1.ticked()) list->setForeColour(colour);
  if (Check2.ticked()) list->setBackColour(colour);
}

void Form1::Slider1_Change() { recolour(); }
void Form1::Slider1_Scroll() { recolour(); }
void Form1::Slider1_Click() { recolour(); }
void Form1::Slider1_KeyUp() { recolour(); }
void Form1::Slider2_Change() { recolour(); }
void Form1::Slider2_Scroll() { recolour(); }
void Form1::Slider2_Click() { recolour(); }
void Form1::Slider2_KeyUp() { recolour(); }
void Form1::Slider3_Change() { recolour(); }
void Form1::Slider3_Scroll() { recolour(); }
void Form1::Slider3_Click() { recolour(); }
void Form1::Slider3_KeyUp() { recolour(); }

void Form1::storeColours(const std::array<Colour, 6>& scheme) {
  const std::string settings = ownFile(settingsName);
  std::string firstSix(noSettings);
  if (platform.files.fileExists(settings)) {
    firstSix = rewriteFirstSix(platform.files.openForReading(settings)->bytes(), settings);
  }
  const std::string content = settingsWithScheme(firstSix, scheme);
  replaceWhole(platform.files, ownFile(newSettingsName), content, Force::yes);
  try {
    replaceWhole(platform.files, settings, content, Force::yes);
  } catch (const RuntimeError&) {
    deleteOwnFile(newSettingsName);
    throw;
  }
  deleteOwnFile(newSettingsName);
}

void Form1::accept_Click() {
  storeColours({List2.foreColour(), List2.backColour(), List1.foreColour(), List1.backColour(), List4.foreColour(),
                List4.backColour()});
  leavesettings();
}

void Form1::cancel_Click() {
  for (ListBox* list : {&List2, &List1, &List4}) {
    list->setForeColour(white);
    list->setBackColour(black);
  }
  storeColours({fc1, bc1, fc2, bc2, fc3, bc3});
  leavesettings();
}

void Form1::leavesettings() {
  showListFrames(true);
  Frame1.setVisible(false);
  List2.setVisible(true);
  foldAllStrips();
  Picture7.setVisible(false);
  if (sampledList_ != nullptr) removeSample(*sampledList_, finalSample);
  sampledList_ = nullptr;
  List1.setVisible(true);
  List4.setVisible(true);
  showEditor(*this, false);
  fromsettings = false;
  for (Menu* menu : {&Function, &View, &help, &Settings}) menu->setVisible(true);
  if (!settingscancelled) Scan_Click();  // it clears the lists first
  settingscancelled = false;
}

}  // namespace plimo
