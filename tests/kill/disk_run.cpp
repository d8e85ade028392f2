#include "kill/disk_run.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "kill/call_errors.h"
#include "platform/linux/unique_fd.h"
#include "support/temporary_folder.h"

namespace plimo {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestSong = 1100000;  // bytes; more than one piece of a copy
constexpr unsigned hangsAfter = 30;           // seconds
enum Mark : int { restMark, endMark };

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// The answer of a file system of this kind, if it is not the disk's own.
std::optional<Decision> answerOf(const DiskKind& kind, bool moves, const SystemCall& call) {
  const bool unnamed = call.number == SYS_openat && (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
  if (unnamed && !kind.unnamedFiles) return Decision::fail(EOPNOTSUPP);
  if (call.number == SYS_linkat && !kind.hardLinks) return Decision::fail(EPERM);
  if (call.number == SYS_rename && !moves) return Decision::fail(EXDEV);
  return std::nullopt;
}

}  // namespace

DiskSample::DiskSample(std::string root, const WritingCommand& command)
    : root_(std::move(root)), folders_{root_ + "/home", root_ + "/music", root_ + "/target", root_ + "/winamp"} {
  LinuxFiles files(drivesOf(*this));
  sample_ = sampleFiles(files, folders_, command, command.copies ? largestSong : 1000);
}

void DiskSample::restore() const {
  const FileContents now = contents();
  for (const auto& [path, content] : now) {
    if (!sample_.contains(path)) fs::remove(path);
  }
  for (const auto& [path, content] : sample_) {
    const auto file = now.find(path);
    if (file == now.end() || file->second != content) writeFile(path, content);
  }
}

FileContents DiskSample::contents() const {
  FileContents contents;
  for (const auto& entry : fs::recursive_directory_iterator(root_)) {
    if (entry.is_regular_file()) contents[entry.path()] = contentOf(entry.path());
  }
  return contents;
}

std::vector<DriveRoot> drivesOf(const DiskSample& sample) {
  return {{'C', DriveType::fixed, sample.root()}, {'M', DriveType::fixed, sample.folders().music}};
}

RunOutcome runCommand(const WritingCommand& command, const DiskSample& sample, const DiskKind& kind,
                      const std::function<Decision(const SystemCall& call)>& calling,
                      const std::function<void()>& resting) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return {};
  const UniqueFd reading(ends[0]);
  UniqueFd writing(ends[1]);

  const auto body = [&] {
    ::alarm(hangsAfter);
    fs::current_path(sample.folders().home);
    LinuxFiles files(drivesOf(sample));
    TestSession session(files);
    command.prepare(session, sample.folders());
    mark(restMark);
    for (const auto action : command.actions) {
      action(session, sample.folders());
      mark(restMark);
    }
    mark(endMark);
    const std::string text = shownBy(session);
    return ::write(writing.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0 : 1;
  };

  bool inCommand = false;
  Traced traced;
  traced.marked = [&](int number) {
    inCommand = number == restMark;
    if (inCommand && resting) resting();
  };
  traced.calling = [&](const SystemCall& call) {
    if (inCommand && calling && concernsFiles(call.number)) {
      const Decision decision = calling(call);
      if (decision.kind != Decision::Kind::proceed) return decision;
    }
    return answerOf(kind, !command.withoutMoves, call).value_or(Decision::proceed());
  };
  RunOutcome outcome;
  outcome.ended = trace(body, traced);
  writing = UniqueFd();
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = ::read(reading.get(), buffer.data(), buffer.size());
    if (count <= 0) break;
    outcome.shown.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return outcome;
}

std::optional<NextStart> startOnDisk(const DiskSample& sample, const DiskKind& kind) {
  const auto body = [&] {
    ::alarm(hangsAfter);
    fs::current_path(sample.folders().home);
    LinuxFiles files(drivesOf(sample));
    return static_cast<int>(startAgain(files));
  };
  Traced traced;
  traced.calling = [&](const SystemCall& call) { return answerOf(kind, true, call).value_or(Decision::proceed()); };
  const Ended ended = trace(body, traced);
  if (ended.signal != 0 || ended.status > static_cast<int>(NextStart::refused)) return std::nullopt;
  return static_cast<NextStart>(ended.status);
}

}  // namespace plimo
