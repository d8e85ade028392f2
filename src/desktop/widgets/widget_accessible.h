// Texts, check boxes and option buttons for assistive tools.
#pragma once

namespace plimo {

// To be called once, before the first window.
void installWidgetAccessible();

}  // namespace plimo
