// The main window: one handler for each thing that the user can do, and the procedures that they share.
//
// Each section names the file that defines it. Handlers are wired to their events in app/form1_events.cpp. A handler
// that is not said to ignore errors ends with the first RuntimeError, which the dispatcher reports.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/form1_controls.h"
#include "app/layout.h"
#include "controls/form.h"
#include "platform/platform.h"

namespace plimo {

class Form1 : public Form, public Form1Controls {
 public:
  Form1(Dispatcher& dispatcher, Platform platform);

  // --- Wiring: app/form1_events.cpp; design: app/form1_design.cpp ---
  struct Wire {
    const char* event;    // "Command1.click"
    const char* handler;  // "Command1_Click"
  };
  // All events wired, in the order of the table.
  static std::vector<Wire> wires();

  // --- Start-up and shutdown: app/form1_startup.cpp ---
  void Form_Load();
  void showFirstRun();  // the welcome and the settings panel, without lists and menus
  void Form_Terminate();
  void Exit_Click();

  // --- The settings at start-up: app/form1_settings.cpp ---
  bool applySettings();            // of plimo.ini; true where that has displayed the artists
  void fillDrives(ListBox& list);  // "C: Hard Drive", ...: fixed, removable and CD-ROM drives in the machine's order

  // --- Views and layout: app/form1_views.cpp ---
  void arrayinitialize();
  void Form_Resize();
  void Compact_Click();
  void large_Click();
  void leaveCompactLayout();  // a panel is opened: the window is whole again
  void hidemainview();

  // --- The catalogue and the artist list: catalogue/form1_catalogue.cpp ---
  void process();
  void display();
  void displayAgain();     // right behind a display: the same, without reading the catalogue once more
  void deleteCatalogue();  // where it exists; failures are ignored

  // --- Scans: catalogue/form1_scan.cpp ---
  void scandrives();
  bool findsubfolder(std::string_view folder);  // false: the user has ended the scan
  void Scan_Click();
  void sodf_Click();
  void Command17_Click();
  void Command18_Click();

  // --- Artists and the scratch playlist: playlists/form1_artists.cpp ---
  void List2_ItemCheck(std::size_t Index);
  void tickArtists(std::span<const std::size_t> rows);
  void List2_MouseDown();
  void Command13_Click();
  void Command14_Click();
  void sel_Click();
  void des_Click();

  // --- Adding and removing: playlists/form1_editing.cpp ---
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
  void addCurrentSong();                            // of the scratch playlist, to the final one
  void finalListKey(ListBox& list, char KeyAscii);  // every key but "w"
  void drop();                                      // the picked-up song, on List6's current row
  void List1_MouseDown();
  void List4_MouseDown();
  void List6_MouseDown();

  // --- Playlist files: playlists/form1_files.cpp ---
  void Command3_Click();
  void Command4_Click();
  void open_Click();
  void openyh_Click();
  void save_Click();
  void save2_Click();
  void untickArtists();
  void fillFromPlaylist(std::span<const std::string_view> paths);  // as they stand in the file
  std::vector<std::size_t> rowsOfArtists();

  // --- Shuffle and sort, and which final list shows: playlists/form1_order.cpp ---
  void Shuffle_Click();
  void sort_Click();
  void showlist4();
  ListBox& finalList();                                  // the final playlist: List4 when it is visible, else List6
  void swapFinalLists(ListBox& shown, ListBox& hidden);  // the keyboard focus goes along

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
  void playSongAlone(const std::string& name, bool byPlayer);  // byPlayer: by the player control whatever is chosen

  // --- The compact start: playback/form1_compact_start.cpp ---
  void playdefaultlist();

  // --- Progress in the caption: playback/form1_progress.cpp ---
  void MediaPlayer1_NewStream();
  void Timer1_Timer();

  // --- Deleting: fileops/form1_delete.cpp ---
  void Command10_Click();
  void Command15_Click();
  void ds_Click();
  void deleteselectedfiles();
  void deleteallfiles();

  // --- Renaming: fileops/form1_rename.cpp ---
  void rename_Click();

  // --- Copying: fileops/form1_copy.cpp ---
  void cop_Click();
  void Drive2_Change();
  void Dir2_Change();
  void Command6_Click();
  void Command7_Click();

  // --- Preferences: prefs/form1_preferences.cpp, prefs/form1_accept.cpp ---
  void Preferences_Click();
  void Check3_Click();
  void Drive1_Change();
  void List5_Click();
  void List5_DblClick();
  void List5_ItemCheck(std::size_t Index);
  void Option4_Click();
  void Command5_Click();
  void Command16_Click();

  // --- The colour editor and the way back to the lists: prefs/form1_colours.cpp ---
  void openColourEditor();
  void recolour();
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

  // --- Strips and hover: prefs/form1_strips.cpp ---
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
  void foldArtistStrip();    // Picture1 shown; Picture4 and the strip's buttons hidden
  void foldSongStrip();      // Picture2 shown; Picture5 and the strip's buttons hidden
  void foldPlaylistStrip();  // Picture3 shown; Picture6 and the strip's buttons hidden
  void foldAllStrips();
  void hidePictures();              // all strips folded, and the handles and the play picture hidden
  void showListFrames(bool shown);  // Shape1 to Shape3

  // --- Welcome and credits: prefs/form1_panels.cpp ---
  void plimo_Click();
  void Command00_Click();
  void Command19_Click();
  void credits_Click();
  void credit_Click();

  // --- What the handlers share ---
  std::string ownFile(std::string_view name) const;  // a file of the program's folder, by its name
  void deleteOwnFile(std::string_view name);         // where it exists, with force; failures are ignored

  Platform platform;
  std::string defdir;  // the program's folder
  double orgleft = 0;  // the player's place as designed
  double orgtop = 0;
  bool here = false;               // start-up runs a second time
  bool frommenu = false;           // it does so from a menu: no compact start
  bool runpref = false;            // open the preferences at the end of start-up
  bool makethefile = false;        // Accept has to find Winamp and write path.kvx
  bool winamp1 = false;            // Winamp plays
  bool comp = false;               // the compact view's layout is on
  bool fromsettings = false;       // an Accept has written the settings; the lists show samples, ticks do nothing
  bool discard = false;            // Accept writes nothing
  bool onlysort = false;           // the last Accept chose not to scan
  bool settingscancelled = false;  // the preferences were cancelled
  bool otherdrives = false;        // the next scan walks the drives selected in List7
  bool resizing = false;           // Form_Resize does nothing
  int invalidpath = 0;             // -1: the last Accept did not find Winamp
  // The lists' colours as read from the settings: text and background of List2, List1, List4.
  Colour fc1 = 65535, bc1 = 4194304, fc2 = 65535, bc2 = 4194304, fc3 = 65535, bc3 = 4194304;
  // The same as designed.
  Colour dfc1 = 0, dbc1 = 0, dfc2 = 0, dbc2 = 0, dfc3 = 0, dbc3 = 0;
  std::vector<std::string> driveletters;  // the drives to scan at start, as the settings tell them
  std::vector<std::string> artists;       // the set of distinct artists that TreeView1 holds
  std::string pickedup;                   // the song picked up by "q"; empty: none
  std::string lengthtext;                 // the current song's length, as the caption shows it

  std::vector<Ratio> ratios;  // one for each control
  // The player's place before the compact view.
  float playerleft = 0, playertop = 0, playerwidth = 0;
  std::int16_t playerheight = 0;

 private:
  void design();
  void wire();

  enum class Reading { anew, known };
  void listArtists(Reading reading);

  // The pieces of Preferences_Click, Command5_Click and the colour editor, in the files of those.
  void showSettings();  // as plimo.ini tells them
  void showWinampChooser(bool shown);
  void showWinampFolder();  // as path.kvx tells it
  void tickDrivesToScan();
  void findWinamp();
  bool writeSettings();  // false: there is nothing to list and nothing to scan, so nothing was written
  void storeColours(const std::array<Colour, 6>& scheme);
  ListBox* finalListAtOpening_ = &List4;  // the one that showed when the preferences were opened
  ListBox* sampledList_ = nullptr;        // the one that holds the colour editor's sample lines

  // List6 stands in List4's place and wears its colours.
  struct ColourFollower : ControlObserver {
    ColourFollower(ListBox& leading, ListBox& following) : leader(leading), follower(following) {}
    void propertyChanged(Property property) override;
    ListBox& leader;
    ListBox& follower;
  };
  ColourFollower colourFollower{List4, List6};
};

inline constexpr std::string_view catalogueName = "plimo.kvx";
// A kind of drive as the drive lists name it: "Hard Drive", "CDROM", "REMOVABLE", ...
std::string kindName(DriveType type);

inline constexpr std::string_view captionAfterScan = "Plimo! by the Plimo! team.";

// The window that comes first: app/frm_splash.cpp.
class FrmSplash : public Form {
 public:
  // `next` loads the main window.
  FrmSplash(Dispatcher& dispatcher, Platform platform, std::function<void()> next);

  Picture Image1{*this, "Image1"};
  Timer Timer1{*this, "Timer1"};

  void Form_Load();
  void Timer1_Timer();

 private:
  Platform platform_;
  std::function<void()> next_;
};

}  // namespace plimo
