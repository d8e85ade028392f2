// A file that the user, or another program for them, wants opened.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace plimo {

struct OpenRequest {
  std::string file;        // an absolute path; empty: none
  std::size_t others = 0;  // files that were named too, and are not opened
  bool play = false;       // what has been opened is played from its start
};

// Of several files, the first playlist is opened, or the first file if none is a playlist.
OpenRequest requestToOpen(const std::vector<std::string>& files);

}  // namespace plimo
