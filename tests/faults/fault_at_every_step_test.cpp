// Lets the machine in memory fail at each step of each command that writes, with each error that the step can have, and
// starts the program again: every file is old or new, no song is lost, and the failure is reported.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "catalogue/catalogue_file.h"
#include "platform/memory/fake_file_system.h"
#include "settings/settings_file.h"
#include "support/writing_commands.h"

namespace plimo {
namespace {

using Step = FakeFileSystem::Step;

const SampleFolders folders{R"(C:\Plimo)", R"(M:\Music)", R"(C:\Out)", R"(C:\Winamp)"};

// The errors of a step, as platform/file_system_object.h has them.
std::vector<ErrorNumber> errorsOf(Step step) {
  using enum ErrorNumber;
  switch (step) {
    case Step::shortFilePath:
    case Step::size:
      return {fileNotFound};
    case Step::shortFolderPath:
      return {pathNotFound};
    case Step::list:
      return {diskNotReady, pathNotFound, permissionDenied};
    case Step::open:
      return {fileNotFound, pathNotFound, permissionDenied, pathFileAccess, diskNotReady};
    case Step::replace:
      return {pathNotFound, pathFileAccess, permissionDenied, diskFull, diskNotReady, badFileName};
    case Step::write:
    case Step::commit:
      return {diskFull, pathFileAccess};
    case Step::remove:
      return {fileNotFound, permissionDenied};
    case Step::copy:
    case Step::move:
      return {fileNotFound, fileExists, permissionDenied, pathNotFound, diskFull, badFileName};
  }
  return {};
}

FileContents contentsOf(FakeFileSystem& files) {
  FileContents contents;
  const auto any = [](std::string_view) { return true; };
  for (const char* root : {"C:\\", "M:\\"}) {
    files.walk(root, 10, any, [&](std::string_view path) {
      contents[std::string(path)] = files.fileContent(path).value();
      return true;
    });
  }
  return contents;
}

// The machine and the program just before the command.
class Prepared {
 public:
  explicit Prepared(const WritingCommand& command) : command_(command) {
    files.addDrive('M', DriveType::fixed);
    for (const auto& [path, content] : sampleFiles(files, folders, command, 1000)) files.addTextFile(path, content);
    files.setMovesFiles(!command.withoutMoves);
    session = std::make_unique<TestSession>(files);
    command.prepare(*session, folders);
  }

  // `atRest` is called after each action.
  void run(const std::function<void()>& atRest = {}) const {
    for (const auto action : command_.actions) {
      action(*session, folders);
      if (atRest) atRest();
    }
  }

  std::string shown() const { return shownBy(*session); }

  FakeFileSystem files;
  std::unique_ptr<TestSession> session;

 private:
  const WritingCommand& command_;
};

class FaultAtEveryStep : public testing::TestWithParam<WritingCommand> {
 protected:
  FaultAtEveryStep() {
    Prepared prepared(GetParam());
    firstStep_ = prepared.files.steps().size();
    firstCheck_ = prepared.files.existenceChecks();
    permitted_.before = contentsOf(prepared.files);
    permitted_.catalogueMayBeMissing = GetParam().scans;
    Prepared again(GetParam());
    again.run();
    steps_ = again.files.steps();
    checks_ = again.files.existenceChecks() - firstCheck_;
    shown_ = again.shown();
    prepared.run([&] { permitted_.moments.push_back(contentsOf(prepared.files)); });
  }

  std::size_t steps() const { return steps_.size() - firstStep_; }
  std::size_t checks() const { return checks_; }
  // The n-th step of the command, from 1.
  Step step(std::size_t n) const { return steps_[firstStep_ + n - 1]; }

  // Runs the command with a fault and judges the outcome; `mend` makes the machine whole again.
  void run(const std::function<void(FakeFileSystem& files)>& inject,
           const std::function<void(FakeFileSystem& files)>& mend = {}) {
    Prepared prepared(GetParam());
    inject(prepared.files);
    prepared.run();
    if (mend) mend(prepared.files);
    EXPECT_FALSE(prepared.files.failurePending());
    const FileContents now = contentsOf(prepared.files);
    const Damage damage = damageOf(now, permitted_);
    EXPECT_EQ(damage.torn, std::vector<std::string>());
    EXPECT_EQ(damage.lost, std::vector<std::string>());
    EXPECT_TRUE(essentialFiles(now) == essentialFiles(permitted_.moments.back()) || prepared.shown() != shown_)
        << "the failure is not reported";

    // As after a power cut.
    const std::string settingsFile = prepared.files.join(folders.home, settingsName);
    const auto settings = prepared.files.fileContent(settingsFile);
    const NextStart next = startAgain(prepared.files);
    EXPECT_TRUE(next == NextStart::running ||
                (next == NextStart::runningWithoutFile && settings && areEditorSettings(*settings)));
    // After the user has closed the window.
    if (next == NextStart::runningWithoutFile) prepared.files.addTextFile(settingsFile, *settings);
    if (prepared.session->program.running()) {
      prepared.session->form().userClose();
      EXPECT_EQ(startAgain(prepared.files), NextStart::running);
    }
    ++runs_;
  }

  void TearDown() override { RecordProperty("runs", runs_); }

 private:
  PermittedFiles permitted_;
  std::vector<Step> steps_;
  std::size_t firstStep_ = 0;
  std::size_t firstCheck_ = 0;
  std::size_t checks_ = 0;
  std::string shown_;
  int runs_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Of, FaultAtEveryStep, testing::ValuesIn(writingCommands().begin(), writingCommands().end()),
                         [](const auto& command) {
                           std::string name = command.param.name;
                           std::erase(name, '-');
                           return name;
                         });

TEST_P(FaultAtEveryStep, LeavesEveryFileOldOrNewAndTheProgramStarts) {
  ASSERT_GT(steps(), 0U);
  for (std::size_t n = 1; n <= steps(); ++n) {
    for (const ErrorNumber error : errorsOf(step(n))) {
      SCOPED_TRACE("step " + std::to_string(n) + ", error " + std::to_string(static_cast<int>(error)));
      run([&](FakeFileSystem& files) { files.failAt(n, error); });
    }
  }
}

TEST_P(FaultAtEveryStep, MayBeAFileWhoseExistenceCannotBeChecked) {
  for (std::size_t n = 1; n <= checks(); ++n) {
    SCOPED_TRACE("check " + std::to_string(n));
    run([&](FakeFileSystem& files) { files.failExistenceCheckAt(n); });
  }
}

TEST_P(FaultAtEveryStep, MayLastUntilTheCommandEnds) {
  struct Lasting {
    const char* name;
    void (*begin)(FakeFileSystem& files);
    void (*end)(FakeFileSystem& files);
  };
  const Lasting faults[] = {
      {"the program's disk is full", [](FakeFileSystem& files) { files.setDiskFull('C', true); },
       [](FakeFileSystem& files) { files.setDiskFull('C', false); }},
      {"the music's disk is full", [](FakeFileSystem& files) { files.setDiskFull('M', true); },
       [](FakeFileSystem& files) { files.setDiskFull('M', false); }},
      {"the program's disk is gone", [](FakeFileSystem& files) { files.setReady('C', false); },
       [](FakeFileSystem& files) { files.setReady('C', true); }},
      {"the music's disk is gone", [](FakeFileSystem& files) { files.setReady('M', false); },
       [](FakeFileSystem& files) { files.setReady('M', true); }},
      {"the program's folder is read-only",
       [](FakeFileSystem& files) {
         files.addFolder(folders.home, {false, true});
       },
       [](FakeFileSystem& files) { files.addFolder(folders.home); }},
      {"the songs' folder is read-only",
       [](FakeFileSystem& files) {
         files.addFolder(files.join(folders.music, "a"), {false, true});
       },
       [](FakeFileSystem& files) { files.addFolder(files.join(folders.music, "a")); }},
      {"the target folder is read-only",
       [](FakeFileSystem& files) {
         files.addFolder(folders.target, {false, true});
       },
       [](FakeFileSystem& files) { files.addFolder(folders.target); }},
  };
  for (std::size_t n = 1; n <= steps(); ++n) {
    for (const Lasting& fault : faults) {
      // A drive that is not ready is not scanned: that is a catalogue of its own.
      if (GetParam().scans && fault.name == std::string_view("the music's disk is gone")) continue;
      SCOPED_TRACE("from step " + std::to_string(n) + ": " + fault.name);
      run([&](FakeFileSystem& files) { files.changeAt(n, [&] { fault.begin(files); }); }, fault.end);
    }
  }
}

}  // namespace
}  // namespace plimo
