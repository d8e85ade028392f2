// The welcome and the credits.
#include "window/form1.h"

namespace plimo {

void Form1::plimo_Click() {
  leaveCompactLayout();
  platform.player.setEnabled(true);
  Command00.setVisible(false);
  Command19.setVisible(true);
  List2.setVisible(false);
  List1.setVisible(false);
  finalList().setVisible(false);
  Picture7.setVisible(false);
  showListFrames(false);
  Frame2.setVisible(true);
}

void Form1::Command19_Click() {
  Command00.setVisible(true);
  Command19.setVisible(false);
  List2.setVisible(true);
  List1.setVisible(true);
  Picture7.setVisible(true);
  showListFrames(true);
  Frame2.setVisible(false);
}

void Form1::Command00_Click() {
  platform.player.setEnabled(true);
  Frame2.setVisible(false);
  Picture7.setVisible(true);
  foldSongStrip();
  finalList().addAll(List1.selectedTexts());
  List1.clearSelection();
}

void Form1::credits_Click() {
  leaveCompactLayout();
  foldAllStrips();
  Frame3.setVisible(true);
  for (Picture* handle : {&Picture1, &Picture2, &Picture3}) handle->setVisible(false);
}

void Form1::credit_Click() {
  Frame3.setVisible(false);
  for (Picture* handle : {&Picture1, &Picture2, &Picture3}) handle->setVisible(true);
}

}  // namespace plimo
