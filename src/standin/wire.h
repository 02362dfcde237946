#pragma once

#include <atomic>
#include <httplib.h>
#include <memory>
#include <openssl/ssl.h>
#include <string>

namespace zelnor::standin {

/// Where an answer breaks off, and how.
struct Break {
  enum class Place { None, Before, Header, Body };
  Place place = Place::None;
  bool stall = false;  ///< holds the connection without a byte; otherwise closes it
};

/// A connection's stream, in the clear or over TLS, that can break off in the middle of an answer.
class WireStream : public httplib::Stream {
 public:
  /// Takes a connected socket, which stays the caller's. With a context it speaks TLS.
  WireStream(int socket, SSL_CTX* context, const std::atomic<bool>& stopping);
  ~WireStream() override;

  /// Whether the connection stands; false after a failed TLS handshake.
  bool Stands() const { return stands_; }

  /// How the answer to come breaks off.
  void BreakAt(Break where) {
    break_ = where;
    header_written_ = false;  // what went out so far, such as "100 Continue", is none of the answer's
  }

  bool is_readable() const override { return true; }
  bool is_writable() const override { return true; }
  ssize_t read(char* bytes, std::size_t size) override;
  ssize_t write(const char* bytes, std::size_t size) override;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return socket_; }

 private:
  ssize_t Send(const char* bytes, std::size_t size);
  void WaitForTheEnd() const;

  int socket_;
  const std::atomic<bool>& stopping_;
  std::unique_ptr<SSL, decltype(&SSL_free)> tls_{nullptr, SSL_free};
  bool stands_ = true;
  bool header_written_ = false;
  Break break_;
};

}  // namespace zelnor::standin
