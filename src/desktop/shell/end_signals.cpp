#include "desktop/shell/end_signals.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <array>
#include <csignal>

namespace plimo {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT};

// The two ends of a socket: a signal handler may do little more than write into it.
std::array<int, 2> sockets{-1, -1};

void onSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(sockets[0], &byte, 1);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> requested) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data()) == 0) {
    auto* notifier = new QSocketNotifier(sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [requested] {
      char byte = 0;
      if (::read(sockets[1], &byte, 1) == 1) requested();
    });
    for (const int number : endingSignals) std::signal(number, onSignal);
  }
  connect(qApp, &QGuiApplication::commitDataRequest, this, [requested](QSessionManager&) { requested(); });
}

EndSignals::~EndSignals() {
  for (const int number : endingSignals) std::signal(number, SIG_DFL);
  for (int& socket : sockets) {
    if (socket >= 0) ::close(socket);
    socket = -1;
  }
}

}  // namespace plimo
