#include "bench_shell.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "app/settings_file.h"
#include "base/notation.h"

namespace plimo::bench {

namespace {

std::string folderOrHere(const std::string& music) { return music.empty() ? "/srv" : music; }

}  // namespace

bool Answers::question(const std::string&) {
  if (questions.empty()) return false;
  const bool answer = questions.front();
  questions.erase(questions.begin());
  return answer;
}

void Answers::report(const RuntimeError& error) {
  std::fprintf(stderr, "%s\n", error.report().c_str());
  std::exit(1);
}

BenchMachine::BenchMachine(const std::string& music)
    : files(std::vector<DriveRoot>{{'M', DriveType::fixed, folderOrHere(music)}}) {}

void writeSettings(Start start) {
  std::string text;
  writeNumber(text, 0);
  writeBoolean(text, start == Start::readCatalogue);
  writeBoolean(text, start == Start::scan);
  writeText(text, "M:");
  writeNumber(text, 0);
  writeNumber(text, 0);
  for (int i = 0; i < 2; ++i) {
    writeNumber(text, 65535);
    writeNumber(text, 4194304);
  }
  writeNumber(text, 65535);
  writeText(text, "4194304");
  std::ofstream(std::string(settingsName), std::ios::binary) << text;
}

BenchProgram::BenchProgram(const std::string& music)
    : machine_(music), program_(std::make_unique<Program>(machine_.platform())) {
  program_->start();
  if (program_->running()) return;
  std::fputs("the program does not start\n", stderr);
  std::exit(1);
}

}  // namespace plimo::bench
