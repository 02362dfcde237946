#pragma once

#include "zelnor/common/enumerations.h"
#include "zelnor/platform/event.h"
#include "zelnor/platform/values.h"

#include <exception>
#include <functional>
#include <memory>

namespace zelnor {

class FtpConnection;
struct FtpOutcome;

/// A small FTP client, by which a submission and its log reach a support site. One connection is kept open
/// between the operations. TLS is tried first; only to a server that offers none files and password go in the
/// clear.
///
/// No failure is shown to the person: an operation returns False (an empty text, a negative size) and leaves
/// what went wrong in `LastErrorMessage` and `SimpleLastErrorMessage`. An operation without a connection
/// fails with code 12029. What a handler of an event raises breaks the transfer off and reaches its caller.
/// While a transfer runs, a call from within an event's handler or the host's yield fails, and
/// `CloseConnection` closes when the transfer has ended.
///
/// | code | means |
/// |---|---|
/// | -1 | not the server's doing: the text tells |
/// | 12002 | timed out: a minute to connect, five without a byte |
/// | 12003 | refused by the server; `LastErrorMessage` is the server's own reply |
/// | 12007 | the server's name was not resolved |
/// | 12014 | the login was refused |
/// | 12029 | not connected, or not securely |
/// | 12031 | the connection broke off |
///
/// @code
/// zelnor::clsFTP ftp;
/// ftp.SetMode(false);
/// ftp.SetTransferType(zelnor::eFTPTransferTypes::FTP_BINARY);
/// if (!ftp.OpenConnection("ftp.example.org", user, password) ||
///     !ftp.FTPUploadFile("/tmp/log.zip", "log.zip")) {
///   std::cerr << ftp.LastErrorMessage();
/// }
/// @endcode
class ZELNOR_API clsFTP {
 public:
  /// Transfers text, in active mode, not connected.
  clsFTP();
  clsFTP(const clsFTP&) = delete;
  clsFTP& operator=(const clsFTP&) = delete;

  /// Closes the connection.
  ~clsFTP();

  struct Events {
    /// How far FTPUploadFile or FTPDownloadFile is: the bytes so far and in all. Raised behind each block of
    /// 255 bytes and once more at the end. A changed number of bytes stays changed in the next event, and
    /// changes nothing else.
    Event<Long&, Long&> FileTransferProgress;
  };
  Events events;

  /// What went wrong last: "FTPUploadFile() Error - Code: 12031 Message: ...", or the server's reply for code
  /// 12003; empty when nothing did yet. A success leaves it.
  String LastErrorMessage() const;

  /// The message of it alone.
  String SimpleLastErrorMessage() const;

  /// Connects to a server, a name or address with ":" and a port where it isn't 21, and logs in; without a
  /// user anonymously. An open connection is closed first.
  bool OpenConnection(const String& sServer, const String& sUser, const String& sPassword);

  /// Closes the connection; nothing happens when there is none.
  void CloseConnection();

  /// Sends a local file whole, without events.
  bool SimpleFTPPutFile(const String& sLocal, const String& sRemote);

  /// Renames a remote file.
  bool RenameFTPFile(const String& sExisting, const String& sNewName);

  /// Makes a remote folder.
  bool CreateFTPDirectory(const String& sDirectory);

  /// Removes a remote folder.
  bool RemoveFTPDirectory(const String& sDirectory);

  /// Deletes a remote file.
  bool DeleteFTPFile(const String& sRemote);

  /// Sends a local file in blocks of 255 bytes; the host has its turn and FileTransferProgress is raised
  /// behind each. Blanks around the names are dropped; False, and nothing recorded, for an empty one.
  bool FTPUploadFile(const String& sLocal, const String& sRemote);

  /// Fetches a remote file in blocks of 255 bytes, over the local file where there is one; a failure leaves
  /// that as it was. False also for a remote file that is empty or not there ("FTP File Doesn't Exist");
  /// names as in FTPUploadFile.
  bool FTPDownloadFile(const String& sLocal, const String& sRemote);

  /// Fetches a remote file whole, an empty one too, without events, over the local file where there is one.
  bool SimpleFTPGetFile(const String& sLocal, const String& sRemote);

  /// The current remote folder, cut at 1024 characters; empty after a failure. Writing changes to another.
  ///@{
  String FTPDirectory();
  void FTPDirectory(const String& value);
  ///@}

  /// The size of a remote file in bytes (its low 32 bits); -1 when it is not there, and -2 after any other
  /// failure.
  Long GetFTPFileSize(const String& sFile);

  /// Text or binary, from the next transfer on. Only announced to the server: bytes are never altered on this
  /// side.
  void SetTransferType(eFTPTransferTypes vType);

  /// Active (True) or passive transfers, from the next OpenConnection on. Where a server can't reach this
  /// machine, an active connection goes on passively.
  void SetMode(bool bActive);

  /// The code of what went wrong last; 0 when nothing did yet.
  ZELNOR_INTERNAL Long LastErrorCode() const { return last_error_code_; }

  /// Whether the last connection was under TLS.
  ZELNOR_INTERNAL bool WasProtected() const { return was_protected_; }

  /// Has the next connections go under TLS or not come about: a server that offers none is left before the
  /// login, with code 12029.
  ZELNOR_INTERNAL void ProtectedOnly(bool value) { protected_only_ = value; }

  /// Whether the last connection did not come about for that.
  ZELNOR_INTERNAL bool LeftUnprotected() const { return left_unprotected_; }

  /// Asked again and again while the server is waited for; True breaks the operation off.
  ZELNOR_INTERNAL void StopWhen(std::function<bool()> stop) { stop_ = std::move(stop); }

  /// Shortens the time limits of the next connection: to connect, and without a byte.
  ZELNOR_INTERNAL void TimeLimits(std::int64_t connect_milliseconds, std::int64_t silence_milliseconds);

 private:
  struct Transfer;
  using Operation = std::function<FtpOutcome(FtpConnection&)>;
  bool Attempt(const String& operation, const Operation& body);
  bool SimpleCommand(const String& operation, const String& command);
  bool Upload(const String& local, const String& remote, Transfer transfer);
  bool Download(const String& local, const String& remote, Transfer transfer);
  void Progress(Transfer& transfer, std::size_t bytes);
  void LastProgress(Transfer& transfer);
  void Handlers(const std::function<void()>& body);
  bool Refuse(const String& operation, const String& text);
  void RecordError(Long code, const String& operation, const String& message, const String& reply);

  std::unique_ptr<FtpConnection> connection_;
  std::function<bool()> stop_;
  std::int64_t connect_limit_ = 0;  // milliseconds; 0 for the connection's own
  std::int64_t silence_limit_ = 0;
  eFTPTransferTypes transfer_type_ = eFTPTransferTypes::FTP_ASCII;
  Long passive_flag_ = 0;
  bool was_protected_ = false;
  bool protected_only_ = false;
  bool left_unprotected_ = false;
  bool busy_ = false;
  bool close_when_idle_ = false;
  std::exception_ptr handler_error_;
  String last_error_message_;
  String simple_last_error_message_;
  Long last_error_code_ = 0;
};

}  // namespace zelnor
