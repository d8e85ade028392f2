// The strips of buttons above the lists: opened and closed by their handles, highlighted under the pointer.
#include <algorithm>
#include <array>
#include <span>

#include "window/form1.h"

namespace plimo {

namespace {

struct StripColours {
  Colour resting;
  Colour hover;
};

constexpr StripColours artistColours{8421504, 12648447};  // grey, light yellow
constexpr StripColours songColours{32768, 12648384};      // green, light green
constexpr StripColours playlistColours{16512, 8438015};   // brown, light orange

std::array<CommandButton*, 2> artistButtons(Form1Controls& form) { return {&form.Command13, &form.Command14}; }

std::array<CommandButton*, 6> songButtons(Form1Controls& form) {
  return {&form.Command1, &form.Command2, &form.Command8, &form.Command9, &form.Command10, &form.Command15};
}

std::array<CommandButton*, 4> playlistButtons(Form1Controls& form) {
  return {&form.Command11, &form.Command12, &form.Command3, &form.Command4};
}

using Buttons = std::span<CommandButton* const>;

void showStrip(Buttons buttons, Picture& closedHandle, Picture& openHandle, bool open) {
  closedHandle.setVisible(!open);
  openHandle.setVisible(open);
  for (CommandButton* button : buttons) button->setVisible(open);
}

// Highlights one button of a strip; null: none.
void highlight(Buttons buttons, const StripColours& colours, const CommandButton* hovered) {
  for (CommandButton* button : buttons) button->setBackColour(button == hovered ? colours.hover : colours.resting);
}

void highlightArtist(Form1Controls& form, const CommandButton* hovered) {
  highlight(artistButtons(form), artistColours, hovered);
}
void highlightSong(Form1Controls& form, const CommandButton* hovered) {
  highlight(songButtons(form), songColours, hovered);
}
void highlightPlaylist(Form1Controls& form, const CommandButton* hovered) {
  highlight(playlistButtons(form), playlistColours, hovered);
}

}  // namespace

void Form1::Picture1_Click() { showStrip(artistButtons(*this), Picture1, Picture4, true); }
void Form1::Picture2_Click() { showStrip(songButtons(*this), Picture2, Picture5, true); }
void Form1::Picture3_Click() { showStrip(playlistButtons(*this), Picture3, Picture6, true); }
void Form1::Picture4_Click() { foldArtistStrip(); }
void Form1::Picture5_Click() { foldSongStrip(); }
void Form1::Picture6_Click() { foldPlaylistStrip(); }

void Form1::foldArtistStrip() {
  moveFocusOff(artistButtons(*this), List2);
  showStrip(artistButtons(*this), Picture1, Picture4, false);
}

void Form1::foldSongStrip() {
  moveFocusOff(songButtons(*this), List1);
  showStrip(songButtons(*this), Picture2, Picture5, false);
}

void Form1::foldPlaylistStrip() {
  moveFocusOff(playlistButtons(*this), finalList());
  showStrip(playlistButtons(*this), Picture3, Picture6, false);
}

// A button that has just been pressed and is hidden leaves the keyboard to its list.
void Form1::moveFocusOff(std::span<CommandButton* const> buttons, ListBox& list) {
  if (list.showing() && std::find(buttons.begin(), buttons.end(), focus()) != buttons.end()) setFocus(&list);
}

void Form1::foldAllStrips() {
  foldArtistStrip();
  foldSongStrip();
  foldPlaylistStrip();
}

void Form1::hidePictures() {
  foldAllStrips();
  for (Picture* handle : {&Picture1, &Picture2, &Picture3, &Picture7}) handle->setVisible(false);
}

void Form1::showListFrames(bool visible) {
  for (Shape* frame : {&Shape1, &Shape2, &Shape3}) frame->setVisible(visible);
}

void Form1::Command13_MouseMove() { highlightArtist(*this, &Command13); }
void Form1::Command14_MouseMove() { highlightArtist(*this, &Command14); }

void Form1::Command1_MouseMove() { highlightSong(*this, &Command1); }
void Form1::Command2_MouseMove() { highlightSong(*this, &Command2); }
void Form1::Command8_MouseMove() { highlightSong(*this, &Command8); }
void Form1::Command9_MouseMove() { highlightSong(*this, &Command9); }
void Form1::Command10_MouseMove() { highlightSong(*this, &Command10); }
void Form1::Command15_MouseMove() { highlightSong(*this, &Command15); }

void Form1::Command11_MouseMove() { highlightPlaylist(*this, &Command11); }
void Form1::Command12_MouseMove() { highlightPlaylist(*this, &Command12); }
void Form1::Command3_MouseMove() { highlightPlaylist(*this, &Command3); }
void Form1::Command4_MouseMove() { highlightPlaylist(*this, &Command4); }

void Form1::Form_MouseMove() {
  highlightArtist(*this, nullptr);
  highlightSong(*this, nullptr);
  highlightPlaylist(*this, nullptr);
}

}  // namespace plimo
