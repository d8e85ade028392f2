// Both readers of playlists: the one of the lists, and the one of the player. The input is the playlist.
#include "fuzz/exact_files.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/naive_reader.h"
#include "playlists/m3u.h"

using namespace plimo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input(data, size);
  const fuzz::ExactView view(input.rest());
  StringArena unescaped;
  const auto entries = readPlaylist(view.bytes(), "list.m3u", unescaped);
  const auto values = fuzz::naiveValues(view.bytes());
  fuzz::expect(std::equal(entries.begin(), entries.end(), values.begin(), values.end()), "the values of the playlist");
  return 0;
}
