#pragma once

/// @file
/// A connection to an FTP server, kept open between operations.
///
/// TLS is tried first (AUTH TLS), and the connection goes on in the clear only where the server offers none:
/// a server that offers TLS and whose certificate isn't good, or that would have the files in the clear, is
/// refused. Certificates are checked against the system's store (`SSL_CERT_FILE` and `SSL_CERT_DIR` are
/// honoured) and against the server's name.
///
/// @code
/// FtpConnection connection;
/// if (connection.Open("ftp.example.org:2121", user, password, true)) {
///   const FtpOutcome outcome = connection.Command("MKD reports");
///   if (outcome.code != 0) std::cerr << FtpErrorText(outcome.code) << ' ' << outcome.reply;
/// }
/// @endcode

#include "zelnor/platform/values.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

namespace zelnor {

inline constexpr Long kFtpNoMoreFiles = 18;       ///< there is no file of that name (a 550 to the size query)
inline constexpr Long kFtpTimedOut = 12002;       ///< no connection, or not a byte, within the time limits
inline constexpr Long kFtpExtendedError = 12003;  ///< the server refused; its reply tells why
inline constexpr Long kFtpNameNotResolved = 12007;
inline constexpr Long kFtpLoginRefused = 12014;
inline constexpr Long kFtpCannotConnect = 12029;  ///< not connected, or not securely
inline constexpr Long kFtpConnectionReset = 12031;

/// The plain sentence of a code; empty for a code that isn't one of these.
ZELNOR_INTERNAL String FtpErrorText(Long code);

/// How an operation ended.
struct FtpOutcome {
  Long code = 0;       ///< 0 for success, else one of the codes above
  String reply;        ///< the server's last reply as it came, without the line end at its end
  bool began = false;  ///< of a transfer: the server opened the file

  explicit operator bool() const { return code == 0; }
};

/// One connection. Not to be used by two threads at a time. While an operation runs, that is from within a
/// source, a sink or `stop`, every other operation is refused with error 5.
class ZELNOR_INTERNAL FtpConnection {
 public:
  FtpConnection();
  FtpConnection(const FtpConnection&) = delete;
  FtpConnection& operator=(const FtpConnection&) = delete;

  /// Says good-bye to the server and closes.
  ~FtpConnection();

  /// How long the server may take: to be connected and logged in, and without a byte.
  std::chrono::milliseconds connect_limit{60'000};
  std::chrono::milliseconds silence_limit{300'000};

  /// Nothing goes in the clear: a server that offers no TLS is left before the login.
  bool protected_only = false;

  /// Asked again and again while the server is waited for; True breaks the operation off.
  std::function<bool()> stop;

  /// Connects and logs in. `server` is a name or address, with ":" and a port where it isn't 21; an IPv6
  /// address with a port stands in "[]". Without a user the login is anonymous. Once for each object.
  FtpOutcome Open(const String& server, const String& user, const String& password, bool passive);

  /// Whether commands and files go under TLS.
  bool Protected() const;

  /// Whether the server was left since it offers no TLS.
  bool LeftUnprotected() const;

  /// Sends one command and takes its reply. Raises error 5 for a text with control characters.
  FtpOutcome Command(const String& text);

  /// Gives the next block of a file, empty at the end. What it raises breaks the transfer off and reaches the
  /// transfer's caller.
  using Source = std::function<std::string_view()>;

  /// Takes the next bytes of a file, however many arrive at once. What it raises is treated as with Source.
  using Sink = std::function<void(std::string_view)>;

  /// Writes a remote file block by block: a block is asked for when the one before it was sent. `ascii`
  /// announces text (TYPE A); the bytes are never altered here. An active connection goes on passively when
  /// the server can't reach this machine. Raises error 5 for a name with control characters.
  FtpOutcome Upload(const String& remote, bool ascii, const Source& source);

  /// Reads a remote file, otherwise as Upload.
  FtpOutcome Download(const String& remote, bool ascii, const Sink& sink);

  /// The size of a remote file in bytes. The code is 18 where there is none of that name.
  FtpOutcome Size(const String& remote, std::int64_t& size);

 private:
  class Session;
  std::unique_ptr<Session> session_;
};

}  // namespace zelnor
