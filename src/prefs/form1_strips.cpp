// The strips of buttons beside the lists: opened and closed by their handles, lit under the pointer.
#include <array>
#include <span>

#include "app/form1.h"

namespace plimo {

namespace {

struct StripColours {
  Colour resting;
  Colour hover;
};

constexpr StripColours artistColours{8421504, 12648447};  // grey, light yellow
constexpr StripColours songColours{32768, 12648384};      // green, light green
constexpr StripColours playlistColours{16512, 8438015};   // brown, light orange

std::array<CommandButton*, 2> artistButtons(Form1& form) { return {&form.Command13, &form.Command14}; }

std::array<CommandButton*, 6> songButtons(Form1& form) {
  return {&form.Command1, &form.Command2, &form.Command8, &form.Command9, &form.Command10, &form.Command15};
}

std::array<CommandButton*, 4> playlistButtons(Form1& form) {
  return {&form.Command11, &form.Command12, &form.Command3, &form.Command4};
}

using Buttons = std::span<CommandButton* const>;

void showStrip(Buttons buttons, Picture& closedHandle, Picture& openHandle, bool open) {
  closedHandle.setVisible(!open);
  openHandle.setVisible(open);
  for (CommandButton* button : buttons) button->setVisible(open);
}

// Lights one button of a strip; null puts all of them to rest.
void light(Buttons buttons, const StripColours& colours, const CommandButton* lit) {
  for (CommandButton* button : buttons) button->setBackColour(button == lit ? colours.hover : colours.resting);
}

void lightArtist(Form1& form, const CommandButton* lit) { light(artistButtons(form), artistColours, lit); }
void lightSong(Form1& form, const CommandButton* lit) { light(songButtons(form), songColours, lit); }
void lightPlaylist(Form1& form, const CommandButton* lit) { light(playlistButtons(form), playlistColours, lit); }

}  // namespace

void Form1::Picture1_Click() { showStrip(artistButtons(*this), Picture1, Picture4, true); }
void Form1::Picture2_Click() { showStrip(songButtons(*this), Picture2, Picture5, true); }
void Form1::Picture3_Click() { showStrip(playlistButtons(*this), Picture3, Picture6, true); }
void Form1::Picture4_Click() { foldArtistStrip(); }
void Form1::Picture5_Click() { foldSongStrip(); }
void Form1::Picture6_Click() { foldPlaylistStrip(); }

void Form1::foldArtistStrip() { showStrip(artistButtons(*this), Picture1, Picture4, false); }
void Form1::foldSongStrip() { showStrip(songButtons(*this), Picture2, Picture5, false); }
void Form1::foldPlaylistStrip() { showStrip(playlistButtons(*this), Picture3, Picture6, false); }

void Form1::foldAllStrips() {
  foldArtistStrip();
  foldSongStrip();
  foldPlaylistStrip();
}

void Form1::hidePictures() {
  foldAllStrips();
  for (Picture* handle : {&Picture1, &Picture2, &Picture3, &Picture7}) handle->setVisible(false);
}

void Form1::showListFrames(bool shown) {
  for (Shape* frame : {&Shape1, &Shape2, &Shape3}) frame->setVisible(shown);
}

void Form1::Command13_MouseMove() { lightArtist(*this, &Command13); }
void Form1::Command14_MouseMove() { lightArtist(*this, &Command14); }

void Form1::Command1_MouseMove() { lightSong(*this, &Command1); }
void Form1::Command2_MouseMove() { lightSong(*this, &Command2); }
void Form1::Command8_MouseMove() { lightSong(*this, &Command8); }
void Form1::Command9_MouseMove() { lightSong(*this, &Command9); }
void Form1::Command10_MouseMove() { lightSong(*this, &Command10); }
void Form1::Command15_MouseMove() { lightSong(*this, &Command15); }

void Form1::Command11_MouseMove() { lightPlaylist(*this, &Command11); }
void Form1::Command12_MouseMove() { lightPlaylist(*this, &Command12); }
void Form1::Command3_MouseMove() { lightPlaylist(*this, &Command3); }
void Form1::Command4_MouseMove() { lightPlaylist(*this, &Command4); }

void Form1::Form_MouseMove() {
  lightArtist(*this, nullptr);
  lightSong(*this, nullptr);
  lightPlaylist(*this, nullptr);
}

}  // namespace plimo
