// Runs unit tests and scenarios, with one mutant active at a time or with none.
//   plimo-mutation-tests --record NUMBERS OUTPUT SCENARIO...
//     runs all tests without a mutant, and writes for each of them: name, milliseconds of the processor, the mutants
//     that it reached
//   plimo-mutation-tests --run
//     reads lines of a mutant's number and the tests to run, each test with its limit in seconds of the processor;
//     answers each line with the number, "survived" or "killed" or "hung", and the test that ended it
// Values of a line are separated by tabs. A scenario's name is its path, which ends in .txt.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "mutation/mutant.h"
#include "scenario/runner.h"

namespace {

using plimo::mutation::reached;

// An endless loop that allocates must not take the memory of the machine.
constexpr rlim_t memoryLimit = rlim_t{2} << 30;

// A mutant may wait without using the processor; other processes may keep it from the processor, too.
constexpr int waitingFactor = 10;

bool runScenario(const std::string& file) {
  std::ostringstream ignored;
  return plimo::scenario::runScenarios(std::vector{file}, ignored, ignored) == 0;
}

bool runTest(const std::string& name) {
  if (name.ends_with(".txt")) return runScenario(name);
  GTEST_FLAG_SET(filter, name);
  return RUN_ALL_TESTS() == 0;
}

class Recording : public testing::EmptyTestEventListener {
 public:
  explicit Recording(const char* output) : output_(output) {}

  void begin() {
    std::fill(reached.begin(), reached.end(), static_cast<unsigned char>(0));
    started_ = std::clock();
  }
  void end(const std::string& name, bool passed) {
    output_ << name << '\t' << 1000.0 * static_cast<double>(std::clock() - started_) / CLOCKS_PER_SEC;
    for (std::size_t number = 0; number < reached.size(); ++number) {
      if (reached[number] != 0) output_ << '\t' << number;
    }
    output_ << '\n';
    if (passed) return;
    std::cerr << name << " fails without a mutant\n";
    failed_ = true;
  }
  void OnTestStart(const testing::TestInfo&) override { begin(); }
  void OnTestEnd(const testing::TestInfo& test) override {
    if (test.result()->Skipped()) return;
    end(std::string(test.test_suite_name()) + "." + test.name(), test.result()->Passed());
  }
  bool failed() const { return failed_; }

 private:
  std::ofstream output_;
  std::clock_t started_ = 0;
  bool failed_ = false;
};

int record(std::size_t numbers, const char* output, const std::vector<std::string>& scenarios) {
  reached.resize(numbers);
  auto* const recording = new Recording(output);  // owned by the listeners
  testing::UnitTest::GetInstance()->listeners().Append(recording);
  static_cast<void>(RUN_ALL_TESTS());
  for (const std::string& scenario : scenarios) {
    recording->begin();
    const bool passed = runScenario(scenario);
    recording->end(scenario, passed);
  }
  return recording->failed() ? 1 : 0;
}

struct LimitedTest {
  std::string name;
  double seconds = 0;
};

void limitTime(int timer, double seconds) {
  const auto whole = static_cast<time_t>(seconds);
  const auto rest = static_cast<suseconds_t>((seconds - static_cast<double>(whole)) * 1e6);
  const itimerval value{{0, 0}, {whole, rest}};
  setitimer(static_cast<__itimer_which_t>(timer), &value, nullptr);
}

// Does not return. The signals of both timers end the process.
[[noreturn]] void runInChild(int mutant, const std::vector<LimitedTest>& tests, volatile std::size_t& current) {
  setpgid(0, 0);
  const rlimit memory{memoryLimit, memoryLimit};
  setrlimit(RLIMIT_AS, &memory);
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  setenv("PLIMO_MUTANT", std::to_string(mutant).c_str(), 1);
  plimo::mutation::active = mutant;
  for (std::size_t i = 0; i < tests.size(); ++i) {
    current = i;
    limitTime(ITIMER_PROF, tests[i].seconds);
    limitTime(ITIMER_REAL, tests[i].seconds * waitingFactor);
    if (!runTest(tests[i].name)) _exit(1);
  }
  _exit(0);
}

std::string verdict(int status) {
  if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGPROF || WTERMSIG(status) == SIGALRM)) return "hung";
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? "survived" : "killed";
}

int runMutants() {
  // What the tests print is not of interest.
  std::ofstream answers("/dev/fd/" + std::to_string(dup(STDOUT_FILENO)));
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  void* const shared = mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) return 1;
  auto& current = *static_cast<volatile std::size_t*>(shared);

  std::string line;
  while (std::getline(std::cin, line)) {
    std::istringstream values(line);
    int mutant = 0;
    values >> mutant;
    std::vector<LimitedTest> tests;
    for (LimitedTest test; values >> test.name >> test.seconds;) tests.push_back(test);
    const pid_t child = fork();
    if (child < 0) return 1;
    if (child == 0) runInChild(mutant, tests, current);
    int status = 0;
    waitpid(child, &status, 0);
    kill(-child, SIGKILL);  // programs that the tests have started
    answers << mutant << '\t' << verdict(status) << '\t' << (tests.empty() ? "" : tests[current].name) << std::endl;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.size() >= 3 && arguments[0] == "--record") {
    return record(std::stoul(arguments[1]), arguments[2].c_str(), {arguments.begin() + 3, arguments.end()});
  }
  if (arguments == std::vector<std::string>{"--run"}) return runMutants();
  std::cerr << "usage: plimo-mutation-tests --record NUMBERS OUTPUT SCENARIO... | --run\n";
  return 2;
}
