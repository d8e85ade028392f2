// Shuffle and sort, and which of the two final lists shows.
#include "app/form1.h"
#include "playlists/row_operations.h"

namespace plimo {

ListBox& Form1::finalList() { return List4.visible() ? List4 : List6; }

void Form1::swapFinalLists(ListBox& shown, ListBox& hidden) {
  shown.setVisible(true);
  if (focus() == &hidden) setFocus(&shown);
  hidden.setVisible(false);
}

void Form1::Shuffle_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() < List6.count()) List4.assign(List6);
  List6.assign(List4, dealOrder(List4.count()));
  List4.assign(List6);
  swapFinalLists(List6, List4);
  for (ListBox* list : {&List2, &List1}) list->setVisible(true);
  if (hadCurrent) List6.setCurrent(List6.find(current));
}

void Form1::sort_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() > List6.count()) List6.assign(List4);
  List8.assign(List6);
  List4.assign(List8);
  swapFinalLists(List4, List6);
  List4.setCurrent(hadCurrent ? List4.find(current) : std::nullopt);
}

void Form1::showlist4() {
  List4.assign(List6);
  swapFinalLists(List4, List6);
}

}  // namespace plimo
