// What users do with large lists, each as a preparation and the one action that is measured.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "bench_shell.h"

namespace plimo::bench {

// The program with a catalogue of so many songs, 20 to an artist.
struct Scene {
  BenchProgram& program;
  std::size_t songs;
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
// Null for no such command.
const Command* findCommand(const std::string& name);

}  // namespace plimo::bench
