#include "zelnor/common/clsLog.h"
#include "zelnor/common/modPublicEnums.h"
#include "zelnor/controller/clsFTP.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/envelope/clsDZEncoder.h"
#include "zelnor/platform/files.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "clsRTIController";

}  // namespace

bool clsRTIController::FTPToSupport(const String& strFTPServerPath, const String& strFTPUsername,
                                    const String& strFTPPassword) {
  clsFTP ftp;
  return SendToSupport(ftp, strFTPServerPath, strFTPUsername, strFTPPassword).sent;
}

clsRTIController::SupportUpload clsRTIController::SendToSupport(clsFTP& ftp, const String& server,
                                                                const String& user, const String& password) {
  SupportUpload result;
  String zip;
  try {
    Log("Attempting FTP upload...");
    if (submission_file_path_.empty()) {
      Log("FTP upload failed - no submission file to send.");
    } else {
      zip = ZipForSupport();
      if (zip.empty()) {
        Log("FTP upload failed - could not create ZIP file.");
      } else {
        Log("Zip file created... attempting to send via FTP");
        result.remote_name = GetFileName(zip);
        ftp.SetTransferType(eFTPTransferTypes::FTP_BINARY);  // an archive must arrive byte by byte
        // Without a connection there is nothing to try, and the connection's own error is the one to tell.
        result.sent =
            ftp.OpenConnection(server, user, password) && ftp.FTPUploadFile(zip, result.remote_name);
        Log(result.sent ? String("FTP upload succeeded.")
                        : "FTP upload failed - " + ftp.SimpleLastErrorMessage());
        ftp.CloseConnection();
        DeleteFile(std::exchange(zip, {}));
      }
    }
    SaveLog();
  } catch (...) {
    const RuntimeError error = CurrentError();
    ReportError(error, kClass, "Function FTPToSupport");
    ftp.CloseConnection();
    if (PlainFileExists(zip)) Handled(kClass, "Function FTPToSupport", [&] { DeleteFile(zip); });
    if (log_this_session_ && log_) {
      log_->AddTimingRecord("An error occurred while attempting FTP: " + error.Description());
      log_->Save();
    }
  }
  return result;
}

// An archive of the submission as it was saved and of the log; empty when none could be made.
String clsRTIController::ZipForSupport() {
  Log("Submission file found... " + submission_file_path_);
  Log("Forcing log save. No further entries in this log will be submitted for FTP unless the FTP process is "
      "commenced again later.");
  Log("Attempting to create Zip file containing Submission and Log files...");
  SaveLog();
  std::vector<String> files = {submission_file_path_};
  if (log_this_session_) files.push_back(Required(log_).LogFilePath());
  return clsDZEncoder().CreateZipFileFromFiles(files);
}

}  // namespace zelnor
