// Shuffle and sort, and which of the two final lists shows.
#include "app/form1.h"
#include "playlists/row_rules.h"

namespace plimo {

namespace {

void copyRows(const ListBox& from, ListBox& to) {
  to.clear();
  to.addAll(from);
}

}  // namespace

ListBox& Form1::finalList() { return List4.visible() ? List4 : List6; }

void Form1::swapFinalLists(ListBox& shown, ListBox& hidden) {
  shown.setVisible(true);
  if (focus() == &hidden) setFocus(&shown);
  hidden.setVisible(false);
}

void Form1::Shuffle_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() < List6.count()) copyRows(List6, List4);
  List6.assign(List4, dealt(List4.count()));
  copyRows(List6, List4);
  swapFinalLists(List6, List4);
  for (ListBox* list : {&List2, &List1}) list->setVisible(true);
  if (hadCurrent) List6.setCurrent(List6.find(current));
}

void Form1::sort_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() > List6.count()) copyRows(List4, List6);
  copyRows(List6, List8);
  copyRows(List8, List4);
  swapFinalLists(List4, List6);
  List4.setCurrent(hadCurrent ? List4.find(current) : std::nullopt);
}

void Form1::showlist4() {
  copyRows(List6, List4);
  swapFinalLists(List4, List6);
}

}  // namespace plimo
