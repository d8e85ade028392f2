// The style sheet of what the toolkit's style paints: menus, dialogs, fields and scroll bars.
#pragma once

#include <QString>

namespace plimo {

// Scales the sizes in pixels of a style sheet to the window's present scale.
QString scaledStyleSheet(QString sheet);
// The application's style sheet, scaled to the screen.
QString screenStyleSheet();
// The same scaled to the window; empty if both scales are equal.
QString windowStyleSheet();

}  // namespace plimo
