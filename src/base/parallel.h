// Runs two functions in parallel.
#pragma once

#include <future>
#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>

namespace plimo {

// Runs both functions, the second on a new thread, and returns when both have finished. If the system cannot start a
// thread, they run one after the other. Exceptions are rethrown, the first function's in preference to the second's.
template <class First, class Second>
void parallelInvoke(First first, Second second) {
  std::future<void> secondDone;
  try {
    secondDone = std::async(std::launch::async, [&second] { second(); });
  } catch (const std::system_error&) {
    first();
    second();
    return;
  }
  first();  // if it throws, the future's destructor waits for the second function
  secondDone.get();
}

// Runs both functions in parallel and returns their results. Each function builds its result in its own stack frame,
// which avoids false sharing between the two threads.
template <class First, class Second>
auto parallelResults(First first, Second second) {
  std::optional<std::invoke_result_t<First>> firstResult;
  std::optional<std::invoke_result_t<Second>> secondResult;
  parallelInvoke([&] { firstResult = first(); }, [&] { secondResult = second(); });
  return std::pair(std::move(*firstResult), std::move(*secondResult));
}

}  // namespace plimo
