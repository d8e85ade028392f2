// Which of the two final lists is visible.
#include "window/form1.h"

namespace plimo {

ListBox& Form1::finalList() { return List4.visible() ? List4 : List6; }

void Form1::swapFinalLists(ListBox& shown, ListBox& hidden) {
  shown.setVisible(true);
  if (focus() == &hidden) setFocus(&shown);
  hidden.setVisible(false);
}

void Form1::showlist4() {
  List4.assign(List6);
  swapFinalLists(List4, List6);
}

}  // namespace plimo
