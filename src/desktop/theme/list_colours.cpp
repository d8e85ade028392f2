#include "desktop/theme/list_colours.h"

namespace plimo {

namespace {

// Minimum contrast of text, and of shapes.
constexpr double textContrast = 4.5;
constexpr double shapeContrast = 3.0;

}  // namespace

ListColours listColours(Colour text, Colour background) {
  ListColours colours;
  colours.text = rgbOf(text);
  colours.background = rgbOf(background);
  colours.mark = readable(colours.text, colours.background, textContrast);
  colours.quiet = readable(mix(colours.background, colours.mark, 0.45), colours.background, shapeContrast);
  colours.selectedBackground = readable(mix(colours.background, colours.mark, 0.88), colours.background, shapeContrast);
  colours.selectedText = readable(colours.background, colours.selectedBackground, textContrast);
  colours.currentBackground = mix(colours.background, colours.mark, 0.14);
  return colours;
}

}  // namespace plimo
