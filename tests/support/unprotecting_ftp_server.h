#pragma once

/// @file
/// An FTP server on loopback that takes commands under TLS and would have the files in the clear.

#include <atomic>
#include <memory>
#include <mutex>
#include <openssl/ssl.h>
#include <poll.h>
#include <string>
#include <thread>
#include <vector>

#include "support/shell.h"
#include "support/sockets.h"
#include "support/temporary_folder.h"

namespace zelnor::test {

/// Serves one connection.
class UnprotectingFtpServer {
 public:
  UnprotectingFtpServer()
      : listener_(ListenOnLoopback()), context_(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free) {
    OutputOf(
        "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost -addext "
        "subjectAltName=DNS:localhost -keyout '" +
        folder_.At("key.pem") + "' -out '" + Certificate() + "' 2>/dev/null");
    if (SSL_CTX_use_certificate_file(context_.get(), Certificate().c_str(), SSL_FILETYPE_PEM) != 1 ||
        SSL_CTX_use_PrivateKey_file(context_.get(), folder_.At("key.pem").c_str(), SSL_FILETYPE_PEM) != 1) {
      throw std::runtime_error("no certificate");
    }
    thread_ = std::thread([this] { Serve(); });
  }
  UnprotectingFtpServer(const UnprotectingFtpServer&) = delete;
  UnprotectingFtpServer& operator=(const UnprotectingFtpServer&) = delete;
  ~UnprotectingFtpServer() {
    stop_ = true;
    thread_.join();
  }

  std::string Address() const { return "localhost:" + std::to_string(PortOf(listener_)); }
  std::string Certificate() const { return folder_.At("certificate.pem"); }

  /// The first words of the commands that came under TLS.
  std::vector<std::string> Commands() const {
    const std::lock_guard lock(mutex_);
    return commands_;
  }

 private:
  bool Readable(int fd) const {
    while (!stop_) {
      pollfd waiting{fd, POLLIN, 0};
      if (poll(&waiting, 1, 20) > 0) return true;
    }
    return false;
  }

  void Serve() {
    if (!Readable(listener_.Fd())) return;
    const Socket control(accept4(listener_.Fd(), nullptr, nullptr, SOCK_CLOEXEC));
    control.Send("220 Here\r\n");
    char bytes[512];
    if (!Readable(control.Fd()) || recv(control.Fd(), bytes, sizeof bytes, 0) <= 0) return;  // AUTH TLS
    control.Send("234 Go on\r\n");
    const std::unique_ptr<SSL, decltype(&SSL_free)> tls(SSL_new(context_.get()), &SSL_free);
    SSL_set_fd(tls.get(), control.Fd());
    if (!Readable(control.Fd()) || SSL_accept(tls.get()) != 1) return;
    while (SSL_pending(tls.get()) > 0 || Readable(control.Fd())) {
      const int count = SSL_read(tls.get(), bytes, sizeof bytes);
      if (count <= 0) return;
      // One command comes at a time: each waits for its reply.
      const std::string word(bytes, 4);
      {
        const std::lock_guard lock(mutex_);
        commands_.push_back(word);
      }
      const std::string reply = word == "USER"    ? "331 And the password?\r\n"
                                : word == "PASS"  ? "230 In\r\n"
                                : word == "PBSZ"  ? "200 So be it\r\n"
                                : word == "PROT"  ? "536 Files go in the clear here\r\n"
                                : word == "PWD\r" ? "257 \"/\"\r\n"
                                                  : "502 Unknown here\r\n";
      SSL_write(tls.get(), reply.data(), static_cast<int>(reply.size()));
    }
  }

  TemporaryFolder folder_;
  Socket listener_;
  std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_;
  mutable std::mutex mutex_;
  std::vector<std::string> commands_;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

}  // namespace zelnor::test
