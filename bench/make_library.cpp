// plimo-bench-library: makes a library or a catalogue to measure with.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "library.h"

namespace {

constexpr const char* usage =
    "usage: plimo-bench-library tree ROOT SONGS FOLDERS [grouped|scattered]\n"
    "       plimo-bench-library catalogue FILE SONGS FOLDERS [grouped|scattered]\n"
    "\n"
    "tree makes empty MP3 files in folders; catalogue writes the catalogue of such a library. An artist has 20 songs,\n"
    "and one a tenth of all; they stand together (grouped, the default) or as far apart as they can.\n";

int make(const std::vector<std::string>& words) {
  using plimo::bench::Library;
  using plimo::bench::Order;
  Library library;
  library.songs = std::stoul(words[2]);
  library.folders = std::stoul(words[3]);
  library.order = words.size() > 4 && words[4] == "scattered" ? Order::scattered : Order::grouped;
  if (words[0] == "tree") {
    makeTree(library, words[1]);
  } else {
    makeCatalogue(library, "/srv/music", words[1]);
  }
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  if (words.size() < 4 || (words[0] != "tree" && words[0] != "catalogue")) {
    std::fputs(usage, stderr);
    return 2;
  }
  try {
    return make(words);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "plimo-bench-library: %s\n", error.what());
    return 1;
  }
}
