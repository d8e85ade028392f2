// What users do with large lists, each as a preparation and the one action that is measured.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "bench_shell.h"
#include "library.h"

namespace plimo::bench {

// The program with a catalogue of so many songs, in its folder.
struct Scene {
  BenchProgram& program;
  std::size_t songs;
  Library songLibrary() const { return {songs, songs / songsOfArtist, Order::grouped}; }
  // The rows of a playlist that is opened, saved or played: a tenth of the songs, drawn from all over the catalogue.
  std::size_t playlistRows() const { return songs / 10; }
};

struct Command {
  const char* name;
  const char* what;  // for the reader of the table
  void (*prepare)(Scene& scene);
  void (*act)(Scene& scene);
};

std::span<const Command> commands();
// What the last floor has come to: asking for it keeps the compiler from leaving its loop out.
std::size_t lastTold();
// Null for no such command.
const Command* findCommand(const std::string& name);

}  // namespace plimo::bench
