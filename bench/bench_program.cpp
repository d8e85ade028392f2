#include "bench_program.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "settings/settings_file.h"
#include "support/sample_settings.h"

namespace plimo::bench {

namespace {

class ObservedReplacement : public FileReplacement {
 public:
  ObservedReplacement(std::unique_ptr<FileReplacement> file, const std::function<void()>& written)
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

void BenchDialogs::report(const RuntimeError& error) {
  std::fprintf(stderr, "%s\n", error.report().c_str());
  std::exit(1);
}

std::unique_ptr<FileReplacement> BenchFiles::replaceFile(std::string_view path, Force force) {
  auto file = SystemFiles::replaceFile(path, force);
  if (!catalogueWritten || fileName(path) != catalogueName) return file;
  return std::make_unique<ObservedReplacement>(std::move(file), catalogueWritten);
}

void writeSettings(bool scanAtStart) {
  std::ofstream(std::string(settingsName), std::ios::binary) << settingsText({false, scanAtStart, "M:"});
}

BenchProgram::BenchProgram(const std::string& music, std::function<void()> catalogueWritten)
    : files_(std::vector<DriveRoot>{{'M', DriveType::fixed, music}}) {
  progress_.recording = false;
  files_.catalogueWritten = std::move(catalogueWritten);
  program_.start();
  if (program_.running()) return;
  std::fputs("the program does not start\n", stderr);
  std::exit(1);
}

}  // namespace plimo::bench
