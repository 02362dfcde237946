#include "zelnor/controller/clsFTP.h"

#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/ftp.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"

#include <algorithm>

namespace zelnor {
namespace {

constexpr std::size_t kBlock = 255;
constexpr Long kPassiveFlag = 0x8000000;
constexpr Long kOwnError = -1;
constexpr std::ptrdiff_t kMaxReply = 2048;
constexpr std::ptrdiff_t kMaxDirectory = 1024;

// Breaks a local file off that the server didn't give whole.
struct TransferFailed {};

// What stands between the quotes of `257 "/a ""b"" c" is the current folder`.
String QuotedPath(const String& reply) {
  String path;
  const std::size_t first = reply.find('"');
  for (std::size_t at = first; at != String::npos && ++at < reply.size();) {
    if (reply[at] != '"') {
      path += reply[at];
    } else if (at + 1 < reply.size() && reply[at + 1] == '"') {
      path += reply[at++];
    } else {
      break;
    }
  }
  return path;
}

}  // namespace

/// One transfer in blocks: how many bytes went over, and the operation that a failure is recorded under.
struct clsFTP::Transfer {
  String open;
  String blocks;
  String rest;
  bool tells_progress = false;
  std::size_t size = 0;
  std::size_t done = 0;
  Long shown = 0;  // what the handlers see, and may change
  Long total = 0;

  const String& OperationAt(bool began) const {
    if (!began) return open;
    const bool in_rest = done >= size / kBlock * kBlock && size % kBlock != 0;
    return in_rest ? rest : blocks;
  }
};

clsFTP::clsFTP() { SetMode(true); }

clsFTP::~clsFTP() { CloseConnection(); }

String clsFTP::LastErrorMessage() const { return last_error_message_; }
String clsFTP::SimpleLastErrorMessage() const { return simple_last_error_message_; }

bool clsFTP::OpenConnection(const String& sServer, const String& sUser, const String& sPassword) {
  if (busy_) return Refuse("InternetConnect", DescriptionOf(5));
  CloseConnection();
  auto connection = std::make_unique<FtpConnection>();
  if (connect_limit_ != 0) connection->connect_limit = std::chrono::milliseconds(connect_limit_);
  if (silence_limit_ != 0) connection->silence_limit = std::chrono::milliseconds(silence_limit_);
  connection->protected_only = protected_only_;
  connection->stop = stop_;
  connection_ = std::move(connection);
  const bool result = Attempt("InternetConnect", [&](FtpConnection& ftp) {
    return ftp.Open(sServer, sUser, sPassword, passive_flag_ == kPassiveFlag);
  });
  was_protected_ = result && connection_->Protected();
  left_unprotected_ = !result && connection_ && connection_->LeftUnprotected();
  if (!result) CloseConnection();
  return result;
}

void clsFTP::CloseConnection() {
  close_when_idle_ = busy_;
  if (!busy_) connection_ = nullptr;
}

bool clsFTP::SimpleFTPPutFile(const String& sLocal, const String& sRemote) {
  const String name = "SimpleFtpPutFile";
  return Upload(sLocal, sRemote, {name, name, name});
}

bool clsFTP::RenameFTPFile(const String& sExisting, const String& sNewName) {
  return Attempt("RenameFTPFile", [&](FtpConnection& ftp) {
    const FtpOutcome found = ftp.Command("RNFR " + sExisting);
    return found ? ftp.Command("RNTO " + sNewName) : found;
  });
}

bool clsFTP::CreateFTPDirectory(const String& sDirectory) {
  return SimpleCommand("CreateFTPDirectory", "MKD " + sDirectory);
}

bool clsFTP::RemoveFTPDirectory(const String& sDirectory) {
  return SimpleCommand("RemoveFTPDirectory", "RMD " + sDirectory);
}

bool clsFTP::DeleteFTPFile(const String& sRemote) {
  return SimpleCommand("DeleteFTPFile", "DELE " + sRemote);
}

bool clsFTP::FTPUploadFile(const String& sLocal, const String& sRemote) {
  const String local = Trim(sLocal);
  const String remote = Trim(sRemote);
  if (local.empty() || remote.empty()) return false;
  return Upload(local, remote, {"FtpOpenFile:PutFile", "InternetWriteFile", "InternetWriteFile2", true});
}

bool clsFTP::FTPDownloadFile(const String& sLocal, const String& sRemote) {
  const String local = Trim(sLocal);
  const String remote = Trim(sRemote);
  if (local.empty() || remote.empty()) return false;
  const Long size = GetFTPFileSize(remote);
  if (size <= 0) return Refuse("FTPDownloadFile", "FTP File Doesn't Exist");
  return Download(local, remote,
                  {"FtpOpenFile:GetFile", "InternetReadFile", "InternetReadFile2", true,
                   static_cast<std::size_t>(size), 0, 0, size});
}

bool clsFTP::SimpleFTPGetFile(const String& sLocal, const String& sRemote) {
  const String name = "SimpleFtpGetFile";
  return Download(sLocal, sRemote, {name, name, name});
}

String clsFTP::FTPDirectory() {
  String result;
  Attempt("FtpGetCurrentDirectory", [&](FtpConnection& ftp) {
    FtpOutcome outcome = ftp.Command("PWD");
    if (outcome) result = Left(QuotedPath(outcome.reply), kMaxDirectory);
    return outcome;
  });
  return result;
}

void clsFTP::FTPDirectory(const String& value) { SimpleCommand("FtpSetCurrentDirectory", "CWD " + value); }

Long clsFTP::GetFTPFileSize(const String& sFile) {
  Long result = -2;
  // A name with blanks is asked for as it is: the server takes all behind the command for the name.
  Attempt("FtpFindFirstFile", [&](FtpConnection& ftp) {
    std::int64_t size = 0;
    FtpOutcome outcome = ftp.Size(sFile, size);
    if (outcome) result = static_cast<Long>(static_cast<std::uint32_t>(size));
    if (outcome.code == kFtpNoMoreFiles) {
      result = -1;
      outcome.code = 0;
    }
    return outcome;
  });
  return result;
}

void clsFTP::SetTransferType(eFTPTransferTypes vType) { transfer_type_ = vType; }
void clsFTP::SetMode(bool bActive) { passive_flag_ = bActive ? 0 : kPassiveFlag; }

void clsFTP::TimeLimits(std::int64_t connect_milliseconds, std::int64_t silence_milliseconds) {
  connect_limit_ = connect_milliseconds;
  silence_limit_ = silence_milliseconds;
}

// Runs an operation on the connection and records its failure.
bool clsFTP::Attempt(const String& operation, const Operation& body) {
  if (busy_) return Refuse(operation, DescriptionOf(5));
  if (!connection_) {
    RecordError(kFtpCannotConnect, operation, {}, {});
    return false;
  }
  FtpOutcome outcome;
  String refused;
  busy_ = true;
  try {
    outcome = body(*connection_);
  } catch (...) {
    refused = CurrentError().Description();
  }
  busy_ = false;
  if (close_when_idle_) CloseConnection();
  if (handler_error_) std::rethrow_exception(std::exchange(handler_error_, nullptr));
  if (!refused.empty()) return Refuse(operation, refused);
  if (!outcome) RecordError(outcome.code, operation, {}, outcome.reply);
  return outcome.code == 0;
}

bool clsFTP::SimpleCommand(const String& operation, const String& command) {
  return Attempt(operation, [&](FtpConnection& ftp) { return ftp.Command(command); });
}

// A block went over: gives the application its turn and tells it how far the transfer is.
void clsFTP::Progress(Transfer& transfer, std::size_t bytes) {
  transfer.done += bytes;
  if (!transfer.tells_progress) return;
  Handlers([&] {
    CurrentHost()->Yield();
    transfer.shown += static_cast<Long>(bytes);
    events.FileTransferProgress(transfer.shown, transfer.total);
  });
}

// All went over.
void clsFTP::LastProgress(Transfer& transfer) {
  if (!transfer.tells_progress) return;
  Handlers([&] {
    transfer.shown += static_cast<Long>(transfer.done % kBlock);
    events.FileTransferProgress(transfer.shown, transfer.total);
  });
}

// Runs the application's code; its errors are told from the transfer's own.
void clsFTP::Handlers(const std::function<void()>& body) {
  try {
    body();
  } catch (...) {
    handler_error_ = std::current_exception();
    throw;
  }
}

bool clsFTP::Upload(const String& local, const String& remote, Transfer transfer) {
  String operation = transfer.open;  // read behind the transfer, when it is known how far that came
  const bool ascii = transfer_type_ == eFTPTransferTypes::FTP_ASCII;
  return Attempt(operation, [&](FtpConnection& ftp) {
    const std::string bytes = ReadFile(local);
    transfer.size = bytes.size();
    transfer.total = static_cast<Long>(bytes.size());
    std::string_view sent;
    // To be asked for a block means that the one before is sent.
    const auto next_block = [&] {
      if (sent.size() == kBlock) {
        Progress(transfer, kBlock);
      } else {
        transfer.done += sent.size();
      }
      sent = std::string_view(bytes).substr(transfer.done, kBlock);
      return sent;
    };
    FtpOutcome outcome = ftp.Upload(remote, ascii, next_block);
    operation = transfer.OperationAt(outcome.began);
    if (outcome) LastProgress(transfer);
    return outcome;
  });
}

bool clsFTP::Download(const String& local, const String& remote, Transfer transfer) {
  String operation = transfer.open;
  const bool ascii = transfer_type_ == eFTPTransferTypes::FTP_ASCII;
  return Attempt(operation, [&](FtpConnection& ftp) {
    FtpOutcome outcome;
    const auto fetch = [&](const ByteSink& file) {
      std::string block;
      outcome = ftp.Download(remote, ascii, [&](std::string_view bytes) {
        while (!bytes.empty()) {
          const std::size_t taken = std::min(kBlock - block.size(), bytes.size());
          block += bytes.substr(0, taken);
          bytes.remove_prefix(taken);
          if (block.size() < kBlock) return;
          file(block);
          block.clear();
          Progress(transfer, kBlock);
        }
      });
      operation = transfer.OperationAt(outcome.began);
      if (outcome && transfer.done + block.size() < transfer.size) outcome.code = kFtpConnectionReset;
      if (!outcome) throw TransferFailed();
      file(block);
      transfer.done += block.size();
    };
    try {
      WriteFile(local, fetch);
    } catch (const TransferFailed&) {
      return outcome;
    }
    LastProgress(transfer);
    return outcome;
  });
}

bool clsFTP::Refuse(const String& operation, const String& text) {
  RecordError(kOwnError, operation, text, {});
  return false;
}

void clsFTP::RecordError(Long code, const String& operation, const String& message, const String& reply) {
  String text = code == kOwnError ? message : FtpErrorText(code);
  text = text.substr(0, text.find('\0'));
  text = Trim(Replace(Replace(text, "\r", ""), "\n", ""));
  last_error_code_ = code;
  last_error_message_ = operation + "() Error - Code: " + ToText(code) + " Message: " + text;
  simple_last_error_message_ = text;
  if (code == kFtpExtendedError) last_error_message_ = Left(reply, kMaxReply);
}

}  // namespace zelnor
