// Row counts as tooltips, the information box, the hotkeys help.
#include "base/text.h"
#include "catalogue/song_lookup.h"
#include "window/form1.h"

namespace plimo {

namespace {

constexpr const char* blankLine = "\r\n\r\n";

std::string songCount(const ListBox& list) { return "Total Number of songs : " + std::to_string(list.count()); }

}  // namespace

void Form1::List1_Scroll() { List1.setTooltip(songCount(List1)); }

void Form1::List2_Scroll() { List2.setTooltip("Total Number of artists : " + std::to_string(List2.count())); }

void Form1::List4_Click() { List4.setTooltip(songCount(List4)); }

void Form1::List6_Click() { List6.setTooltip(songCount(List6)); }

void Form1::info_Click() {
  std::string path;
  const std::string catalogue = ownFile(catalogueName);
  const std::optional<std::size_t> row = List1.firstSelected();
  if (row && platform.files.fileExists(catalogue)) {
    path = firstPath(platform.files, catalogue, List1.text(*row)).value_or(std::string());
  }
  const std::uint64_t size = !path.empty() && platform.files.fileExists(path) ? platform.files.fileSize(path) : 0;
  platform.dialogs.message("The Selected file is " + elideMiddle(path, longestShownText) + blankLine +           //
                           "The Size of the file is " + std::to_string(size) + " bytes" + blankLine +            //
                           "Total Number of artists = " + std::to_string(List2.count()) + blankLine +            //
                           "Total Number of songs in the Scratch playlist = " + std::to_string(List1.count()) +  //
                           blankLine +                                                                           //
                           "Total Number of Songs in the final playlist = " + std::to_string(List4.count()));
}

void Form1::Hotkeys_Click() {
  static constexpr const char* paragraphs[] = {
      "The following are the Hotkeys that can be used in this program",
      "These keys will work in the scatch and the final playlists",
      "1) 'z' for Selecting a song",
      "2) 'x' for removing a song from the playlist",
      "3) 'c' or 'esc' for de-selecting all songs in the playlist",
      "4) 'v' for bringing up the popup menu",
      "5) 'spc' for adding the selected song to the final playlist",
      "6) 'enter' for playing the selected song",
      "7) 'tab' for switching between playlists",
      "8)  Plimo! also allows drag and drop on the final playlist. To drag a file press 'q' and navigate through the "
      "list using the arrow keys. To drop the file below the selected one, press 'w'. This should arrange the list in "
      "the intended order.",
      "Incase you have problems with Plimo, you may want to delete the file called 'plimo.ini' which is located in the "
      "directory where Plimo is installed. This should make Plimo work normally.",
  };
  std::string text;
  for (const char* paragraph : paragraphs) text += std::string(paragraph) + blankLine;
  platform.dialogs.message(text);
}

}  // namespace plimo
