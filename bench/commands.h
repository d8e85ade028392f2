// What users do with large lists, each as a preparation and one measured action.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "bench_program.h"
#include "support/sample_library.h"

namespace plimo::bench {

// The program with a catalogue of `songs` songs in its folder.
struct Fixture {
  BenchProgram& program;
  std::size_t songs;
  SampleLibrary songLibrary() const { return {songs, songs / songsPerArtist, ArtistOrder::grouped}; }
  // The length of a playlist that is opened, saved or played: a tenth of the songs, from all over the catalogue.
  std::size_t playlistRows() const { return songs / 10; }
};

struct Command {
  const char* name;
  void (*prepare)(Fixture& fixture);
  void (*act)(Fixture& fixture);
};

// The commands and their baselines.
std::span<const Command> commands();
// Null if there is no such command.
const Command* findCommand(const std::string& name);
// The result of the last baseline: an observable result, so that the compiler cannot remove its loop.
std::size_t lastBaselineResult();

}  // namespace plimo::bench
