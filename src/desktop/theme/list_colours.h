// The colours of a list and its rows: ticked, selected, current.
#pragma once

#include "desktop/theme/contrast.h"

namespace plimo {

// The colours of a list, derived from the two that the user chooses. Text and background are used as chosen, whatever
// their contrast; all others contrast with the background.
struct ListColours {
  Rgb text;
  Rgb background;
  Rgb quiet;  // outlines of boxes, and of the current row without the focus
  Rgb mark;   // ticks, and the outline of the current row with the focus
  Rgb selectedText;
  Rgb selectedBackground;
  Rgb currentBackground;  // of the current row if it is not selected
};

ListColours listColours(Colour text, Colour background);

}  // namespace plimo
