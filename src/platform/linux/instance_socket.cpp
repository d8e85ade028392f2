#include "platform/linux/instance_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <thread>

namespace plimo {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t largestMessage = 64 * 1024;
constexpr int connectionsWaiting = 8;
constexpr milliseconds retryDelay(20);
// A later program sends its message directly after it has connected.
constexpr milliseconds messageDelay(100);

struct Address {
  sockaddr_un value{};
  socklen_t size = 0;
};

// The name follows a zero byte, which marks the abstract namespace.
Address addressOf(const std::string& name) {
  Address address;
  address.value.sun_family = AF_UNIX;
  const std::size_t length = std::min(name.size(), sizeof address.value.sun_path - 1);
  std::memcpy(address.value.sun_path + 1, name.data(), length);
  address.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return address;
}

UniqueFd newSocket(int flags) { return UniqueFd(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0)); }

// Any user can use any abstract name, so both sides check who the other one is.
bool isOwnUser(int socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

void setTimeout(int socket, milliseconds time) {
  timeval value{};
  value.tv_sec = static_cast<time_t>(time.count() / 1000);
  value.tv_usec = static_cast<suseconds_t>(time.count() % 1000 * 1000);
  ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &value, sizeof value);  // connect(2) follows it too
  ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &value, sizeof value);
}

bool timedOut() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINPROGRESS; }

}  // namespace

InstanceSocket::InstanceSocket(const std::string& folder) {
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0) return;
  name_ = "plimo-" + std::to_string(::geteuid()) + '-' + std::to_string(status.st_dev) + '-' +
          std::to_string(status.st_ino);
}

bool InstanceSocket::listen() {
  UniqueFd socket = newSocket(SOCK_NONBLOCK);
  const Address address = addressOf(name_);
  if (!socket || ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address.value), address.size) != 0)
    return false;
  if (::listen(socket.get(), connectionsWaiting) != 0) return false;
  listener_ = std::move(socket);
  return true;
}

Claim InstanceSocket::claim(std::string_view message, milliseconds patience) {
  if (name_.empty()) return Claim::granted;
  const auto deadline = Clock::now() + patience;
  for (;;) {
    if (listen() || errno != EADDRINUSE) return Claim::granted;
    const auto left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) return Claim::noAnswer;
    switch (send(message, left)) {
      case Sent::answered:
        return Claim::handedOver;
      case Sent::timeout:
        return Claim::noAnswer;
      case Sent::impossible:
        return Claim::granted;
      case Sent::refused:  // the owner is just starting or ending
        std::this_thread::sleep_for(retryDelay);
        break;
    }
  }
}

InstanceSocket::Sent InstanceSocket::send(std::string_view message, milliseconds patience) const {
  const UniqueFd socket = newSocket(0);
  if (!socket) return Sent::impossible;
  setTimeout(socket.get(), patience);
  const Address address = addressOf(name_);
  if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address.value), address.size) != 0) {
    if (timedOut()) return Sent::timeout;
    return errno == ECONNREFUSED ? Sent::refused : Sent::impossible;
  }
  if (!isOwnUser(socket.get())) return Sent::impossible;
  if (::send(socket.get(), message.data(), message.size(), MSG_NOSIGNAL) < 0) {
    if (timedOut()) return Sent::timeout;
    return errno == EPIPE || errno == ECONNRESET ? Sent::refused : Sent::impossible;
  }
  char answer = 0;
  const ssize_t size = ::recv(socket.get(), &answer, 1, 0);
  if (size < 0 && timedOut()) return Sent::timeout;
  return size == 1 ? Sent::answered : Sent::refused;
}

std::optional<std::string> InstanceSocket::take() {
  const UniqueFd socket(::accept4(fd(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (!socket || !isOwnUser(socket.get())) return std::nullopt;
  pollfd waiting{socket.get(), POLLIN, 0};
  if (::poll(&waiting, 1, static_cast<int>(messageDelay.count())) != 1) return std::nullopt;
  std::string message(largestMessage, '\0');
  const ssize_t size = ::recv(socket.get(), message.data(), message.size(), 0);
  if (size <= 0) return std::nullopt;
  message.resize(static_cast<std::size_t>(size));
  const char answer = 1;
  if (::send(socket.get(), &answer, 1, MSG_NOSIGNAL) != 1) return std::nullopt;
  return message;
}

}  // namespace plimo
