// Lists for those who hear the window: each row is an element of its own, made when it is asked for.
#pragma once

namespace plimo {

// Makes assistive tools see lists row by row. Once, before the first list is shown.
void installListAccessible();

}  // namespace plimo
