// Lists for assistive tools: each row is an element of its own, made on demand.
#pragma once

namespace plimo {

// To be called once, before the first list is shown.
void installListAccessible();

}  // namespace plimo
