#pragma once

/// @file
/// A real FTP server, vsftpd, that runs as the present user on a free port of loopback for one test.

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <thread>

#include "support/shell.h"
#include "support/sockets.h"
#include "support/temporary_folder.h"

namespace zelnor::test {

/// User "anonymous", password "secret". Files go to the remote folder "in".
class Vsftpd {
 public:
  static bool IsInstalled() { return access(kProgram, X_OK) == 0; }

  explicit Vsftpd(bool with_tls) {
    std::filesystem::create_directories(folder_.At("root/in"));
    folder_.Put("passwords", "secret\n");
    for (int attempt = 0; attempt < 5 && child_ < 0; ++attempt) Start(with_tls);
    if (child_ < 0) throw std::runtime_error("vsftpd doesn't start: " + folder_.Get("errors"));
  }
  Vsftpd(const Vsftpd&) = delete;
  Vsftpd& operator=(const Vsftpd&) = delete;
  ~Vsftpd() {
    kill(child_, SIGTERM);
    waitpid(child_, nullptr, 0);
  }

  std::string Address() const { return "localhost:" + std::to_string(port_); }

  /// The certificate, for SSL_CERT_FILE.
  std::string Certificate() const { return folder_.At("certificate.pem"); }

  /// What the server holds.
  std::string Get(const std::string& name) const { return folder_.Get("root/" + name); }
  void Put(const std::string& name, const std::string& bytes) const { folder_.Put("root/" + name, bytes); }
  bool Has(const std::string& name) const { return std::filesystem::exists(folder_.At("root/" + name)); }

 private:
  static constexpr const char* kProgram = "/usr/sbin/vsftpd";

  void Start(bool with_tls) {
    port_ = FreePort();
    std::string settings =
        "listen=YES\nlisten_address=127.0.0.1\nbackground=NO\nrun_as_launching_user=YES\nseccomp_sandbox=NO\n"
        "anonymous_enable=YES\nlocal_enable=NO\nwrite_enable=YES\nanon_upload_enable=YES\n"
        "anon_mkdir_write_enable=YES\nanon_other_write_enable=YES\nanon_world_readable_only=NO\n"
        "allow_writeable_chroot=YES\nsecure_email_list_enable=YES\nconnect_from_port_20=NO\nxferlog_enable="
        "NO\n"
        "ascii_upload_enable=NO\nascii_download_enable=NO\n";
    settings += "listen_port=" + std::to_string(port_) + "\nanon_root=" + folder_.At("root") +
                "\nemail_password_file=" + folder_.At("passwords") + "\n";
    if (with_tls) {
      OutputOf(
          "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost -addext "
          "subjectAltName=DNS:localhost,IP:127.0.0.1 -keyout '" +
          folder_.At("key.pem") + "' -out '" + Certificate() + "' 2>/dev/null");
      settings +=
          "ssl_enable=YES\nallow_anon_ssl=YES\nforce_anon_logins_ssl=YES\nforce_anon_data_ssl=YES\n"
          "rsa_cert_file=" +
          Certificate() + "\nrsa_private_key_file=" + folder_.At("key.pem") + "\n";
    }
    const std::string file = folder_.Put("vsftpd.conf", settings);
    const std::string errors = folder_.At("errors");
    const pid_t child = fork();
    if (child == 0) {
      const int out = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
      dup2(out, 1);
      dup2(out, 2);
      execl(kProgram, kProgram, file.c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    if (child < 0) return;
    for (int tries = 0; tries < 200; ++tries) {
      if (waitpid(child, nullptr, WNOHANG) == child) return;
      if (ConnectToLoopback(port_).IsOpen()) {
        child_ = child;
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }

  TemporaryFolder folder_;
  int port_ = 0;
  pid_t child_ = -1;
};

}  // namespace zelnor::test
