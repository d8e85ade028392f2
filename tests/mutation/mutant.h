// Included by each file that contains its mutants: which of them is active.
#pragma once

#include <cstdlib>
#include <type_traits>
#include <vector>

namespace plimo::mutation {

// The number of the active mutant; 0 if there is none. The programs that the tests start inherit it.
inline int active = std::getenv("PLIMO_MUTANT") ? std::atoi(std::getenv("PLIMO_MUTANT")) : 0;

// Not empty while the reached mutants are recorded: an element for each mutant, 1 if it was reached. Several threads
// may set the same element.
inline std::vector<unsigned char> reached;

}  // namespace plimo::mutation

// True if this mutant is the active one. Not constexpr: a mutant in a constant expression is a compile error, after
// which it is left out.
inline bool plimoMutant(int number) {
  if (!plimo::mutation::reached.empty()) plimo::mutation::reached[static_cast<std::size_t>(number)] = 1;
  return plimo::mutation::active == number;
}

// The same for the body of a constexpr function, which is mutated only where it runs.
constexpr bool plimoConstexprMutant(int number) { return !std::is_constant_evaluated() && plimoMutant(number); }
