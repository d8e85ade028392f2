// Two things done at the same time.
#pragma once

#include <future>
#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>

namespace plimo {

// Does both, the second on a thread of its own, and comes back when both are done; where the system has no thread to
// spare, one after the other. What they throw is thrown on, the first one's before the second's.
template <class First, class Second>
void parallelInvoke(First first, Second second) {
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

// What both make. Each makes its own where the other one does not write: two things that stand close together in the
// memory would be torn back and forth between two processors.
template <class First, class Second>
auto parallelResults(First first, Second second) {
  std::optional<std::invoke_result_t<First>> one;
  std::optional<std::invoke_result_t<Second>> other;
  parallelInvoke([&] { one = first(); }, [&] { other = second(); });
  return std::pair(std::move(*one), std::move(*other));
}

}  // namespace plimo
