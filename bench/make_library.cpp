// plimo-bench-library: generates a library or a catalogue for the benchmarks.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "support/sample_library.h"
#include "system.h"

namespace {

constexpr const char* usage =
    "usage: plimo-bench-library tree ROOT SONGS FOLDERS [grouped|scattered]\n"
    "       plimo-bench-library catalogue FILE SONGS FOLDERS [grouped|scattered]\n"
    "\n"
    "tree creates empty MP3 files in folders; catalogue writes the catalogue of such a library. An artist has 20 "
    "songs,\n"
    "one has a tenth of all; an artist's songs are adjacent (grouped, the default) or as far apart as possible.\n";

void make(const std::vector<std::string>& words) {
  plimo::SampleLibrary library;
  library.songs = std::stoul(words[2]);
  library.folders = std::stoul(words[3]);
  if (words.size() > 4 && words[4] == "scattered") library.order = plimo::ArtistOrder::scattered;
  if (words[0] == "tree") {
    createTree(library, words[1]);
  } else {
    writeCatalogue(library, plimo::bench::catalogueRoot, words[1]);
  }
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  if (words.size() < 4 || (words[0] != "tree" && words[0] != "catalogue")) {
    std::fputs(usage, stderr);
    return 2;
  }
  try {
    make(words);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "plimo-bench-library: %s\n", error.what());
    return 1;
  }
}
