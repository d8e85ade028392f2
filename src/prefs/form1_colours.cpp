// The colour editor, and the return from it and from the settings panel to the lists.
#include "settings/settings_file.h"
#include "window/form1.h"

namespace plimo {

namespace {

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
  for (const std::string_view text : sample) {
    const std::vector<std::size_t> rows = list.findAll(text);
    if (!rows.empty()) list.remove(rows.back());
  }
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
  showEditor(true);
}

void Form1::showEditor(bool visible) {
  for (Control* control : std::initializer_list<Control*>{&Slider1, &Slider2, &Slider3, &Option1, &Option2, &Option3,
                                                          &accept, &cancel, &Check1, &Check2}) {
    control->setVisible(visible);
  }
}

void Form1::recolour() {
  ListBox* const list = Option1.value() ? &List2 : Option2.value() ? &List1 : Option3.value() ? &List4 : nullptr;
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

void Form1::storeColours(const ColourScheme& scheme) {
  storeScheme(platform.files, ownFile(settingsName), ownFile(temporarySettingsName), scheme);
}

ColourScheme Form1::listColours() const {
  return {List2.foreColour(), List2.backColour(), List1.foreColour(),
          List1.backColour(), List4.foreColour(), List4.backColour()};
}

void Form1::restoreOldColours() { storeColours({fc1, bc1, fc2, bc2, fc3, bc3}); }

void Form1::accept_Click() {
  storeColours(listColours());
  leavesettings();
}

void Form1::cancel_Click() {
  for (ListBox* list : {&List2, &List1, &List4}) {
    list->setForeColour(whiteColour);
    list->setBackColour(blackColour);
  }
  restoreOldColours();
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
  if (settingscancelled && finalListAtOpening_ == &List6) {
    showlist4();
  } else {
    showFinalList(List4);
  }
  showEditor(false);
  fromsettings = false;
  for (Menu* menu : {&Function, &View, &help, &Settings}) menu->setVisible(true);
  if (!settingscancelled) Scan_Click();  // it clears the lists first
  settingscancelled = false;
}

}  // namespace plimo
