#include "zelnor/controller/clsFTP.h"

#include "support/fake_ftp_server.h"
#include "support/recording_host.h"
#include "support/scoped_environment.h"
#include "support/temporary_folder.h"
#include "support/unprotecting_ftp_server.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

using testing::ElementsAre;
using testing::Pair;

// Bytes of which no line end may change.
String Bytes(std::size_t count) {
  String bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += i % 7 == 0 ? '\n' : static_cast<char>(i);
  return bytes;
}

class FtpTest : public testing::Test {
 protected:
  FtpTest() {
    ftp_.TimeLimits(20'000, 20'000);
    ftp_.events.FileTransferProgress.connect(
        [this](Long& current, Long& total) { progress_.emplace_back(current, total); });
  }

  bool Open() { return ftp_.OpenConnection(server_.Address(), "ann", "secret"); }

  String Local(const String& bytes) const { return folder_.Put("local.zip", bytes); }

  void ExpectError(const String& operation, Long code, const String& text) const {
    EXPECT_EQ(ftp_.LastErrorMessage(),
              operation + "() Error - Code: " + std::to_string(code) + " Message: " + text);
    EXPECT_EQ(ftp_.SimpleLastErrorMessage(), text);
  }

  void ExpectReply(const String& reply) const {
    EXPECT_EQ(ftp_.LastErrorMessage(), reply);
    EXPECT_EQ(ftp_.SimpleLastErrorMessage(), "The FTP server refused the operation.");
  }

  TemporaryFolder folder_;
  WithRecordingHost host_;
  FakeFtpServer server_;
  clsFTP ftp_;
  std::vector<std::pair<Long, Long>> progress_;
};

TEST_F(FtpTest, StartsWithoutAnErrorAndUnconnected) {
  EXPECT_EQ(ftp_.LastErrorMessage(), "");
  EXPECT_EQ(ftp_.SimpleLastErrorMessage(), "");
  EXPECT_FALSE(ftp_.DeleteFTPFile("a"));
  ExpectError("DeleteFTPFile", 12029, "No connection, or no secure one, could be made to the FTP server.");
}

TEST_F(FtpTest, Uploads510BytesInTwoBlocks) {
  ASSERT_TRUE(Open()) << ftp_.LastErrorMessage();
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(Bytes(510)), "a.zip")) << ftp_.LastErrorMessage();
  EXPECT_THAT(progress_, ElementsAre(Pair(255, 510), Pair(510, 510), Pair(510, 510)));
  EXPECT_EQ(host_->yields, 2);
  EXPECT_EQ(server_.Files().at("a.zip"), Bytes(510));
  EXPECT_EQ(ftp_.LastErrorMessage(), "");
}

TEST_F(FtpTest, Uploads511BytesInTwoBlocksAndARest) {
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(Bytes(511)), "a.zip"));
  EXPECT_THAT(progress_, ElementsAre(Pair(255, 511), Pair(510, 511), Pair(511, 511)));
  EXPECT_EQ(host_->yields, 2);
  EXPECT_EQ(server_.Files().at("a.zip"), Bytes(511));
}

TEST_F(FtpTest, UploadsAnEmptyFile) {
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(""), "a.zip"));
  EXPECT_THAT(progress_, ElementsAre(Pair(0, 0)));
  EXPECT_EQ(server_.Files().at("a.zip"), "");
}

TEST_F(FtpTest, UploadsALargeFileWhole) {
  ASSERT_TRUE(Open());
  const String bytes = Bytes(300'000);
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(bytes), "a.zip"));
  EXPECT_EQ(progress_.size(), 300'000U / 255 + 1);
  EXPECT_TRUE(server_.Files().at("a.zip") == bytes);
}

TEST_F(FtpTest, DownloadsInTheSameBlocks) {
  for (const std::size_t size : {1U, 254U, 255U, 510U, 511U, 100'000U}) {
    server_.Put("there.zip", Bytes(size));
    progress_.clear();
    ASSERT_TRUE(Open());
    ASSERT_TRUE(ftp_.FTPDownloadFile(folder_.At("here.zip"), "there.zip")) << ftp_.LastErrorMessage();
    EXPECT_TRUE(folder_.Get("here.zip") == Bytes(size));
    EXPECT_EQ(progress_.size(), size / 255 + 1);
    EXPECT_EQ(progress_.back(), std::pair(static_cast<Long>(size), static_cast<Long>(size)));
  }
}

TEST_F(FtpTest, AnAsciiTransferIsAnnouncedAndAltersNothing) {
  const String text = "one\ntwo\r\nthree\n";
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(text), "a.txt"));
  EXPECT_EQ(server_.Files().at("a.txt"), text);
  EXPECT_THAT(server_.Commands(), testing::Contains("TYPE A"));
  ASSERT_TRUE(ftp_.SimpleFTPGetFile(folder_.At("b.txt"), "a.txt"));
  EXPECT_EQ(folder_.Get("b.txt"), text);
}

TEST_F(FtpTest, TheTransferTypeHoldsForTheNextTransfer) {
  const auto last_type = [&] {
    String type;
    for (const String& each : server_.Commands()) {
      if (each.starts_with("TYPE ")) type = each;
    }
    return type;
  };
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local("a"), "a"));
  EXPECT_EQ(last_type(), "TYPE A");
  ftp_.SetTransferType(eFTPTransferTypes::FTP_BINARY);
  ASSERT_TRUE(ftp_.FTPUploadFile(Local("a"), "a"));
  EXPECT_EQ(last_type(), "TYPE I");
  ftp_.SetTransferType(eFTPTransferTypes::FTP_ASCII);
  ASSERT_TRUE(ftp_.SimpleFTPPutFile(Local("a"), "a"));
  EXPECT_EQ(last_type(), "TYPE A");
}

TEST_F(FtpTest, OneConnectionServesAllOperations) {
  ASSERT_TRUE(Open());
  EXPECT_TRUE(ftp_.FTPUploadFile(Local("abc"), "a"));
  EXPECT_EQ(ftp_.GetFTPFileSize("a"), 3);
  EXPECT_FALSE(ftp_.DeleteFTPFile("a"));
  EXPECT_EQ(ftp_.FTPDirectory(), "/home/\"ann\"");
  EXPECT_TRUE(ftp_.SimpleFTPGetFile(folder_.At("b"), "a"));
  EXPECT_EQ(server_.Logins(), 1);
  EXPECT_EQ(server_.Count("CWD"), 0U);
  ftp_.CloseConnection();
  ftp_.CloseConnection();
  ASSERT_TRUE(Open());
  EXPECT_EQ(server_.Logins(), 2);
  EXPECT_EQ(server_.Count("QUIT"), 1U);
}

TEST_F(FtpTest, TheModeIsTakenAtTheConnection) {
  ASSERT_TRUE(Open());
  ftp_.SetMode(false);
  ASSERT_TRUE(ftp_.FTPUploadFile(Local("abc"), "a"));
  EXPECT_EQ(server_.Count("EPRT"), 1U);
  EXPECT_EQ(server_.Count("EPSV"), 0U);
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local("abcd"), "a"));
  EXPECT_EQ(server_.Count("EPRT"), 1U);
  EXPECT_EQ(server_.Count("EPSV"), 1U);
}

TEST_F(FtpTest, AnActiveConnectionGoesOnPassivelyWhereItMust) {
  server_.refuses_active = true;
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local("abc"), "a")) << ftp_.LastErrorMessage();
  EXPECT_EQ(server_.Files().at("a"), "abc");
  EXPECT_EQ(server_.Count("EPSV"), 1U);
  EXPECT_EQ(server_.Logins(), 1);
}

TEST_F(FtpTest, CommandsGoOutAsTheyStand) {
  for (const char* word : {"MKD", "RMD", "DELE", "CWD", "RNTO"}) server_.replies[word] = "250 Done";
  server_.replies["RNFR"] = "350 To what?";
  ASSERT_TRUE(Open());
  EXPECT_TRUE(ftp_.CreateFTPDirectory("a folder"));
  EXPECT_TRUE(ftp_.RemoveFTPDirectory("/b"));
  EXPECT_TRUE(ftp_.DeleteFTPFile("c%20d"));
  EXPECT_TRUE(ftp_.RenameFTPFile("old one", "../new"));
  ftp_.FTPDirectory("sub folder");
  const std::vector<String> commands = server_.Commands();
  EXPECT_THAT(
      std::vector(commands.end() - 6, commands.end()),
      ElementsAre("MKD a folder", "RMD /b", "DELE c%20d", "RNFR old one", "RNTO ../new", "CWD sub folder"));
  EXPECT_EQ(ftp_.LastErrorMessage(), "");
}

TEST_F(FtpTest, ARefusalGivesTheServersReply) {
  server_.replies["MKD"] = "550-No room\r\n for more\r\n550 at all";
  server_.replies["RNFR"] = "550 Not there";
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.CreateFTPDirectory("a"));
  ExpectReply("550-No room\r\n for more\r\n550 at all");
  EXPECT_FALSE(ftp_.RemoveFTPDirectory("a"));
  ExpectReply("502 Unknown here");
  EXPECT_FALSE(ftp_.RenameFTPFile("a", "b"));
  ExpectReply("550 Not there");
  EXPECT_EQ(server_.Count("RNTO"), 0U);
  ftp_.FTPDirectory("nowhere");
  ExpectReply("502 Unknown here");
  EXPECT_EQ(server_.Logins(), 1);
}

TEST_F(FtpTest, ALongReplyIsCut) {
  server_.replies["MKD"] = "550 " + String(5000, 'x');
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.CreateFTPDirectory("a"));
  EXPECT_EQ(ftp_.LastErrorMessage(), "550 " + String(2044, 'x'));
}

TEST_F(FtpTest, ARefusedLoginIsTold) {
  EXPECT_FALSE(ftp_.OpenConnection(server_.Address(), "ann", "wrong"));
  ExpectError("InternetConnect", 12014, "The FTP server refused the user name or the password.");
  EXPECT_FALSE(ftp_.OpenConnection(server_.Address(), "bob", "secret"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12014);
  EXPECT_TRUE(Open());
}

TEST_F(FtpTest, AServerThatIsFullUpTellsSo) {
  server_.greeting = "421 Too many users";
  EXPECT_FALSE(Open());
  ExpectReply("421 Too many users");
}

TEST_F(FtpTest, NobodyThereIsNotConnected) {
  EXPECT_FALSE(ftp_.OpenConnection("127.0.0.1:" + std::to_string(FreePort()), "ann", "secret"));
  ExpectError("InternetConnect", 12029, "No connection, or no secure one, could be made to the FTP server.");
}

TEST_F(FtpTest, ANameThatIsNoneIsNotResolved) {
  for (const char* name :
       {"", "a b", "ann@127.0.0.1", "127.0.0.1/x", "127.0.0.1:port", ":21", "no-such-host.invalid"}) {
    EXPECT_FALSE(ftp_.OpenConnection(name, "ann", "secret")) << name;
    ExpectError("InternetConnect", 12007, "The name of the FTP server could not be resolved.");
  }
  EXPECT_EQ(server_.Commands().size(), 0U);
}

TEST_F(FtpTest, AServerThatOffersTlsAndFailsGetsNoPassword) {
  server_.replies["AUTH"] = "234 Go on";
  server_.babbles_behind_auth = true;
  EXPECT_FALSE(Open());
  EXPECT_EQ(ftp_.LastErrorCode(), 12029);
  EXPECT_EQ(server_.Count("USER"), 0U);
  EXPECT_EQ(server_.Count("PASS"), 0U);
}

TEST_F(FtpTest, AServerThatWouldHaveFilesInTheClearIsRefused) {
  const UnprotectingFtpServer server;
  const ScopedEnvironment trusted("SSL_CERT_FILE", server.Certificate());
  EXPECT_FALSE(ftp_.OpenConnection(server.Address(), "ann", "secret"));
  ExpectError("InternetConnect", 12029, "No connection, or no secure one, could be made to the FTP server.");
  EXPECT_EQ(server.Commands().back(), "PROT");
}

TEST_F(FtpTest, NoSpaceIsToldByTheServersReply) {
  ASSERT_TRUE(Open());
  server_.replies["STOR"] = "552 The disk is full";
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(600)), "a"));
  ExpectReply("552 The disk is full");
  EXPECT_THAT(progress_, ElementsAre());
}

TEST_F(FtpTest, NoSpaceAtTheEndIsToldToo) {
  server_.replies["STORED"] = "552 The disk is full";
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(600)), "a"));
  ExpectReply("552 The disk is full");
  EXPECT_THAT(progress_, ElementsAre(Pair(255, 600), Pair(510, 600)));
}

TEST_F(FtpTest, NoSpaceInTheMiddleIsToldToo) {
  server_.full_after = 1000;
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(50'000'000)), "a"));
  ExpectReply("552 The disk is full");
  EXPECT_LT(progress_.back().first, 50'000'000) << "the rest is kept back";
}

TEST_F(FtpTest, ADropInTheMiddleIsAReset) {
  server_.drop_after = 100'000;
  server_.Put("b", Bytes(200'000));
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(20'000'000)), "a"));
  ExpectError("InternetWriteFile", 12031, "The connection to the FTP server was broken off.");
  EXPECT_FALSE(ftp_.CreateFTPDirectory("c"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12031);
  EXPECT_EQ(server_.Logins(), 1) << "no login that nobody asked for";
  ASSERT_TRUE(Open());
  folder_.Put("here", "old");
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("here"), "b"));
  ExpectError("InternetReadFile", 12031, "The connection to the FTP server was broken off.");
  EXPECT_EQ(folder_.Get("here"), "old");
}

TEST_F(FtpTest, ADropInTheRestIsToldUnderItsOwnName) {
  server_.drop.insert("STOR");
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(300)), "a"));
  ExpectError("FtpOpenFile:PutFile", 12031, "The connection to the FTP server was broken off.");
  server_.drop.clear();
  server_.Put("b", Bytes(300));
  server_.drop_after = 260;
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("b"), "b"));
  ExpectError("InternetReadFile2", 12031, "The connection to the FTP server was broken off.");
}

TEST_F(FtpTest, AConnectionThatDiedMeanwhileIsNotMadeAnew) {
  server_.drop.insert("MKD");
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.CreateFTPDirectory("a"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12031);
  EXPECT_FALSE(ftp_.FTPUploadFile(Local("a"), "a"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12031);
  EXPECT_EQ(server_.Count("PASS"), 1U);
  EXPECT_EQ(server_.Count("STOR"), 0U);
}

TEST_F(FtpTest, AShortDownloadIsAReset) {
  server_.replies["SIZE"] = "213 400";
  server_.Put("b", Bytes(300));
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("b"), "b"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12031);
  EXPECT_FALSE(std::filesystem::exists(folder_.At("b")));
}

TEST_F(FtpTest, SilenceIsATimeout) {
  ftp_.TimeLimits(20'000, 300);
  server_.silent = {"MKD"};
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.CreateFTPDirectory("a"));
  ExpectError("CreateFTPDirectory", 12002, "The FTP server did not answer in time.");
}

TEST_F(FtpTest, ASilentLoginIsATimeout) {
  ftp_.TimeLimits(20'000, 300);
  server_.silent = {"PASS"};
  EXPECT_FALSE(Open());
  ExpectError("InternetConnect", 12002, "The FTP server did not answer in time.");
}

TEST_F(FtpTest, AServerThatIsSilentAtTheGoodByeIsLeft) {
  ftp_.TimeLimits(20'000, 300);
  server_.silent = {"QUIT"};
  ASSERT_TRUE(Open());
  ftp_.CloseConnection();
  EXPECT_EQ(server_.Count("QUIT"), 1U);
  EXPECT_TRUE(Open());
}

TEST_F(FtpTest, AStallInTheMiddleIsATimeout) {
  ftp_.TimeLimits(20'000, 300);
  server_.stall_after = 100'000;
  server_.Put("b", Bytes(200'000));
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(Local(Bytes(20'000'000)), "a"));
  ExpectError("InternetWriteFile", 12002, "The FTP server did not answer in time.");
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("b"), "b"));
  ExpectError("InternetReadFile", 12002, "The FTP server did not answer in time.");
}

TEST_F(FtpTest, AMissingLocalFileIsTold) {
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile(folder_.At("none"), "a"));
  ExpectError("FtpOpenFile:PutFile", -1, "File not found");
  EXPECT_EQ(server_.Count("STOR"), 0U);
  EXPECT_FALSE(ftp_.SimpleFTPPutFile(folder_.At("none"), "a"));
  ExpectError("SimpleFtpPutFile", -1, "File not found");
}

TEST_F(FtpTest, AMissingRemoteFileIsTold) {
  ASSERT_TRUE(Open());
  EXPECT_EQ(ftp_.GetFTPFileSize("none"), -1);
  EXPECT_EQ(ftp_.LastErrorMessage(), "");
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("b"), "none"));
  ExpectError("FTPDownloadFile", -1, "FTP File Doesn't Exist");
  EXPECT_FALSE(ftp_.SimpleFTPGetFile(folder_.At("b"), "none"));
  ExpectReply("550 No such file");
  EXPECT_FALSE(std::filesystem::exists(folder_.At("b")));
  server_.Put("empty", "");
  EXPECT_FALSE(ftp_.FTPDownloadFile(folder_.At("b"), "empty"));
  EXPECT_TRUE(ftp_.SimpleFTPGetFile(folder_.At("b"), "empty"));
  EXPECT_TRUE(std::filesystem::exists(folder_.At("b")));
}

TEST_F(FtpTest, AnyOtherFailureOfTheSizeIsMinusTwo) {
  EXPECT_EQ(ftp_.GetFTPFileSize("a"), -2);
  server_.replies["SIZE"] = "500 What?";
  ASSERT_TRUE(Open());
  EXPECT_EQ(ftp_.GetFTPFileSize("a"), -2);
  ExpectReply("500 What?");
}

TEST_F(FtpTest, ASizeIsTheLowWord) {
  server_.replies["SIZE"] = "213 4294967301";
  ASSERT_TRUE(Open());
  EXPECT_EQ(ftp_.GetFTPFileSize("a"), 5);
}

TEST_F(FtpTest, ANameWithBlanksIsOneName) {
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile("  " + Local("abc") + " ", "  a b; c#?.zip  "));
  EXPECT_EQ(server_.Files().at("a b; c#?.zip"), "abc");
  EXPECT_EQ(ftp_.GetFTPFileSize("a b; c#?.zip"), 3);
  EXPECT_TRUE(ftp_.FTPDownloadFile(folder_.At("b"), " a b; c#?.zip "));
  EXPECT_EQ(folder_.Get("b"), "abc");
}

TEST_F(FtpTest, WithoutANameNothingHappens) {
  ASSERT_TRUE(Open());
  EXPECT_FALSE(ftp_.FTPUploadFile("  ", "a"));
  EXPECT_FALSE(ftp_.FTPUploadFile(Local("a"), " "));
  EXPECT_FALSE(ftp_.FTPDownloadFile("", "a"));
  EXPECT_FALSE(ftp_.FTPDownloadFile("a", ""));
  EXPECT_EQ(ftp_.LastErrorMessage(), "");
}

TEST_F(FtpTest, ANameNeverBecomesACommand) {
  ASSERT_TRUE(Open());
  const std::size_t before = server_.Commands().size();
  EXPECT_FALSE(ftp_.DeleteFTPFile("a\r\nDELE b"));
  ExpectError("DeleteFTPFile", -1, "Invalid procedure call or argument");
  EXPECT_FALSE(ftp_.SimpleFTPPutFile(Local("a"), "a\nDELE b"));
  EXPECT_EQ(ftp_.GetFTPFileSize("a\nDELE b"), -2);
  EXPECT_EQ(server_.Commands().size(), before);
  EXPECT_FALSE(ftp_.OpenConnection(server_.Address(), "ann\r\nDELE b", "secret"));
  EXPECT_EQ(server_.Count("DELE"), 0U);
}

TEST_F(FtpTest, WhatAHandlerRaisesReachesTheCaller) {
  ftp_.events.FileTransferProgress.connect([](Long&, Long&) { throw std::runtime_error("enough"); });
  ASSERT_TRUE(Open());
  EXPECT_THROW(ftp_.FTPUploadFile(Local(Bytes(600)), "a"), std::runtime_error);
  server_.Put("b", Bytes(600));
  ASSERT_TRUE(Open());
  EXPECT_THROW(ftp_.FTPDownloadFile(folder_.At("b"), "b"), std::runtime_error);
  EXPECT_FALSE(std::filesystem::exists(folder_.At("b")));
}

TEST_F(FtpTest, AHandlerMayChangeTheCount) {
  std::vector<Long> seen;
  ftp_.events.FileTransferProgress.connect([&](Long& current, Long&) {
    seen.push_back(current);
    current = 1000;
  });
  ASSERT_TRUE(Open());
  ASSERT_TRUE(ftp_.FTPUploadFile(Local(Bytes(511)), "a"));
  EXPECT_THAT(seen, ElementsAre(255, 1255, 1001));
  EXPECT_EQ(server_.Files().at("a").size(), 511U);
}

TEST_F(FtpTest, CallsFromWithinATransferAreRefusedAndAClosedOneEndsFirst) {
  bool deleted = true;
  bool opened = true;
  host_->on_yield = [&] {
    deleted = ftp_.DeleteFTPFile("b");
    opened = Open();
    ftp_.CloseConnection();
  };
  ASSERT_TRUE(Open());
  EXPECT_TRUE(ftp_.FTPUploadFile(Local(Bytes(300)), "a"));
  EXPECT_FALSE(deleted);
  EXPECT_FALSE(opened);
  EXPECT_EQ(server_.Files().at("a").size(), 300U);
  host_->on_yield = nullptr;
  EXPECT_FALSE(ftp_.DeleteFTPFile("b"));
  EXPECT_EQ(ftp_.LastErrorCode(), 12029);
}

TEST_F(FtpTest, AWaitIsBrokenOffOnRequest) {
  clsFTP patient;
  patient.StopWhen([] { return true; });
  server_.silent = {"MKD"};
  ASSERT_TRUE(Open());
  ftp_.CloseConnection();
  EXPECT_FALSE(patient.OpenConnection(server_.Address(), "ann", "secret") && patient.CreateFTPDirectory("a"));
  EXPECT_EQ(patient.LastErrorCode(), 12031);
}

}  // namespace
}  // namespace zelnor::test
