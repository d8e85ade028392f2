// The main window: one handler for each thing that the user can do, and the procedures that they share.
//
// Each section names the file that defines it and holds the state that only this file uses. Handlers are wired to their
// events in window/form1_events.cpp. Unless a handler is said to ignore errors, the first RuntimeError ends it and is
// reported by the dispatcher.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "platform/platform.h"
#include "settings/colour_scheme.h"
#include "window/form1_controls.h"
#include "window/layout.h"

namespace plimo {

class SongDeletion;

class Form1 : public Form, public Form1Controls {
 public:
  // --- What the handlers share: window/form1.cpp ---
  Form1(Dispatcher& dispatcher, Platform platform);

  std::string ownFile(std::string_view name) const;  // the path of a file in the program's folder
  void deleteOwnFile(std::string_view name);         // if it exists, with force; failures are ignored

  Platform platform;
  std::string defdir;              // the program's folder
  bool here = false;               // start-up runs a second time
  bool frommenu = false;           // it does so from a menu: no compact start
  bool runpref = false;            // open the preferences at the end of start-up
  bool makethefile = false;        // Accept has to find Winamp and write path.kvx
  bool winamp1 = false;            // Winamp plays
  bool comp = false;               // the compact layout is active
  bool fromsettings = false;       // an Accept has written the settings; the lists show samples, ticks do nothing
  bool discard = false;            // Accept writes nothing
  bool onlysort = false;           // the last Accept chose not to scan
  bool settingscancelled = false;  // the preferences were cancelled
  int invalidpath = 0;             // -1: the last Accept did not find Winamp
  // The colours of the lists as read from the settings: text and background of List2, List1, List4.
  Colour fc1 = defaultTextColour, bc1 = defaultBackgroundColour;
  Colour fc2 = defaultTextColour, bc2 = defaultBackgroundColour;
  Colour fc3 = defaultTextColour, bc3 = defaultBackgroundColour;

 private:
  std::vector<std::string> driveLetters_;  // the drives to scan at start, as the settings name them

  // --- Design: window/form1_design.cpp ---
  void design();

  // --- Wiring: window/form1_events.cpp ---
 public:
  struct Wire {
    const char* event;    // "Command1.click"
    const char* handler;  // "Command1_Click"
  };
  // All events wired, in the order of the table.
  static std::vector<Wire> wires();

 private:
  void wire();

  // --- Views and layout: window/form1_views.cpp ---
 public:
  void arrayinitialize();
  void Form_Resize();
  void Compact_Click();
  void leaveCompactLayout();  // restores the whole window before a panel is opened
  void hidemainview();
  bool resizing = false;  // Form_Resize does nothing

 private:
  void restorePlayer();
  std::vector<Ratio> ratios_;  // one for each control
  // The player's geometry before the compact view.
  float playerLeft_ = 0, playerTop_ = 0, playerWidth_ = 0;
  std::int16_t playerHeight_ = 0;

  // --- Strips and hover: window/form1_strips.cpp ---
 public:
  void Picture1_Click();
  void Picture2_Click();
  void Picture3_Click();
  void Picture4_Click();
  void Picture5_Click();
  void Picture6_Click();
  void Command1_MouseMove();
  void Command2_MouseMove();
  void Command3_MouseMove();
  void Command4_MouseMove();
  void Command8_MouseMove();
  void Command9_MouseMove();
  void Command10_MouseMove();
  void Command11_MouseMove();
  void Command12_MouseMove();
  void Command13_MouseMove();
  void Command14_MouseMove();
  void Command15_MouseMove();
  void Form_MouseMove();
  void foldArtistStrip();    // shows Picture1; hides Picture4 and the strip's buttons
  void foldSongStrip();      // shows Picture2; hides Picture5 and the strip's buttons
  void foldPlaylistStrip();  // shows Picture3; hides Picture6 and the strip's buttons
  void foldAllStrips();
  void hidePictures();                // folds all strips and hides the handles and the play picture
  void showListFrames(bool visible);  // Shape1 to Shape3

 private:
  void moveFocusOff(std::span<CommandButton* const> buttons, ListBox& list);

  // --- Welcome and credits: window/form1_panels.cpp ---
 public:
  void plimo_Click();
  void Command00_Click();
  void Command19_Click();
  void credits_Click();
  void credit_Click();

  // --- Which of the two final lists is visible: window/form1_final_list.cpp ---
  // The final playlist: the visible one of List4 and List6, or the one that was visible last while a panel hides both.
  ListBox& finalList();
  void showFinalList(ListBox& list);  // in place of the other one; the keyboard focus moves along
  void showlist4();
  void returnToList4();  // shows List4; if List6 was the final playlist, its rows come along

 private:
  ListBox* finalList_ = &List4;

  // --- Drive and folder lists: window/form1_drives.cpp ---
 public:
  void fillDrives(ListBox& list);  // fixed, removable and CD-ROM drives in the machine's order
  void showDrive(const DriveList& drives, FolderList& folders);  // the root folder of the current drive

 private:
  void provideDrivesAndFolders();

  // --- Start-up and shutdown: app/form1_startup.cpp ---
 public:
  void Form_Load();
  void Form_Terminate();
  void Exit_Click();
  void large_Click();
  double orgleft = 0;  // the player's position as designed, in twips
  double orgtop = 0;

 private:
  void showFirstRun();  // the welcome and the settings panel, without lists and menus
  void closePanels();

  // --- The settings at start-up: app/form1_settings.cpp ---
  bool applySettings();  // of plimo.ini; true if that has displayed the artists

  // --- The catalogue and the artist list: catalogue/form1_catalogue.cpp ---
 public:
  void process();
  void display();
  void displayAgain();     // directly after a display: the same, without reading the catalogue again
  void deleteCatalogue();  // if it exists; failures are ignored

 private:
  enum class Artists { read, keep };
  void listArtists(Artists source);
  std::vector<std::string> artists_;  // the set of distinct artists that TreeView1 stands for

  // --- Scans: catalogue/form1_scan.cpp ---
 public:
  void scandrives();
  bool findsubfolder(std::string_view folder);  // false: the user has cancelled the scan
  void Scan_Click();
  void sodf_Click();
  void Command17_Click();
  void Command18_Click();
  void forgetOtherDrives() { otherDrives_ = false; }  // a command that set the flag has failed

 private:
  void clearForScan();
  bool skipFolder(const std::string& folder);  // asks the user about a folder that cannot be read
  bool otherDrives_ = false;                   // the next scan walks the drives selected in List7
  bool skipAllFolders_ = false;                // of the current scan
  std::size_t skippedFolders_ = 0;             // by the current scan

  // --- Artists and the scratch playlist: playlists/form1_artists.cpp ---
 public:
  void List2_ItemCheck(std::size_t Index);
  void tickArtists(std::span<const std::size_t> rows);
  void List2_MouseDown();
  void Command13_Click();
  void Command14_Click();
  void sel_Click();
  void des_Click();

 private:
  void addSongsOf(std::span<const std::string_view> artists);

  // --- Adding and removing: playlists/form1_editing.cpp ---
 public:
  void Command1_Click();
  void Command2_Click();
  void Command8_Click();
  void Command9_Click();
  void Command11_Click();
  void Command12_Click();
  void atp_Click();
  void ada_Click();
  void rfl_Click();
  void ra_Click();
  void dal_Click();
  void remove_Click();
  void ral_Click();

  // --- Keys and pop-up menus: playlists/form1_keys.cpp ---
  void List1_KeyPress(char KeyAscii);
  void List4_KeyPress(char KeyAscii);
  void List6_KeyPress(char KeyAscii);
  void List1_MouseDown();
  void List4_MouseDown();
  void List6_MouseDown();
  const std::string& pickedUp() const { return pickedUp_; }

 private:
  void addCurrentSong();                            // of the scratch playlist, to the final one
  void finalListKey(ListBox& list, char KeyAscii);  // every key but "w"
  void drop();                                      // the picked-up song, on List6's current row
  std::string pickedUp_;                            // the song picked up by "q"; empty: none

  // --- Playlist files: playlists/form1_files.cpp ---
 public:
  void Command3_Click();
  // What Command3_Click does after its dialog. Throws 53 and the other errors of reading.
  void openPlaylist(const std::string& name);
  void Command4_Click();
  void open_Click();
  void openyh_Click();
  void save_Click();
  void save2_Click();
  void untickArtists();

 private:
  void fillFromPlaylist(std::span<const std::string_view> paths);  // as the file has them
  std::vector<std::size_t> rowsOfArtists();

  // --- Shuffle and sort: playlists/form1_order.cpp ---
 public:
  void Shuffle_Click();
  void sort_Click();

  // --- Counts, information, help: playlists/form1_information.cpp ---
  void List1_Scroll();
  void List2_Scroll();
  void List4_Click();
  void List6_Click();
  void info_Click();
  void Hotkeys_Click();

  // --- Playing: playback/form1_playing.cpp ---
  void List1_DblClick();
  void List4_DblClick();
  void List6_DblClick();
  void playall_Click();
  void playcurrentlist();
  void startplaylist();
  void Picture7_Click();
  void list6play();
  void pal_Click();
  void playselectedalone();
  void play_Click();
  bool playOne(const std::string& name, bool byWinamp);  // false: the catalogue has no such song
  void playFile(const std::string& path);                // one song alone, in the window

 private:
  void openInPlayer(const std::string& path);
  void startWinampWithQueue();
  void startWinampWithSong(const std::string& song);
  void playQueue(const ListBox& names);
  void playFromCurrent(ListBox& list);
  bool playSelectedOne(const ListBox& list);

  // --- The compact start: playback/form1_compact_start.cpp ---
 public:
  void playdefaultlist();

 private:
  bool hasDefaultPlaylist(const std::string& playlist);

  // --- Progress in the caption: playback/form1_progress.cpp ---
 public:
  void MediaPlayer1_NewStream();
  void Timer1_Timer();

 private:
  std::string lengthText_;  // the current song's length, as the caption shows it

  // --- Deleting: fileops/form1_delete.cpp ---
 public:
  void Command10_Click();
  void Command15_Click();
  void ds_Click();
  void deleteselectedfiles();
  void deleteallfiles();

 private:
  bool sureToDelete(const char* question, const std::vector<std::string_view>& names);
  void deleteFilesOf(const ListBox& list, const char* failureMessage);
  void offerScan();
  // While the user is asked, and while it runs. Shared, because only its own folder knows the type.
  std::shared_ptr<SongDeletion> deletion_;

  // --- Renaming: fileops/form1_rename.cpp ---
 public:
  void rename_Click();

 private:
  std::string currentSong();
  bool moveSong(const std::string& from, const std::string& to);

  // --- Copying: fileops/form1_copy.cpp ---
 public:
  void cop_Click();
  void Drive2_Change();
  void Dir2_Change();
  void Command6_Click();
  void Command7_Click();

 private:
  void showCopyTarget();

 public:
  // --- Preferences: prefs/form1_preferences.cpp ---
  void Preferences_Click();
  void Check3_Click();
  void Drive1_Change();
  void List5_Click();
  void List5_DblClick();
  void List5_ItemCheck(std::size_t Index);
  void Option4_Click();
  void Command16_Click();

 private:
  void rememberPanel();  // for Cancel
  void offerAccept();    // the button can be used, with its own caption
  void showSettings();   // those of plimo.ini
  void showWinampChooser(bool visible);
  void showWinampFolder();  // the one in path.kvx
  void tickDrivesToScan();
  ListBox* finalListAtOpening_ = &List4;  // the final playlist when the preferences were opened
  // The panel's controls and flag as they were then, which Cancel restores.
  struct PanelState {
    bool noScan = false, scan = false, makethefile = false;
    int winamp = 0, splash = 0, compact = 0, colours = 0;
  };
  PanelState panelAtOpening_;

  // --- Accept: prefs/form1_accept.cpp ---
 public:
  void Command5_Click();

 private:
  void acceptSettings();
  void findWinamp();
  bool writeChosenSettings();  // false: there is nothing to list and nothing to scan, so nothing was written

  // --- The colour editor and the way back to the lists: prefs/form1_colours.cpp ---
 public:
  void Slider1_Change();
  void Slider1_Scroll();
  void Slider1_Click();
  void Slider1_KeyUp();
  void Slider2_Change();
  void Slider2_Scroll();
  void Slider2_Click();
  void Slider2_KeyUp();
  void Slider3_Change();
  void Slider3_Scroll();
  void Slider3_Click();
  void Slider3_KeyUp();
  void accept_Click();
  void cancel_Click();
  void leavesettings();
  void restoreOldColours();  // writes the scheme of the start, as Cancel does

 private:
  void openColourEditor();
  void showEditor(bool visible);
  void recolour();
  void storeColours(const ColourScheme& scheme);
  ColourScheme listColours() const;  // as they are now
  ListBox* sampledList_ = nullptr;   // the final list that holds the colour editor's sample lines

  // List6 takes List4's place and has its colours.
  struct ColourFollower : ControlObserver {
    ColourFollower(ListBox& leading, ListBox& following) : leader(leading), follower(following) {}
    void propertyChanged(Property property) override;
    ListBox& leader;
    ListBox& follower;
  };
  ColourFollower colourFollower_{List4, List6};
};

}  // namespace plimo
