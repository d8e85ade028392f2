// Adds songs from the scratch playlist to the final one, and removes songs from both.
#include "window/form1.h"

namespace plimo {

void Form1::Command1_Click() {
  finalList().addAll(List1.selectedTexts());
  List1.clearSelection();
}

void Form1::Command8_Click() {
  foldSongStrip();
  finalList().addAll(List1);
  List1.clearSelection();
}

void Form1::Command2_Click() {
  foldSongStrip();
  List1.removeSelected();
}

void Form1::Command9_Click() {
  foldSongStrip();
  List1.clear();
}

void Form1::Command12_Click() {
  foldPlaylistStrip();
  finalList().removeSelected();
  if (&finalList() == &List6) List4.assign(List6);
}

void Form1::Command11_Click() {
  foldPlaylistStrip();
  if (&finalList() == &List6) List6.clear();
  List4.clear();
}

void Form1::dal_Click() { List1.clearSelection(); }

void Form1::atp_Click() { Command1_Click(); }

void Form1::ada_Click() { Command8_Click(); }

void Form1::rfl_Click() { Command2_Click(); }

void Form1::ra_Click() { Command9_Click(); }

void Form1::remove_Click() { Command12_Click(); }

void Form1::ral_Click() { Command11_Click(); }

}  // namespace plimo
