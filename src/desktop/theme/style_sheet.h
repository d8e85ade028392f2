// The style sheet of menus, tooltips and dialogs, whose items the toolkit's style paints well but for their colours.
#pragma once

#include <QString>

namespace plimo {

// Scaled to the screen.
QString menuStyleSheet();

}  // namespace plimo
