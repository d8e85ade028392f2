#include "bench_shell.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "settings/settings_file.h"
#include "base/quoted_format.h"

namespace plimo::bench {

namespace {

std::string folderOrHere(const std::string& music) { return music.empty() ? "/srv" : music; }

class ToldReplacement : public FileReplacement {
 public:
  ToldReplacement(std::unique_ptr<FileReplacement> file, const std::function<void()>& written)
      : file_(std::move(file)), written_(written) {}

  void write(std::string_view bytes) override { file_->write(bytes); }
  void commit() override {
    file_->commit();
    written_();
  }

 private:
  std::unique_ptr<FileReplacement> file_;
  const std::function<void()>& written_;
};

}  // namespace

std::unique_ptr<FileReplacement> BenchFiles::replaceFile(std::string_view path, Force force) {
  auto file = LinuxFiles::replaceFile(path, force);
  if (!catalogueWritten || fileName(path) != catalogueName) return file;
  return std::make_unique<ToldReplacement>(std::move(file), catalogueWritten);
}

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

BenchProgram::BenchProgram(const std::string& music, std::function<void()> catalogueWritten)
    : machine_(music), program_(std::make_unique<Program>(machine_.platform())) {
  machine_.files.catalogueWritten = std::move(catalogueWritten);
  program_->start();
  if (program_->running()) return;
  std::fputs("the program does not start\n", stderr);
  std::exit(1);
}

}  // namespace plimo::bench
