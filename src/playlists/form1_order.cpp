// Shuffle and sort.
#include "playlists/row_operations.h"
#include "window/form1.h"

namespace plimo {

void Form1::Shuffle_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() < List6.count()) List4.assign(List6);
  List6.assign(List4, dealOrder(List4.count()));
  List4.assign(List6);
  showFinalList(List6);
  for (ListBox* list : {&List2, &List1}) list->setVisible(true);
  if (hadCurrent) List6.setCurrent(List6.find(current));
}

void Form1::sort_Click() {
  const bool hadCurrent = finalList().current().has_value();
  const std::string current = finalList().currentText();
  if (List4.count() > List6.count()) List6.assign(List4);
  std::vector<std::size_t> order;
  platform.files.runInBackground([&] { order = List6.sortedRows(); });
  List8.assign(List6, order);
  List4.assign(List8);
  showFinalList(List4);
  List4.setCurrent(hadCurrent ? List4.find(current) : std::nullopt);
}

}  // namespace plimo
