#pragma once

#include "zelnor/platform/failure.h"
#include "zelnor/platform/host.h"

#include <functional>
#include <vector>

namespace zelnor::test {

/// A host that keeps what it is asked, answers as it is told, and whose clock moves only when told or slept.
class RecordingHost : public Host {
 public:
  Long MessageBox(const String& text, Long style, const String& title) override {
    messages.push_back({text, style, title});
    return 1;
  }
  DialogAnswer ShowDialog(const DialogRequest& request) override {
    dialogs.push_back(request);
    return answer;
  }
  void Yield() override {
    ++yields;
    if (on_yield) on_yield();
  }
  Date Now() override { return now; }
  std::int64_t Tick() override { return tick; }
  void Sleep(std::int64_t milliseconds) override {
    tick += milliseconds;
    now = Date::FromSerial(now.Serial() + static_cast<double>(milliseconds) / 86400000.0);
  }
  bool OpenFile(const String& program, const String& path) override {
    opened.emplace_back(program, path);
    return can_open;
  }
  ConnectionState Connection() override { return connection; }
  HttpAnswer Exchange(const HttpMessage& message) override {
    return exchange ? exchange(message) : ExchangeHttp(message);
  }

  std::vector<ShownMessage> messages;
  std::vector<DialogRequest> dialogs;
  std::vector<std::pair<String, String>> opened;
  std::function<void()> on_yield;
  std::function<HttpAnswer(const HttpMessage&)> exchange;  ///< empty: over the network
  DialogAnswer answer{5, false};
  Date now;
  std::int64_t tick = 0;
  int yields = 0;
  bool can_open = true;
  ConnectionState connection{true, kConnectionLan | kConnectionConfigured};
};

/// Puts a RecordingHost in place for the length of a test.
class WithRecordingHost {
 public:
  WithRecordingHost() { SetHost(host_); }
  WithRecordingHost(const WithRecordingHost&) = delete;
  WithRecordingHost& operator=(const WithRecordingHost&) = delete;
  ~WithRecordingHost() { SetHost(nullptr); }
  RecordingHost* operator->() const { return host_.get(); }
  RecordingHost& operator*() const { return *host_; }

 private:
  std::shared_ptr<RecordingHost> host_ = std::make_shared<RecordingHost>();
};

/// The number of the RuntimeError that the body raises; 0 when it raises none.
inline Long RaisedNumber(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace zelnor::test
