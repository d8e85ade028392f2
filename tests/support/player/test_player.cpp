#include "support/player/test_player.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/player/m3u_entries.h"

namespace plimo {

namespace {

using Clock = std::chrono::steady_clock;

// Long enough for a busy computer; a test that passes never waits this long.
constexpr std::chrono::seconds timeout{30};

}  // namespace

void TaskQueue::post(std::function<void()> action) {
  const std::lock_guard lock(mutex_);
  actions_.push_back(std::move(action));
  added_.notify_one();
}

void TaskQueue::runPending() {
  std::unique_lock lock(mutex_);
  added_.wait_for(lock, std::chrono::milliseconds(5), [this] { return !actions_.empty(); });
  std::deque<std::function<void()>> now;
  now.swap(actions_);
  lock.unlock();
  for (const auto& action : now) action();
}

TestPlayer::TestPlayer(StartEngine startEngine)
    : player({[this](std::function<void()> action) { tasks_.post(std::move(action)); }, std::move(startEngine),
              [](const std::function<void()>& work) { std::thread(work).join(); }, [this] { return listening; }}) {
  player.newStream = [this] {
    lengths.push_back(player.duration());
    played.push_back(state().song);
  };
  observation_ = player.observe({[this] {
                                   if (note().empty() || (!notes.empty() && notes.back() == note())) return;
                                   notes.push_back(note());
                                 },
                                 {}});
}

bool TestPlayer::until(const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + timeout;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    tasks_.runPending();
  }
  return true;
}

bool TestPlayer::untilEnd() {
  return until([this] { return !state().opened && !state().searching; });
}

bool TestPlayer::untilNewStreams(std::size_t count) {
  return until([this, count] { return lengths.size() >= count; });
}

void TestPlayer::settle() {
  for (const auto end = Clock::now() + std::chrono::milliseconds(150); Clock::now() < end;) tasks_.runPending();
}

// MPEG-1 Layer III, no checksum, 32 kbit/s, 44100 Hz, one channel. Side information of zeros means
// silence.
std::string silentSong(double seconds) {
  constexpr double frameSeconds = 1152.0 / 44100;
  std::string frame = "\xFF\xFB\x10\xC0";
  frame.resize(144 * 32000 / 44100, '\0');
  std::string song;
  const long frames = std::max(1L, std::lround(seconds / frameSeconds));
  for (long i = 0; i < frames; ++i) song += frame;
  return song;
}

std::string Songs::add(const std::string& name, double seconds) { return addFile(name, silentSong(seconds)); }

std::string Songs::addFile(const std::string& name, const std::string& content) {
  const std::filesystem::path path = toFilesystemPath(folder_ / name);
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return folder_ / name;
}

std::string Songs::list(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return addFile("list.m3u", text);
}

}  // namespace plimo
