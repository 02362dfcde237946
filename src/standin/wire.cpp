#include "zelnor/standin/wire.h"

#include <algorithm>
#include <poll.h>
#include <sys/socket.h>

namespace zelnor::standin {
namespace {

constexpr int kReadPatience = 60'000;  // milliseconds
constexpr int kGlance = 50;            // milliseconds between two looks at a stalled connection
constexpr std::size_t kPieceOfHeader = 20;

}  // namespace

WireStream::WireStream(int socket, SSL_CTX* context, const std::atomic<bool>& stopping)
    : socket_(socket), stopping_(stopping) {
  if (context == nullptr) return;
  tls_.reset(SSL_new(context));
  SSL_set_fd(tls_.get(), socket_);
  stands_ = SSL_accept(tls_.get()) == 1;
}

WireStream::~WireStream() {
  if (tls_ && stands_) SSL_shutdown(tls_.get());
}

ssize_t WireStream::read(char* bytes, std::size_t size) {
  pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
  if (tls_) {
    if (SSL_pending(tls_.get()) == 0 && poll(&waiting, 1, kReadPatience) <= 0) return -1;
    return SSL_read(tls_.get(), bytes, static_cast<int>(std::min<std::size_t>(size, 1U << 30)));
  }
  if (poll(&waiting, 1, kReadPatience) <= 0) return -1;
  return recv(socket_, bytes, size, 0);
}

// The header goes out in one call, the body in those that follow.
ssize_t WireStream::write(const char* bytes, std::size_t size) {
  const bool header = !header_written_;
  header_written_ = true;
  std::size_t allowed = size;
  if (break_.place == Break::Place::Before) allowed = 0;
  if (break_.place == Break::Place::Header) allowed = header ? std::min(size, kPieceOfHeader) : 0;
  if (break_.place == Break::Place::Body && !header) allowed = size / 2;
  if (allowed > 0 && Send(bytes, allowed) < 0) return -1;
  if (allowed == size) return static_cast<ssize_t>(size);
  if (break_.stall) WaitForTheEnd();
  break_.place = Break::Place::Before;  // nothing more goes out
  return -1;
}

ssize_t WireStream::Send(const char* bytes, std::size_t size) {
  std::size_t sent = 0;
  while (sent < size) {
    const std::size_t piece = std::min<std::size_t>(size - sent, 1U << 20);
    const ssize_t count = tls_ ? SSL_write(tls_.get(), bytes + sent, static_cast<int>(piece))
                               : send(socket_, bytes + sent, piece, MSG_NOSIGNAL);
    if (count <= 0) return -1;
    sent += static_cast<std::size_t>(count);
  }
  return static_cast<ssize_t>(sent);
}

// Until the gateway stops or the client has gone.
void WireStream::WaitForTheEnd() const {
  while (!stopping_) {
    pollfd waiting{.fd = socket_, .events = POLLIN, .revents = 0};
    if (poll(&waiting, 1, kGlance) <= 0) continue;
    char byte = 0;
    if (recv(socket_, &byte, 1, MSG_PEEK | MSG_DONTWAIT) <= 0) return;
    pollfd rest{.fd = -1, .events = 0, .revents = 0};
    poll(&rest, 1, kGlance);
  }
}

void WireStream::get_remote_ip_and_port(std::string& ip, int& port) const {
  ip = "127.0.0.1";
  port = 0;
}

void WireStream::get_local_ip_and_port(std::string& ip, int& port) const { get_remote_ip_and_port(ip, port); }

}  // namespace zelnor::standin
