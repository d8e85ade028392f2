#include "platform/directshow/playback_thread.h"

#include <chrono>
#include <deque>
#include <future>
#include <mutex>
#include <utility>

namespace plimo {

namespace {

constexpr UINT commandMessage = WM_APP;
constexpr UINT graphMessage = WM_APP + 1;
constexpr UINT_PTR timerId = 1;
constexpr UINT timerPeriod = 100;  // milliseconds
constexpr std::chrono::seconds patienceAtEnd{2};

// A window that is never shown. Its messages arrive in the message loop of the thread that has created it.
class MessageWindow {
 public:
  MessageWindow()
      : handle_(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ::GetModuleHandleW(nullptr),
                                  nullptr)) {}
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;
  ~MessageWindow() {
    if (handle_ != nullptr) ::DestroyWindow(handle_);
  }
  HWND handle() const { return handle_; }

 private:
  HWND handle_;
};

bool directShowExists() {
  ComPtr<IGraphBuilder> graph;
  return SUCCEEDED(
      ::CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(graph.GetAddressOf())));
}

}  // namespace

struct PlaybackThread::Shared {
  std::mutex mutex;
  HWND window = nullptr;
  std::function<void()> wake;  // null once nobody listens
  std::deque<std::function<void(Playback&)>> commands;
  std::deque<SongEngine::Event> events;
  std::promise<bool> started;
  std::promise<void> ended;

  void report(SongEngine::Event event) {
    const std::lock_guard lock(mutex);
    events.push_back(std::move(event));
    if (wake) wake();
  }

  std::function<void(Playback&)> nextCommand() {
    const std::lock_guard lock(mutex);
    if (commands.empty()) return nullptr;
    auto command = std::move(commands.front());
    commands.pop_front();
    return command;
  }

  void run();
  void messageLoop(Playback& playback);
};

void PlaybackThread::Shared::messageLoop(Playback& playback) {
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.hwnd != window) {
      ::DispatchMessageW(&message);
    } else if (message.message == commandMessage) {
      while (auto command = nextCommand()) command(playback);
    } else if (message.message == graphMessage) {
      playback.onGraphEvents(static_cast<std::uint64_t>(message.lParam));
    } else if (message.message == WM_TIMER) {
      playback.onTimer();
    } else {
      ::DispatchMessageW(&message);
    }
  }
}

void PlaybackThread::Shared::run() {
  // A drive without a disk is an error of the song, not a question to the user.
  ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
  const ComApartment apartment;
  const MessageWindow own;
  {
    const std::lock_guard lock(mutex);
    window = own.handle();
  }
  const bool usable = own.handle() != nullptr && directShowExists();
  started.set_value(usable);
  if (!usable) return;
  Playback playback(own.handle(), graphMessage, [this](SongEngine::Event event) { report(std::move(event)); });
  ::SetTimer(own.handle(), timerId, timerPeriod, nullptr);
  messageLoop(playback);
}

PlaybackThread::PlaybackThread(std::function<void()> wake) : shared_(std::make_shared<Shared>()) {
  shared_->wake = std::move(wake);
}

bool PlaybackThread::start() {
  thread_ = std::thread([shared = shared_] {
    shared->run();
    shared->ended.set_value();
  });
  return shared_->started.get_future().get();
}

PlaybackThread::~PlaybackThread() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->wake = nullptr;
    shared_->commands.clear();
  }
  post([](Playback&) { ::PostQuitMessage(0); });
  if (shared_->ended.get_future().wait_for(patienceAtEnd) == std::future_status::ready) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

void PlaybackThread::post(std::function<void(Playback&)> command) {
  const std::lock_guard lock(shared_->mutex);
  shared_->commands.push_back(std::move(command));
  ::PostMessageW(shared_->window, commandMessage, 0, 0);
}

bool PlaybackThread::takeEvent(SongEngine::Event& event) {
  const std::lock_guard lock(shared_->mutex);
  if (shared_->events.empty()) return false;
  event = std::move(shared_->events.front());
  shared_->events.pop_front();
  return true;
}

}  // namespace plimo
