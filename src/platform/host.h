#pragma once

/// @file
/// The one interface through which the system reaches the person and the application.
///
/// @code
/// class MyHost : public zelnor::DefaultHost {
///   Long MessageBox(const String& text, Long style, const String& title) override {
///     return ShowInMyWindow(text, title) ? 1 : 0;  // 1 is OK
///   }
/// };
/// zelnor::SetHost(std::make_shared<MyHost>());
/// @endcode

#include "zelnor/platform/http.h"
#include "zelnor/platform/values.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>

namespace zelnor {

/// Parts of a message box's style that this system uses; they are added.
inline constexpr Long kOkOnly = 0;
inline constexpr Long kQuestionIcon = 32;
inline constexpr Long kExclamationIcon = 48;

/// What the dialog with a check box is asked to show.
struct DialogRequest {
  String message;
  Long style = 0;  ///< icon part plus button part, see dialog.h; negative where none was ever given
  String title;
  Long style_ext = 0;  ///< 1 shows the check box
  String checkbox_text;
};

/// What came of it.
struct DialogAnswer {
  Long result = 0;       ///< ok 1, cancel 2, abort 3, retry 4, ignore 5, yes 6, no 7, combine 8, replace 9
  bool checked = false;  ///< whether the check box was ticked
};

/// Bits of the connection state.
inline constexpr Long kConnectionModem = 1;
inline constexpr Long kConnectionLan = 2;
inline constexpr Long kConnectionProxy = 4;
inline constexpr Long kConnectionRasInstalled = 16;
inline constexpr Long kConnectionOffline = 32;
inline constexpr Long kConnectionConfigured = 64;

/// Whether the machine is connected, and how.
struct ConnectionState {
  bool connected = false;
  Long flags = 0;
};

/// A message that the default host was asked to show.
struct ShownMessage {
  String text;
  Long style = 0;
  String title;
};

/// All that the system asks of its surroundings. One host serves the whole process.
class ZELNOR_API Host {
 public:
  virtual ~Host();

  /// Shows a message and waits for the person. Returns the pressed button (1 is OK).
  virtual Long MessageBox(const String& text, Long style, const String& title) = 0;

  /// Shows the dialog with its buttons and check box and waits for the person.
  virtual DialogAnswer ShowDialog(const DialogRequest& request) = 0;

  /// Gives the application a turn; it may call back into the library, for instance `Cancel`.
  virtual void Yield() = 0;

  /// The date and time of day, local.
  virtual Date Now() = 0;

  /// A tick of milliseconds that never goes back.
  virtual std::int64_t Tick() = 0;

  /// Waits that many milliseconds.
  virtual void Sleep(std::int64_t milliseconds) = 0;

  /// Shows a file: with `program` that program gets the file as its one argument, with an empty `program` the
  /// system's viewer. Never goes through a shell. Returns whether the program could be started.
  virtual bool OpenFile(const String& program, const String& path) = 0;

  /// The state of the network connection.
  virtual ConnectionState Connection() = 0;

  /// Sends one HTTP request and waits for its answer. Raises a RuntimeError with one of the numbers of http.h
  /// when none came. An application may bring a client of its own; it must never send a request twice.
  virtual HttpAnswer Exchange(const HttpMessage& message) = 0;
};

/// The host that needs no screen: it writes each message to standard error and keeps the last 100 of them,
/// answers the Combine, Replace, Ignore dialog with "ignore" (5), so that nothing is lost, and any other
/// dialog with its last button, takes the system's clock, and opens files with `xdg-open`. Derive from it to
/// replace single members. Controllers on several threads may share it.
class ZELNOR_API DefaultHost : public Host {
 public:
  /// How many messages are kept.
  static constexpr std::size_t kKeptMessages = 100;

  /// Writes the message as one line, "title: text", to standard error and keeps it. Returns the last button
  /// of the style's button part (1, OK, for the styles of this system).
  Long MessageBox(const String& text, Long style, const String& title) override;

  /// Writes and keeps the message as MessageBox does. The check box is never ticked.
  DialogAnswer ShowDialog(const DialogRequest& request) override;

  /// Nothing: there is no message loop.
  void Yield() override;

  /// The system's clock in its time zone, to the millisecond.
  Date Now() override;

  /// Milliseconds of the system's steady clock.
  std::int64_t Tick() override;

  /// Returns at once for 0 and for negative numbers.
  void Sleep(std::int64_t milliseconds) override;

  /// The program is looked up in PATH, gets its own session and neither the standard streams nor any other
  /// open file of this process. A network path is never opened.
  bool OpenFile(const String& program, const String& path) override;

  /// Connected with the LAN bit when an interface other than loopback is up and running with an address (one
  /// more than link-local in IPv6); the proxy bit when the environment's `http_proxy`, `https_proxy` or
  /// `all_proxy`, in either case, is not empty; the configured bit always.
  ConnectionState Connection() override;

  /// ExchangeHttp.
  HttpAnswer Exchange(const HttpMessage& message) override;

  /// The last 100 messages, oldest first. To be read while no other thread shows one.
  const std::deque<ShownMessage>& Messages() const { return messages_; }

  /// Forgets the kept messages.
  void ClearMessages();

 protected:
  /// Keeps a message; an overriding MessageBox may call it.
  void Keep(const ShownMessage& message);

 private:
  std::mutex keeping_;
  std::deque<ShownMessage> messages_;
};

/// The host of the process, never without an object; a DefaultHost until another is set.
ZELNOR_API std::shared_ptr<Host> CurrentHost();

/// Replaces the host; a call that still runs keeps the one before it alive. No object means a new default
/// one.
ZELNOR_API void SetHost(std::shared_ptr<Host> host);

}  // namespace zelnor
