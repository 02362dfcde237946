// The FTP client against a server that others wrote.

#include "zelnor/controller/clsFTP.h"

#include "support/recording_host.h"
#include "support/scoped_environment.h"
#include "support/vsftpd.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

String Bytes(std::size_t count) {
  String bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += i % 5 == 0 ? '\n' : static_cast<char>(i * 7);
  return bytes;
}

struct Case {
  const char* name;
  bool tls;
  bool active;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.name; }

class VsftpdTest : public testing::TestWithParam<Case> {
 protected:
  void SetUp() override {
    if (!Vsftpd::IsInstalled()) GTEST_SKIP() << "vsftpd isn't installed";
  }
  TemporaryFolder folder_;
  WithRecordingHost host_;
};

TEST_P(VsftpdTest, EveryOperation) {
  const Vsftpd server(GetParam().tls);
  const ScopedEnvironment trusted("SSL_CERT_FILE", server.Certificate());
  clsFTP ftp;
  ftp.SetMode(GetParam().active);
  ASSERT_TRUE(ftp.OpenConnection(server.Address(), "anonymous", "secret")) << ftp.LastErrorMessage();
  const String home = ftp.FTPDirectory();
  EXPECT_TRUE(home.starts_with('/')) << home;
  ftp.FTPDirectory("in");
  EXPECT_EQ(ftp.FTPDirectory(), home + "/in");
  for (const eFTPTransferTypes type : {eFTPTransferTypes::FTP_ASCII, eFTPTransferTypes::FTP_BINARY}) {
    ftp.SetTransferType(type);
    for (const std::size_t size : {0U, 510U, 511U, 1'000'003U}) {
      const String bytes = Bytes(size);
      ASSERT_TRUE(ftp.FTPUploadFile(folder_.Put("a.zip", bytes), "a file.zip")) << ftp.LastErrorMessage();
      EXPECT_TRUE(server.Get("in/a file.zip") == bytes) << size;
      EXPECT_EQ(ftp.GetFTPFileSize("a file.zip"), static_cast<Long>(size)) << ftp.LastErrorMessage();
      ASSERT_TRUE(ftp.SimpleFTPGetFile(folder_.At("b.zip"), "a file.zip")) << ftp.LastErrorMessage();
      EXPECT_TRUE(folder_.Get("b.zip") == bytes);
      EXPECT_EQ(ftp.FTPDownloadFile(folder_.At("c.zip"), "a file.zip"), size > 0);
      EXPECT_TRUE(size == 0 || folder_.Get("c.zip") == bytes);
    }
  }
  EXPECT_TRUE(ftp.SimpleFTPPutFile(folder_.At("a.zip"), home + "/in/whole.zip"));
  EXPECT_TRUE(server.Has("in/whole.zip"));
  EXPECT_TRUE(ftp.RenameFTPFile("whole.zip", "new name.zip"));
  EXPECT_TRUE(server.Has("in/new name.zip"));
  EXPECT_TRUE(ftp.CreateFTPDirectory("sub folder"));
  EXPECT_TRUE(server.Has("in/sub folder"));
  EXPECT_FALSE(ftp.CreateFTPDirectory("sub folder"));
  EXPECT_EQ(ftp.LastErrorMessage(), "550 Create directory operation failed.");
  EXPECT_TRUE(ftp.RemoveFTPDirectory("sub folder"));
  EXPECT_TRUE(ftp.DeleteFTPFile("new name.zip"));
  EXPECT_FALSE(server.Has("in/new name.zip"));
  EXPECT_EQ(ftp.GetFTPFileSize("new name.zip"), -1);
  EXPECT_FALSE(ftp.FTPUploadFile(folder_.At("a.zip"), "no/where.zip"));
  EXPECT_EQ(ftp.LastErrorCode(), 12003);
  EXPECT_TRUE(ftp.FTPUploadFile(folder_.At("a.zip"), "behind a refusal.zip")) << ftp.LastErrorMessage();
}

TEST_P(VsftpdTest, AWrongPasswordIsRefused) {
  const Vsftpd server(GetParam().tls);
  const ScopedEnvironment trusted("SSL_CERT_FILE", server.Certificate());
  clsFTP ftp;
  EXPECT_FALSE(ftp.OpenConnection(server.Address(), "anonymous", "wrong"));
  EXPECT_EQ(ftp.LastErrorCode(), 12014);
}

using VsftpdTlsTest = VsftpdTest;

TEST_P(VsftpdTlsTest, ACertificateThatNobodyVouchesForIsRefused) {
  const Vsftpd server(true);
  const ScopedEnvironment trusted("SSL_CERT_FILE", std::nullopt);
  clsFTP ftp;
  EXPECT_FALSE(ftp.OpenConnection(server.Address(), "anonymous", "secret"));
  EXPECT_EQ(ftp.LastErrorCode(), 12029);
}

INSTANTIATE_TEST_SUITE_P(Modes, VsftpdTest,
                         testing::Values(Case{"ClearPassive", false, false}, Case{"ClearActive", false, true},
                                         Case{"TlsPassive", true, false}, Case{"TlsActive", true, true}),
                         [](const auto& info) { return String(info.param.name); });
INSTANTIATE_TEST_SUITE_P(Modes, VsftpdTlsTest, testing::Values(Case{"TlsPassive", true, false}),
                         [](const auto& info) { return String(info.param.name); });

}  // namespace
}  // namespace zelnor::test
