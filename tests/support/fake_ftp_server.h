#pragma once

/// @file
/// A small FTP server in the clear on loopback whose faults a test chooses.

#include <atomic>
#include <chrono>
#include <map>
#include <mutex>
#include <poll.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "support/sockets.h"

namespace zelnor::test {

/// Serves one connection at a time, for user "ann" with password "secret". Set the faults before a client
/// connects.
class FakeFtpServer {
 public:
  FakeFtpServer() : listener_(ListenOnLoopback()), thread_([this] { Serve(); }) {}
  FakeFtpServer(const FakeFtpServer&) = delete;
  FakeFtpServer& operator=(const FakeFtpServer&) = delete;
  ~FakeFtpServer() {
    stop_ = true;
    thread_.join();
  }

  std::string Address() const { return "127.0.0.1:" + std::to_string(PortOf(listener_)); }

  // Faults.
  std::map<std::string, std::string> replies;  ///< by command: what is answered in its place
  std::set<std::string> silent;                ///< commands that are never answered
  std::set<std::string> drop;                  ///< commands at which the connection is broken off
  long drop_after = -1;   ///< bytes of a file behind which both connections are broken off
  long full_after = -1;   ///< bytes of an upload behind which the disk is full
  long stall_after = -1;  ///< bytes of a file behind which nothing goes on
  bool refuses_active = false;
  bool babbles_behind_auth = false;  ///< answers the beginning of TLS with what is none
  std::string greeting = "220 Here";

  /// Stored files, by name.
  std::map<std::string, std::string> Files() const {
    const std::lock_guard lock(mutex_);
    return files_;
  }
  void Put(const std::string& name, const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    files_[name] = bytes;
  }

  /// The commands so far, passwords among them.
  std::vector<std::string> Commands() const {
    const std::lock_guard lock(mutex_);
    return commands_;
  }

  /// How many commands began with this word.
  std::size_t Count(const std::string& word) const {
    std::size_t count = 0;
    for (const std::string& each : Commands()) count += each.substr(0, each.find(' ')) == word ? 1U : 0U;
    return count;
  }

  int Logins() const { return logins_; }

 private:
  // False at the server's end.
  bool Readable(int fd) const {
    while (!stop_) {
      pollfd waiting{fd, POLLIN, 0};
      if (poll(&waiting, 1, 20) > 0) return true;
    }
    return false;
  }

  Socket Accept(const Socket& from) const {
    return Socket(Readable(from.Fd()) ? accept4(from.Fd(), nullptr, nullptr, SOCK_CLOEXEC) : -1);
  }

  void Serve() {
    while (!stop_) {
      const Socket control = Accept(listener_);
      if (control.IsOpen()) Talk(control);
      passive_.Close();
    }
  }

  void Talk(const Socket& control) {
    control.Send(greeting + "\r\n");
    std::string buffer;
    char bytes[512];
    while (Readable(control.Fd())) {
      const ssize_t count = recv(control.Fd(), bytes, sizeof bytes, 0);
      if (count <= 0) return;
      buffer.append(bytes, static_cast<std::size_t>(count));
      for (std::size_t end = 0; (end = buffer.find("\r\n")) != std::string::npos;) {
        const std::string line = buffer.substr(0, end);
        buffer.erase(0, end + 2);
        {
          const std::lock_guard lock(mutex_);
          commands_.push_back(line);
        }
        const std::size_t blank = line.find(' ');
        const std::string word = line.substr(0, blank);
        if (drop.contains(word)) return;
        if (silent.contains(word)) continue;
        const auto given = replies.find(word);
        const std::string reply =
            given != replies.end()
                ? given->second
                : Answer(control, word, blank == std::string::npos ? "" : line.substr(blank + 1));
        if (reply.empty() || (reply != "+" && !control.Send(reply + "\r\n"))) return;
        if (word == "QUIT") return;
        if (word == "AUTH" && babbles_behind_auth) {
          if (Readable(control.Fd())) control.Send("What do you mean?\r\n");
          return;
        }
      }
    }
  }

  // Empty to break off, "+" when all is said.
  std::string Answer(const Socket& control, const std::string& word, const std::string& argument) {
    if (word == "USER") {
      user_ = argument;
      return "331 And the password?";
    }
    if (word == "PASS") {
      if (user_ != "ann" || argument != "secret") return "530 Not you";
      ++logins_;
      return "230-Welcome\r\n 530 this is no reply\r\n230 In";
    }
    if (word == "PWD") return "257 \"/home/\"\"ann\"\"\" it is";
    if (word == "TYPE") return "200 So be it";
    if (word == "SIZE") {
      const std::lock_guard lock(mutex_);
      const auto found = files_.find(argument);
      return found == files_.end() ? "550 No such file" : "213 " + std::to_string(found->second.size());
    }
    if (word == "EPSV") {
      passive_ = ListenOnLoopback();
      return "229 Passive (|||" + std::to_string(PortOf(passive_)) + "|)";
    }
    if (word == "EPRT" || word == "PORT") {
      if (refuses_active || word == "PORT") return "500 Passive only";
      active_port_ = std::stoi(argument.substr(argument.find('|', 4) + 1));
      passive_.Close();
      return "200 I will come";
    }
    if (word == "STOR") return Store(control, argument);
    if (word == "RETR") return Retrieve(control, argument);
    if (word == "QUIT") return "221 Good-bye";
    return "502 Unknown here";
  }

  Socket OpenData() const { return passive_.IsOpen() ? Accept(passive_) : ConnectToLoopback(active_port_); }

  std::string Store(const Socket& control, const std::string& name) {
    control.Send("150 Send it\r\n");
    Socket data = OpenData();
    std::string file;
    char bytes[100];
    while (Readable(data.Fd())) {
      const auto size = static_cast<long>(file.size());
      if (drop_after >= 0 && size >= drop_after) {
        data.Reset();
        return {};
      }
      if (full_after >= 0 && size >= full_after) {
        control.Send("552 The disk is full\r\n");
        while (Readable(data.Fd()) && recv(data.Fd(), bytes, sizeof bytes, 0) > 0) {
        }
        return "+";
      }
      if (stall_after >= 0 && size >= stall_after) {
        while (!stop_ && IsThere(control)) std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return {};
      }
      const ssize_t count = recv(data.Fd(), bytes, sizeof bytes, 0);
      if (count <= 0) break;
      file.append(bytes, static_cast<std::size_t>(count));
    }
    data.Close();
    Put(name, file);
    const auto given = replies.find("STORED");
    return given != replies.end() ? given->second : "226 Have it";
  }

  std::string Retrieve(const Socket& control, const std::string& name) {
    const auto files = Files();
    const auto found = files.find(name);
    if (found == files.end()) return "550 No such file";
    control.Send("150 Here it comes\r\n");
    Socket data = OpenData();
    std::string file = found->second;
    if (drop_after >= 0) {
      data.Send(std::string_view(file).substr(0, static_cast<std::size_t>(drop_after)));
      data.Reset();
      return {};
    }
    if (stall_after >= 0) {
      data.Send(std::string_view(file).substr(0, static_cast<std::size_t>(stall_after)));
      while (!stop_ && IsThere(control)) std::this_thread::sleep_for(std::chrono::milliseconds(20));
      return {};
    }
    const auto given = replies.find("RETRIEVED");
    data.Send(file);
    data.Close();
    return given != replies.end() ? given->second : "226 That was it";
  }

  // Whether the client hasn't gone.
  static bool IsThere(const Socket& control) {
    char byte = 0;
    return recv(control.Fd(), &byte, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
  }

  Socket listener_;
  Socket passive_;
  int active_port_ = 0;
  std::string user_;
  mutable std::mutex mutex_;
  std::map<std::string, std::string> files_;
  std::vector<std::string> commands_;
  std::atomic<int> logins_ = 0;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

}  // namespace zelnor::test
