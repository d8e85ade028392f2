// Two things done at the same time.
#pragma once

#include <future>
#include <system_error>

namespace plimo {

// Does both, the second on a thread of its own, and comes back when both are done; where the system has no thread to
// spare, one after the other. What they throw is thrown on, the first one's before the second's.
template <class First, class Second>
void atOnce(First first, Second second) {
  std::future<void> other;
  try {
    other = std::async(std::launch::async, [&second] { second(); });
  } catch (const std::system_error&) {
    first();
    second();
    return;
  }
  first();  // should it throw, the other one is waited for
  other.get();
}

}  // namespace plimo
