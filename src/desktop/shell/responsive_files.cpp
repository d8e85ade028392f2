#include "desktop/shell/responsive_files.h"

#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace plimo {

namespace {

constexpr std::chrono::milliseconds waitingInterval(40);

struct GivenUp {};

}  // namespace

// A thread that runs one action after the other. It owns a share of itself, so nothing has to wait for it.
class HelperThread : public std::enable_shared_from_this<HelperThread> {
 public:
  // Throws std::system_error if the system refuses a thread.
  void start() {
    std::thread([self = shared_from_this()] { self->work(); }).detach();
  }
  void run(std::function<void()> action) {
    const std::lock_guard lock(mutex_);
    action_ = std::move(action);
    changed_.notify_one();
  }
  // The thread ends when its action has.
  void stop() {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    changed_.notify_one();
  }

 private:
  void work() {
    std::unique_lock lock(mutex_);
    for (;;) {
      changed_.wait(lock, [this] { return stopping_ || action_; });
      if (!action_) return;
      const std::function<void()> action = std::exchange(action_, nullptr);
      lock.unlock();
      action();
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::function<void()> action_;
  bool stopping_ = false;
};

ResponsiveFiles::ResponsiveFiles(std::shared_ptr<FileSystemObject> files) : files_(std::move(files)) {}

ResponsiveFiles::~ResponsiveFiles() {
  if (helper_) helper_->stop();
}

template <class Action>
auto ResponsiveFiles::run(Action action, const std::function<bool()>& meanwhile) {
  using Result = std::invoke_result_t<Action&, FileSystemObject&>;
  // Each is shared with the thread, which may outlive this call.
  const auto task = std::make_shared<std::packaged_task<Result()>>(
      [files = files_, action = std::move(action)]() mutable { return action(*files); });
  std::future<Result> result = task->get_future();
  // Taken while the action runs: a call from `waiting` gets a thread of its own.
  std::shared_ptr<HelperThread> helper = std::exchange(helper_, nullptr);
  try {
    if (!helper) {
      auto started = std::make_shared<HelperThread>();
      started->start();
      helper = std::move(started);
    }
  } catch (const std::system_error&) {
    (*task)();
    return result.get();
  }
  helper->run([task] { (*task)(); });

  struct Wait {
    ResponsiveFiles& files;
    HelperThread& helper;
    bool called = false;
    bool finished = false;
    ~Wait() {
      if (called && files.waited) files.waited();
      if (!finished) helper.stop();
    }
  } wait{*this, *helper};
  const auto begin = std::chrono::steady_clock::now();
  while (result.wait_for(waitingInterval) != std::future_status::ready) {
    const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
    wait.called = true;
    if (meanwhile && !meanwhile()) throw GivenUp();
    if (waiting && !waiting(since)) throw GivenUp();
  }
  wait.finished = true;
  if (helper_) {
    helper->stop();
  } else {
    helper_ = helper;
  }
  return result.get();
}

template <class Action>
auto ResponsiveFiles::runOrThrow(std::string_view path, Action action) {
  try {
    return run(std::move(action));
  } catch (const GivenUp&) {
    throw RuntimeError(ErrorNumber::diskNotReady, std::string(path));
  }
}

std::vector<Drive> ResponsiveFiles::drives() {
  return runOrThrow({}, [](FileSystemObject& files) { return files.drives(); });
}

bool ResponsiveFiles::sameFile(std::string_view left, std::string_view right) {
  return runOrThrow(left, [left = std::string(left), right = std::string(right)](FileSystemObject& files) {
    return files.sameFile(left, right);
  });
}

bool ResponsiveFiles::isRootFolder(std::string_view folder) {
  return runOrThrow(folder,
                    [folder = std::string(folder)](FileSystemObject& files) { return files.isRootFolder(folder); });
}

std::string ResponsiveFiles::shortFilePath(std::string_view file) {
  return runOrThrow(file, [file = std::string(file)](FileSystemObject& files) { return files.shortFilePath(file); });
}

std::string ResponsiveFiles::shortFolderPath(std::string_view folder) {
  return runOrThrow(folder,
                    [folder = std::string(folder)](FileSystemObject& files) { return files.shortFolderPath(folder); });
}

bool ResponsiveFiles::fileExists(std::string_view path) {
  try {
    return run([path = std::string(path)](FileSystemObject& files) { return files.fileExists(path); });
  } catch (const GivenUp&) {
    return false;
  }
}

bool ResponsiveFiles::folderExists(std::string_view path) {
  try {
    return run([path = std::string(path)](FileSystemObject& files) { return files.folderExists(path); });
  } catch (const GivenUp&) {
    return false;
  }
}

FolderContents ResponsiveFiles::contents(std::string_view folder) {
  return runOrThrow(folder, [folder = std::string(folder)](FileSystemObject& files) { return files.contents(folder); });
}

std::uint64_t ResponsiveFiles::fileSize(std::string_view path) {
  return runOrThrow(path, [path = std::string(path)](FileSystemObject& files) { return files.fileSize(path); });
}

std::unique_ptr<FileView> ResponsiveFiles::openForReading(std::string_view path) {
  return runOrThrow(path, [path = std::string(path)](FileSystemObject& files) { return files.openForReading(path); });
}

bool ResponsiveFiles::copyFile(std::string_view from, std::string_view to, bool overwrite,
                               const CopyProgress& progress) {
  struct Copy {
    std::atomic<std::uint64_t> copied{0};
    std::atomic<std::uint64_t> size{0};
    std::atomic<bool> cancelled{false};
  };
  const auto copy = std::make_shared<Copy>();
  try {
    return run(
        [copy, from = std::string(from), to = std::string(to), overwrite](FileSystemObject& files) {
          return files.copyFile(from, to, overwrite, [&copy](std::uint64_t copied, std::uint64_t size) {
            copy->copied = copied;
            copy->size = size;
            return !copy->cancelled;
          });
        },
        [&copy, &progress] { return !progress || progress(copy->copied, copy->size); });
  } catch (const GivenUp&) {
    copy->cancelled = true;
    return false;
  }
}

}  // namespace plimo
