// The main window as designed: geometry, texts, colours and visibility, for an inner size of 15360 x 11520 twips
// (1024 x 768 pixels); the window rescales the geometry in proportion.
#include <string_view>

#include "window/caption.h"
#include "window/form1.h"

namespace plimo {

namespace {

constexpr double pixel = 15;  // twips
constexpr double designWidth = 1024 * pixel;
constexpr double designHeight = 768 * pixel;

constexpr Colour green = 32768;
constexpr Colour brown = 16512;
constexpr Colour grey = 8421504;
// Of the sliders: light enough to be seen on a dark window.
constexpr Colour pureRed = 0x3030FF;
constexpr Colour pureGreen = 0x40C020;
constexpr Colour pureBlue = 0xFF6040;

// In pixels, relative to the container.
void put(Control& control, double left, double top, double width, double height) {
  control.setGeometry({left * pixel, top * pixel, width * pixel, height * pixel});
}

void setTexts(Control& control, std::string_view caption, std::string_view tooltip = {}) {
  control.setCaption(caption);
  control.setTooltip(tooltip);
}

template <class... Controls>
void hide(Controls&... controls) {
  (controls.setVisible(false), ...);
}

// The three columns: artists, scratch playlist, final playlist.
constexpr double listTop = 128;
constexpr double listHeight = 524;
constexpr double artistsLeft = 16;
constexpr double artistsWidth = 300;
constexpr double scratchLeft = 332;
constexpr double finalLeft = 678;
constexpr double songsWidth = 330;
constexpr double handleTop = 12;
constexpr double handleWidth = 96;
constexpr double handleHeight = 32;
constexpr double stripTop = 52;
constexpr double rowHeight = 32;
constexpr double rowStep = 36;

void designLists(Form1Controls& form) {
  put(form.List2, artistsLeft, listTop, artistsWidth, listHeight);
  put(form.List1, scratchLeft, listTop, songsWidth, listHeight);
  put(form.List4, finalLeft, listTop, songsWidth, listHeight);
  put(form.List6, finalLeft, listTop, songsWidth, listHeight);
  for (ListBox* list : {&form.List2, &form.List1, &form.List4, &form.List6}) {
    list->setForeColour(defaultTextColour);
    list->setBackColour(defaultBackgroundColour);
  }
  form.List1.setTooltip("Selecting and right Clicking a File plays it!");
  put(form.MediaPlayer1, scratchLeft, 664, finalLeft + songsWidth - scratchLeft, 88);
  hide(form.List6, form.List3, form.List8, form.TreeView1);
}

void designStrip(Control& closed, Control& open, double left) {
  put(closed, left, handleTop, handleWidth, handleHeight);
  put(open, left, handleTop, handleWidth, handleHeight);
  hide(open);
}

void designStrips(Form1Controls& form) {
  designStrip(form.Picture1, form.Picture4, artistsLeft);
  designStrip(form.Picture2, form.Picture5, scratchLeft);
  designStrip(form.Picture3, form.Picture6, finalLeft);
  form.Picture1.setPicture("handle-artists");
  form.Picture4.setPicture("handle-artists-open");
  form.Picture2.setPicture("handle-songs");
  form.Picture5.setPicture("handle-songs-open");
  form.Picture3.setPicture("handle-playlist");
  form.Picture6.setPicture("handle-playlist-open");
  setTexts(form.Picture1, "", "Show the artist commands");
  setTexts(form.Picture4, "", "Hide the artist commands");
  setTexts(form.Picture2, "", "Show the song commands");
  setTexts(form.Picture5, "", "Hide the song commands");
  setTexts(form.Picture3, "", "Show the playlist commands");
  setTexts(form.Picture6, "", "Hide the playlist commands");
  put(form.Picture7, finalLeft + songsWidth - 40, 8, 40, 40);
  form.Picture7.setPicture("play");
  form.Picture7.setTooltip("Play all songs on the final playlist");

  put(form.Command13, artistsLeft, stripTop, 146, rowHeight);
  put(form.Command14, artistsLeft + 154, stripTop, 146, rowHeight);
  setTexts(form.Command13, "Select all", "Selects all the Available Artists");
  setTexts(form.Command14, "Deselect All", "Deselects all the Artists");

  constexpr double third = 106;
  constexpr double thirdStep = 112;
  put(form.Command1, scratchLeft, stripTop, third, rowHeight);
  put(form.Command2, scratchLeft + thirdStep, stripTop, third, rowHeight);
  put(form.Command10, scratchLeft + 2 * thirdStep, stripTop, third, rowHeight);
  put(form.Command8, scratchLeft, stripTop + rowStep, third, rowHeight);
  put(form.Command9, scratchLeft + thirdStep, stripTop + rowStep, third, rowHeight);
  put(form.Command15, scratchLeft + 2 * thirdStep, stripTop + rowStep, third, rowHeight);
  setTexts(form.Command1, "Add to playlist", "Adds Selected files to the final Playlist");
  setTexts(form.Command8, "Add All", "Add all Files to the final Playlist");
  setTexts(form.Command2, "Remove from List", "Removes Selected files from the playlist");
  setTexts(form.Command9, "Remove All", "Removes all files from playlist");
  setTexts(form.Command10, "Delete Selected", "Deletes the selected files from the disk");
  setTexts(form.Command15, "Delete All", "Deletes all files in this list from the disk");

  constexpr double half = 161;
  constexpr double halfStep = 169;
  put(form.Command12, finalLeft, stripTop, half, rowHeight);
  put(form.Command3, finalLeft + halfStep, stripTop, half, rowHeight);
  put(form.Command11, finalLeft, stripTop + rowStep, half, rowHeight);
  put(form.Command4, finalLeft + halfStep, stripTop + rowStep, half, rowHeight);
  setTexts(form.Command11, "Remove all", "Remove all Files From the list");
  setTexts(form.Command12, "Remove", "Remove selected files from the list");
  setTexts(form.Command3, "Open", "Open a Saved playlist");
  setTexts(form.Command4, "Save", "Save the Current Playlist");

  const auto rest = [](Colour back, auto&... buttons) {
    (buttons.setBackColour(back), ...);
    hide(buttons...);
  };
  rest(grey, form.Command13, form.Command14);
  rest(green, form.Command1, form.Command2, form.Command8, form.Command9, form.Command10, form.Command15);
  rest(brown, form.Command11, form.Command12, form.Command3, form.Command4);
  hide(form.Picture7);
}

void designSettings(Form1Controls& form) {
  constexpr double left = 24;
  constexpr double inset = 44;
  constexpr double wide = 452;
  put(form.Frame1, 508, listTop, 500, 624);
  form.Frame1.setCaption("Settings");
  put(form.Option4, left, 44, wide, 26);
  setTexts(form.Option4, "Do not scan for Mp3s during startup",
           "After initially scanning once, a backup file is used thereafter and scanning is avoided");
  put(form.Option5, left, 74, wide, 26);
  form.Option5.setCaption("Scan the Following drives during Startup");
  put(form.List5, inset, 106, wide - 20, 112);
  form.List5.setBackColour(whiteColour);
  put(form.Check3, left, 330, wide, 26);
  form.Check3.setCaption("Use Winamp to play");
  put(form.Label1, left, 360, wide, 24);
  form.Label1.setCaption("    Tell me where Winamp's located");
  put(form.Drive1, inset, 388, wide - 20, 30);
  put(form.Dir1, inset, 424, wide - 20, 136);
  put(form.Check4, left, 230, wide, 26);
  form.Check4.setCaption("Show Login Screen during Startup");
  put(form.Check5, left, 260, wide, 26);
  form.Check5.setCaption("Start on the Compact mode loading the default play list");
  put(form.Check6, left, 290, wide, 26);
  form.Check6.setCaption("Show the Color Settings");
  put(form.Command5, 252, 572, 108, 36);
  setTexts(form.Command5, "Accept", "The playlists will get cleared");
  put(form.Command16, 368, 572, 108, 36);
  form.Command16.setCaption("Cancel");
  hide(form.Frame1, form.Label1, form.Drive1, form.Dir1);
}

void designColours(Form1Controls& form) {
  constexpr double top = 8;
  constexpr double step = 38;
  put(form.Option1, 16, top, 110, 30);
  put(form.Option2, 16, top + step, 110, 30);
  put(form.Option3, 16, top + 2 * step, 110, 30);
  form.Option1.setCaption("Artists");
  form.Option2.setCaption("Scratch");
  form.Option3.setCaption("Final list");
  put(form.Check1, 142, top, 130, 30);
  put(form.Check2, 142, top + step, 130, 30);
  form.Check1.setCaption("Foreground");
  form.Check2.setCaption("Background");
  put(form.Slider1, 332, top, 330, 30);
  put(form.Slider2, 332, top + step, 330, 30);
  put(form.Slider3, 332, top + 2 * step, 330, 30);
  form.Slider1.setForeColour(pureRed);
  form.Slider2.setForeColour(pureGreen);
  form.Slider3.setForeColour(pureBlue);
  form.Slider1.setTooltip("Adds red ");
  form.Slider2.setTooltip("Adds Green");
  form.Slider3.setTooltip("Adds Blue");
  put(form.accept, 798, top, 210, 36);
  put(form.cancel, 798, top + step + 8, 210, 36);
  form.accept.setCaption("Accept All Changes");
  form.cancel.setCaption("Restore Old Colour scheme");
  hide(form.Option1, form.Option2, form.Option3, form.Check1, form.Check2, form.Slider1, form.Slider2, form.Slider3,
       form.accept, form.cancel);
}

void designPanels(Form1Controls& form) {
  put(form.Frame2, 16, listTop, 476, 624);
  form.Frame2.setCaption("A Warm Welcome to Plimo!");
  put(form.Label2, 24, 50, 428, 112);
  form.Label2.setCaption(
      "Plimo! is an Mp3 File Manager. It automatically searches the selected drives for Mp3s and lists them in a "
      "user-friendly format. Plimo requires that there should NOT be more than two hyphens in the Mp3 filename.");
  put(form.Label4, 24, 164, 428, 194);
  form.Label4.setCaption(
      "Plimo! can either use Winamp or Windows Media Player (Default)  to play Mp3s. You will find three List boxes "
      "once you run Plimo! The First one lists all the available artists and the second one may be used as a scratch "
      "playlist. The third list is the final playlist. Right clicking a song on the second playlist plays the selected "
      "file or clicking the play button plays the songs on the final playlist using the selected player.");
  put(form.Label3, 24, 360, 428, 112);
  form.Label3.setCaption(
      "The Drives need not be scanned everytime you run Plimo!. This is because Plimo! maintains it's own list of all "
      "the songs on your computer after the first time you scan for Mp3 Files. You can always re-scan later to "
      "incorporate changes, if any.");
  put(form.Label5, 24, 474, 428, 86);
  form.Label5.setCaption(
      "Plimo! is made by the Plimo! team. Suggestions and criticism are welcome: write to us, we read every mail.");
  put(form.Command00, 316, 572, 136, 36);
  form.Command00.setCaption("Yeah, Yeah.....");
  put(form.Command19, 316, 572, 136, 36);
  form.Command19.setCaption("Ok!");

  put(form.Frame3, 262, 200, 500, 316);
  form.Frame3.setCaption("Credits!");
  put(form.Label6, 24, 52, 452, 196);
  form.Label6.setCaption(
      "Plimo! was programmed by the Plimo! team.\r\n\r\nThanks to all who tried it with their own music and told us "
      "what got in their way, to the people who make the toolkit, the codecs and the player that it stands on, and to "
      "you, for keeping your songs in files that are yours.");
  put(form.credit, 368, 262, 108, 36);
  form.credit.setCaption("Ok!");

  put(form.Frame4, 262, listTop, 500, 520);
  form.Frame4.setCaption("Copy Files to ..");
  put(form.Drive2, 24, 44, 452, 30);
  put(form.Dir2, 24, 84, 452, 332);
  put(form.CopyTarget, 24, 424, 452, 30);
  put(form.Command6, 220, 468, 140, 36);
  form.Command6.setCaption("Start Copying");
  put(form.Command7, 368, 468, 108, 36);
  form.Command7.setCaption("Cancel");

  put(form.Frame5, 262, listTop, 500, 400);
  form.Frame5.setCaption("Drive Selection");
  put(form.List7, 24, 44, 452, 284);
  form.List7.setBackColour(whiteColour);
  put(form.Command17, 252, 348, 108, 36);
  form.Command17.setCaption("Okay");
  put(form.Command18, 368, 348, 108, 36);
  form.Command18.setCaption("Cancel");
  hide(form.Frame2, form.Frame3, form.Frame4, form.Frame5, form.Command19);

  for (CommandButton* button :
       {&form.Command16, &form.Command00, &form.Command19, &form.credit, &form.Command7, &form.Command18}) {
    button->setCancels();
  }
}

void designMenus(Form1Controls& form) {
  form.Function.setCaption("&Function");
  form.open.setCaption("&Open");
  form.save.setCaption("S&ave");
  form.Scan.setCaption("&Scan preferred drives for Mp3s");
  form.sodf.setCaption("S&can other drives for Mp3s");
  form.Hotkeys.setCaption("&Hotkeys");
  form.Exit.setCaption("E&xit");
  form.View.setCaption("&View");
  form.large.setCaption("&Large");
  form.Compact.setCaption("&Compact");
  form.Settings.setCaption("&Settings");
  form.Preferences.setCaption("Preferences");
  form.help.setCaption("&Help");
  form.plimo.setCaption("What's &Plimo! all about");
  form.credits.setCaption("C&redits");
  form.openyh.setCaption("&Open");
  form.pal.setCaption("&Play this song alone");
  form.playall.setCaption("P&lay the selected song onwards");
  form.save2.setCaption("&Save");
  form.Shuffle.setCaption("S&huffle");
  form.sort.setCaption("S&ort");
  form.remove.setCaption("&Remove selected");
  form.ral.setCaption("R&emove All");
  form.play.setCaption("&Play");
  form.atp.setCaption("&Add to Playlist");
  form.ada.setCaption("A&dd all");
  form.rfl.setCaption("R&emove from List");
  form.ra.setCaption("&Remove all");
  form.dal.setCaption("De&select all");
  form.cop.setCaption("&Copy Selected files to ..");
  form.ds.setCaption("&Delete Selected");
  form.info.setCaption("&Information");
  form.rename.setCaption("Re&name");
  form.sel.setCaption("&Select all");
  form.des.setCaption("&Deselect All");
}

void nameForAssistiveTools(Form1Controls& form) {
  form.List2.setAccessibleName("Artists");
  form.List1.setAccessibleName("Scratch playlist");
  form.List4.setAccessibleName("Final playlist");
  form.List6.setAccessibleName("Final playlist");
  form.List5.setAccessibleName("Drives to scan during startup");
  form.List7.setAccessibleName("Drives to scan");
  form.Picture1.setAccessibleName("Show the artist commands");
  form.Picture4.setAccessibleName("Fold the artist commands");
  form.Picture2.setAccessibleName("Show the song commands");
  form.Picture5.setAccessibleName("Fold the song commands");
  form.Picture3.setAccessibleName("Show the playlist commands");
  form.Picture6.setAccessibleName("Fold the playlist commands");
  form.Picture7.setAccessibleName("Play all songs on the final playlist");
  form.MediaPlayer1.setAccessibleName("Player");
  form.Slider1.setAccessibleName("Red");
  form.Slider2.setAccessibleName("Green");
  form.Slider3.setAccessibleName("Blue");
  form.Drive1.setAccessibleName("Winamp's drive");
  form.Dir1.setAccessibleName("Winamp's folder");
  form.Drive2.setAccessibleName("Drive to copy to");
  form.Dir2.setAccessibleName("Folder to copy to");
  form.pop.setAccessibleName("Final playlist commands");
  form.popy.setAccessibleName("Scratch playlist commands");
  form.pop3.setAccessibleName("Artist commands");
}

}  // namespace

void Form1::ColourFollower::propertyChanged(Property property) {
  if (property != Property::colours) return;
  follower.setForeColour(leader.foreColour());
  follower.setBackColour(leader.backColour());
}

void Form1::design() {
  designSize(designWidth, designHeight);
  setWindowState(WindowState::maximised);
  setCaption(plainCaption);
  designLists(*this);
  designStrips(*this);
  designSettings(*this);
  designColours(*this);
  designPanels(*this);
  designMenus(*this);
  nameForAssistiveTools(*this);
  List4.addObserver(colourFollower_);
}

}  // namespace plimo
