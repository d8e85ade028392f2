// The short (8.3) names that a Windows-like disk gives beside the long ones.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace plimo {

// True for a name that is its own short name: one to eight characters, and optionally a dot and one to three more.
// Blanks, further dots and the characters + , ; = [ ] are not among them; a letter outside ASCII counts as one.
bool fitsShortName(std::string_view name);

// Names a folder's entries.
class ShortNames {
 public:
  // The short name of a new entry. One that does not fit gets its first six characters that a short name may hold,
  // upper-cased (a to z only), "~1" and the extension's first three; `taken` tells which names the folder already uses,
  // and the number counts up past those. A number of more digits takes its room from the six.
  std::string nameFor(std::string_view name, const std::function<bool(std::string_view)>& taken);
  // An entry with this short name has gone.
  void freed(std::string_view shortName);

 private:
  // By the six characters and the extension, the first number that may be free: thousands of songs may begin alike.
  std::map<std::string, unsigned long> firstFree_;
};

}  // namespace plimo
