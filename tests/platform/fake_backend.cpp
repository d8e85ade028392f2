#include "platform/fake_backend.h"

namespace plimo {

FakeBackend::FakeBackend() {
  files_.remove("C:\\Plimo");
  files_.addDrive('D', DriveType::cdrom, false);
}

void FakeBackend::setFlags(const std::string& path, FileFlags flags) {
  files_.addTextFile(path, files_.fileContent(path).value(), flags);
}

void FakeBackend::makeReadOnly(const std::string& path) { setFlags(path, {true, false, false}); }

void FakeBackend::makeUnreadable(const std::string& path) { setFlags(path, {false, false, true}); }

bool FakeBackend::onFullDisk(const FullDiskCheck& check, std::string& failure) {
  files_.addTextFile("C:\\full\\old", "old");
  files_.setDiskFull('C', true);
  failure = check(files_, "C:\\full");
  return true;
}

}  // namespace plimo
