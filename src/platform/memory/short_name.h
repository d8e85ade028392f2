// Short (8.3) names, as a Windows-like disk assigns them in addition to long names.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace plimo {

// True for a name that is its own short name: one to eight characters, optionally followed by a dot and one to three
// more, without spaces, further dots and + , ; = [ ]. A non-ASCII character counts as one.
bool fitsShortName(std::string_view name);

// Assigns the short names in one folder.
class ShortNames {
 public:
  // The short name of a new entry: the name itself if it fits, else its first six allowed characters in upper case (a
  // to z only), "~1" and the first three of the extension. The number is the first whose name is not `taken` in the
  // folder; if it has more digits, fewer than six characters precede it.
  std::string nameFor(std::string_view name, const std::function<bool(std::string_view)>& taken);
  // Makes the name of a removed entry available again.
  void release(std::string_view shortName);

 private:
  // For six characters and an extension, the first number that may be free: thousands of songs may share a prefix, and
  // counting from 1 for each would be quadratic.
  std::map<std::string, unsigned long> nextNumber_;
};

}  // namespace plimo
