#pragma once

/// @file
/// Sockets on loopback for servers that a test brings along.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace zelnor::test {

/// A socket that is closed with its owner.
class Socket {
 public:
  explicit Socket(int fd = -1) : fd_(fd) {}
  Socket(Socket&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Socket() { Close(); }

  int Fd() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }
  void Close() {
    if (fd_ >= 0) close(std::exchange(fd_, -1));
  }

  /// Closes so that the other side learns of a broken connection and not of an end.
  void Reset() {
    const linger at_once{1, 0};
    setsockopt(fd_, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    Close();
  }

  bool Send(std::string_view text) const {
    while (!text.empty()) {
      const ssize_t sent = send(fd_, text.data(), text.size(), MSG_NOSIGNAL);
      if (sent <= 0) return false;
      text.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
  }

 private:
  int fd_;
};

inline sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

/// Listens on a free port of loopback.
inline Socket ListenOnLoopback() {
  Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const sockaddr_in address = Loopback(0);
  if (bind(socket.Fd(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(socket.Fd(), 8) != 0) {
    throw std::runtime_error("can't listen on loopback");
  }
  return socket;
}

inline int PortOf(const Socket& socket) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  getsockname(socket.Fd(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

/// Not open when nobody listens there.
inline Socket ConnectToLoopback(int port) {
  Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const sockaddr_in address = Loopback(port);
  if (connect(socket.Fd(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) socket.Close();
  return socket;
}

/// A port of loopback on which nobody listens.
inline int FreePort() { return PortOf(ListenOnLoopback()); }

}  // namespace zelnor::test
