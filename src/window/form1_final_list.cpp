// Which of the two final lists is visible.
#include "window/form1.h"

namespace plimo {

ListBox& Form1::finalList() {
  if (List4.visible()) finalList_ = &List4;
  if (List6.visible()) finalList_ = &List6;
  return *finalList_;
}

void Form1::showFinalList(ListBox& list) {
  ListBox& other = &list == &List4 ? List6 : List4;
  list.setVisible(true);
  if (focus() == &other) setFocus(&list);
  other.setVisible(false);
  finalList_ = &list;
}

void Form1::showlist4() {
  List4.assign(List6);
  showFinalList(List4);
}

void Form1::returnToList4() {
  if (&finalList() == &List6) {
    showlist4();
  } else {
    showFinalList(List4);
  }
}

}  // namespace plimo
