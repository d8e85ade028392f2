// What the window, its texts, check boxes and option buttons tell assistive tools.
#pragma once

namespace plimo {

// To be called once, before the first window.
void installWidgetAccessible();

}  // namespace plimo
