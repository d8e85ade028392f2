// The single-key commands of the song lists, and their pop-up menus.
#include "base/text.h"
#include "playlists/row_operations.h"
#include "window/form1.h"

namespace plimo {

namespace {

constexpr char backspace = 8;
constexpr char enter = 13;
constexpr char escape = 27;

void selectCurrentSong(ListBox& list) {
  if (list.current()) list.selectText(list.currentText());
}

void removeCurrentSong(ListBox& list) {
  if (list.current()) list.removeAll(removedByWalk(list.findAll(list.currentText())));
}

}  // namespace

void Form1::List1_KeyPress(char KeyAscii) {
  switch (KeyAscii) {
    case 'c':
    case escape:
      List1.clearSelection();
      break;
    case 'v':
      popUp(popy);
      break;
    case 'D':
      Command10_Click();
      break;
    case 'z':
      selectCurrentSong(List1);
      break;
    case 'x':
    case backspace:
      removeCurrentSong(List1);
      List4.setTop(static_cast<long>(List4.count()) - 1);
      break;
    case enter:
      if (List1.current()) playOne(List1.currentText(), false);
      break;
    case ' ':
      addCurrentSong();
      break;
    default:
      break;
  }
}

void Form1::addCurrentSong() {
  Picture7.setVisible(true);
  ListBox& list = finalList();
  if (List1.current()) list.add(List1.currentText());
  list.setTop(static_cast<long>(list.count()) - 1);
  List1.clearSelection();
}

void Form1::List4_KeyPress(char KeyAscii) {
  if (KeyAscii == 'w') {
    const std::optional<std::size_t> place = List4.current();
    List6.assign(List4);
    showFinalList(List6);
    List6.setCurrent(place);
    drop();
    for (ListBox* list : {&List2, &List1, &List6}) list->setVisible(true);
  } else {
    finalListKey(List4, KeyAscii);
  }
}

void Form1::List6_KeyPress(char KeyAscii) {
  if (KeyAscii == 'w') {
    drop();
  } else {
    finalListKey(List6, KeyAscii);
  }
}

void Form1::finalListKey(ListBox& list, char KeyAscii) {
  switch (KeyAscii) {
    case 'q':
      if (list.current()) {
        pickedUp_ = list.currentText();
        setStatus("picked up: " + elideMiddle(trimBlanks(pickedUp_), longestShownText) +
                  " - w drops it below the current song");
      }
      list.clearSelection();
      break;
    case 'c':
    case escape:
      list.clearSelection();
      break;
    case 'v':
      popUp(pop);
      break;
    case 'z':
      selectCurrentSong(list);
      break;
    case 'x':
    case backspace:
      removeCurrentSong(list);
      break;
    case enter:
      if (list.current()) playOne(list.currentText(), winamp1);
      break;
    default:
      break;
  }
}

void Form1::drop() {
  List6.clearSelection();
  if (pickedUp_.empty() || !List6.current()) return;
  const std::vector<std::size_t> targets = List6.findAll(List6.currentText());
  std::vector<std::size_t> songs = List6.findAll(pickedUp_);
  if (songs.empty()) {  // picked up, and removed since
    songs.push_back(List6.count());
    List6.add(pickedUp_);
  }
  List6.assign(List6, orderAfterDrop(List6.count(), songs, targets));
  List3.clear();
  List6.setCurrent(List6.find(pickedUp_));
  pickedUp_.clear();
  setStatus("new order, not yet in what Save writes - View > Large takes it over");
}

void Form1::List1_MouseDown() { popUp(popy); }

void Form1::List4_MouseDown() { popUp(pop); }

void Form1::List6_MouseDown() { popUp(pop); }

}  // namespace plimo
