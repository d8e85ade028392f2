// The controls of the main window, each by its fixed name and with what it is to the user. Their geometry, captions,
// tooltips and colours are set in form1_design.cpp.
#pragma once

#include "controls/drive_list.h"
#include "controls/folder_list.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"

namespace plimo {

struct Form1Controls {
  explicit Form1Controls(Form& form) : window(form) {}

 private:
  Form& window;

 public:
  // --- The lists ---
  ListBox List2{window, "List2", ListBox::Style::checkBoxes, ListBox::Order::sorted};  // the artists
  ListBox List1{window, "List1", ListBox::Style::multiSelection};                      // the scratch playlist
  ListBox List4{window, "List4", ListBox::Style::multiSelection};  // the final playlist in the large view
  ListBox List6{window, "List6", ListBox::Style::multiSelection};  // the final playlist in the compact view
  ListBox List3{window, "List3", ListBox::Style::multiSelection};  // never visible: songs found, names to play
  ListBox List8{window, "List8", ListBox::Style::multiSelection, ListBox::Order::sorted};  // never visible: sorts
  Shape Shape1{window, "Shape1"};                                 // the frame around the artists
  Shape Shape2{window, "Shape2"};                                 // the frame around the scratch playlist
  Shape Shape3{window, "Shape3"};                                 // the frame around the final playlist
  Control TreeView1{window, ControlKind::treeView, "TreeView1"};  // never visible: the set of distinct artists

  // --- The strips: handles and buttons ---
  Picture Picture1{window, "Picture1"};          // opens the artist strip
  Picture Picture4{window, "Picture4"};          // closes it
  CommandButton Command13{window, "Command13"};  // tick every artist
  CommandButton Command14{window, "Command14"};  // untick every artist
  Picture Picture2{window, "Picture2"};          // opens the strip of song commands
  Picture Picture5{window, "Picture5"};          // closes it
  CommandButton Command1{window, "Command1"};    // add the selected songs to the final playlist
  CommandButton Command2{window, "Command2"};    // remove the selected songs from the scratch playlist
  CommandButton Command8{window, "Command8"};    // add all songs to the final playlist
  CommandButton Command9{window, "Command9"};    // empty the scratch playlist
  CommandButton Command10{window, "Command10"};  // delete the selected songs' files
  CommandButton Command15{window, "Command15"};  // delete the files of all songs listed
  Picture Picture3{window, "Picture3"};          // opens the strip of playlist commands
  Picture Picture6{window, "Picture6"};          // closes it
  CommandButton Command11{window, "Command11"};  // empty the final playlist
  CommandButton Command12{window, "Command12"};  // remove the selected songs from the final playlist
  CommandButton Command3{window, "Command3"};    // open a playlist
  CommandButton Command4{window, "Command4"};    // save the final playlist
  Picture Picture7{window, "Picture7"};          // play the whole final playlist

  // --- The player ---
  MediaPlayerControl MediaPlayer1{window, "MediaPlayer1"};  // plays, and shows what it plays
  Timer Timer1{window, "Timer1"};                           // moves the elapsed time in the caption on

  // --- The settings panel ---
  Frame Frame1{window, "Frame1"};
  OptionButton Option4{window, "Option4", &Frame1};  // start without a scan
  OptionButton Option5{window, "Option5", &Frame1};  // scan the ticked drives at start
  ListBox List5{window, "List5", ListBox::Style::checkBoxes, ListBox::Order::asAdded, &Frame1};  // drives to scan
  CheckBox Check3{window, "Check3", &Frame1};                                                    // Winamp plays
  Label Label1{window, "Label1", &Frame1};                                                       // asks where Winamp is
  DriveList Drive1{window, "Drive1", &Frame1};                                                   // Winamp's drive
  FolderList Dir1{window, "Dir1", &Frame1};                                                      // Winamp's folder
  CheckBox Check4{window, "Check4", &Frame1};             // show the splash at start
  CheckBox Check5{window, "Check5", &Frame1};             // start compact, playing the default playlist
  CheckBox Check6{window, "Check6", &Frame1};             // go on to the colours
  CommandButton Command5{window, "Command5", &Frame1};    // accept the settings
  CommandButton Command16{window, "Command16", &Frame1};  // leave them as they were

  // --- The colour editor ---
  OptionButton Option1{window, "Option1"};  // colour the artists
  OptionButton Option2{window, "Option2"};  // colour the scratch playlist
  OptionButton Option3{window, "Option3"};  // colour the final playlist
  CheckBox Check1{window, "Check1"};        // the sliders set the text
  CheckBox Check2{window, "Check2"};        // the sliders set the background
  Slider Slider1{window, "Slider1"};        // red
  Slider Slider2{window, "Slider2"};        // green
  Slider Slider3{window, "Slider3"};        // blue
  CommandButton accept{window, "accept"};   // keep the new colours
  CommandButton cancel{window, "cancel"};   // go back to the old ones

  // --- The welcome ---
  Frame Frame2{window, "Frame2"};
  Label Label2{window, "Label2", &Frame2};                // what the program does
  Label Label4{window, "Label4", &Frame2};                // the player and the three lists
  Label Label3{window, "Label3", &Frame2};                // why drives need not be scanned each time
  Label Label5{window, "Label5", &Frame2};                // who made it
  CommandButton Command00{window, "Command00", &Frame2};  // closes the welcome of the first start
  CommandButton Command19{window, "Command19", &Frame2};  // closes the welcome opened from the menu

  // --- The credits ---
  Frame Frame3{window, "Frame3"};
  Label Label6{window, "Label6", &Frame3};          // thanks
  CommandButton credit{window, "credit", &Frame3};  // closes them

  // --- The copy panel ---
  Frame Frame4{window, "Frame4"};
  DriveList Drive2{window, "Drive2", &Frame4};          // where to copy to: the drive
  Label CopyTarget{window, "CopyTarget", &Frame4};      // names the folder that the copies go to
  FolderList Dir2{window, "Dir2", &Frame4};             // and the folder
  CommandButton Command6{window, "Command6", &Frame4};  // copies
  CommandButton Command7{window, "Command7", &Frame4};  // closes the panel

  // --- The drive selection ---
  Frame Frame5{window, "Frame5"};
  ListBox List7{window, "List7", ListBox::Style::multiSelection, ListBox::Order::asAdded, &Frame5};  // drives to scan
  CommandButton Command17{window, "Command17", &Frame5};                                             // scans them
  CommandButton Command18{window, "Command18", &Frame5};                                             // does not

  // --- The menu bar ---
  Menu Function{window, "Function", Menu::Role::bar};
  Menu open{window, "open", Menu::Role::item, &Function};        // open a playlist
  Menu save{window, "save", Menu::Role::item, &Function};        // save the final playlist
  Menu Scan{window, "Scan", Menu::Role::item, &Function};        // scan the preferred drives
  Menu sodf{window, "sodf", Menu::Role::item, &Function};        // scan other drives
  Menu Hotkeys{window, "Hotkeys", Menu::Role::item, &Function};  // the keys explained
  Menu Exit{window, "Exit", Menu::Role::item, &Function};        // end the program
  Menu View{window, "View", Menu::Role::bar};
  Menu large{window, "large", Menu::Role::item, &View};      // the whole window
  Menu Compact{window, "Compact", Menu::Role::item, &View};  // only the player
  Menu Settings{window, "Settings", Menu::Role::bar};
  Menu Preferences{window, "Preferences", Menu::Role::item, &Settings};
  Menu help{window, "help", Menu::Role::bar};
  Menu plimo{window, "plimo", Menu::Role::item, &help};      // show the welcome again
  Menu credits{window, "credits", Menu::Role::item, &help};  // who made it

  // --- The pop-up menu of the final playlist ---
  Menu pop{window, "pop", Menu::Role::popUp};
  Menu playall{window, "playall", Menu::Role::item, &pop};  // play from the current song onwards
  Menu pal{window, "pal", Menu::Role::item, &pop};          // play the current song alone
  Menu openyh{window, "openyh", Menu::Role::item, &pop};    // open a playlist
  Menu save2{window, "save2", Menu::Role::item, &pop};      // save the final playlist
  Menu Shuffle{window, "Shuffle", Menu::Role::item, &pop};
  Menu sort{window, "sort", Menu::Role::item, &pop};
  Menu remove{window, "remove", Menu::Role::item, &pop};  // remove the selected songs
  Menu ral{window, "ral", Menu::Role::item, &pop};        // empty it

  // --- The pop-up menu of the scratch playlist ---
  Menu popy{window, "popy", Menu::Role::popUp};
  Menu play{window, "play", Menu::Role::item, &popy};      // play the current song alone
  Menu atp{window, "atp", Menu::Role::item, &popy};        // add the selected songs to the final playlist
  Menu ada{window, "ada", Menu::Role::item, &popy};        // add all of them
  Menu rfl{window, "rfl", Menu::Role::item, &popy};        // remove the selected songs
  Menu ra{window, "ra", Menu::Role::item, &popy};          // empty it
  Menu dal{window, "dal", Menu::Role::item, &popy};        // select nothing
  Menu info{window, "info", Menu::Role::item, &popy};      // a song's path and size, and the counts
  Menu cop{window, "cop", Menu::Role::item, &popy};        // copy the selected songs' files
  Menu rename{window, "rename", Menu::Role::item, &popy};  // rename the current song's file
  Menu ds{window, "ds", Menu::Role::item, &popy};          // delete the selected songs' files

  // --- The pop-up menu of the artists ---
  Menu pop3{window, "pop3", Menu::Role::popUp};
  Menu sel{window, "sel", Menu::Role::item, &pop3};  // tick all
  Menu des{window, "des", Menu::Role::item, &pop3};  // untick all
};

}  // namespace plimo
