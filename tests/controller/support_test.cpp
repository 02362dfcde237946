// A submission and its log on their way to the support site.

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/controller/clsFTP.h"

#include "controller/controller_fixture.h"
#include "support/fake_ftp_server.h"
#include "support/shell.h"

namespace zelnor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class SupportTest : public ControllerTest {
 protected:
  // A controller that has saved the sample.
  std::unique_ptr<clsRTIController> Saved() const {
    auto rti = std::make_unique<clsRTIController>();
    rti->ReadXML(Sample());
    rti->SaveSubmission(folder_.At("out/fps.xml"));
    host_->messages.clear();
    return rti;
  }

  bool Send(clsRTIController& rti) { return rti.FTPToSupport(server_.Address(), "ann", "secret"); }

  // The log's lines from the attempt on.
  static std::vector<String> LinesOfTheAttempt(const clsRTIController& rti) {
    const std::vector<String> lines = Lines(rti);
    return {std::find(lines.begin(), lines.end(), "Attempting FTP upload..."), lines.end()};
  }

  std::vector<String> FoundLines() const {
    return {"Attempting FTP upload...", "Submission file found... " + folder_.At("out/fps.xml"),
            "Forcing log save. No further entries in this log will be submitted for FTP unless the FTP "
            "process is "
            "commenced again later.",
            "Attempting to create Zip file containing Submission and Log files..."};
  }

  // The archives that are left in the program's folder.
  std::size_t Archives() const {
    std::size_t count = 0;
    for (const auto& each : std::filesystem::recursive_directory_iterator(folder_.Path())) {
      count += each.path().extension() == ".zip" ? 1U : 0U;
    }
    return count;
  }

  FakeFtpServer server_;
};

TEST_F(SupportTest, WithoutASavedSubmissionNothingIsSent) {
  clsRTIController rti;
  EXPECT_FALSE(Send(rti));
  EXPECT_THAT(LinesOfTheAttempt(rti),
              ElementsAre("Attempting FTP upload...", "FTP upload failed - no submission file to send."));
  EXPECT_THAT(server_.Commands(), ElementsAre());
  EXPECT_EQ(Archives(), 0U);
  EXPECT_THAT(host_->messages, testing::IsEmpty());
  EXPECT_THAT(ReadFile(rti.ProcessingLog()->LogFilePath()), HasSubstr("no submission file to send"));
}

TEST_F(SupportTest, SendsSubmissionAndLogInOneArchive) {
  const auto rti = Saved();
  EXPECT_TRUE(Send(*rti));
  std::vector<String> lines = FoundLines();
  lines.emplace_back("Zip file created... attempting to send via FTP");
  lines.emplace_back("FTP upload succeeded.");
  EXPECT_EQ(LinesOfTheAttempt(*rti), lines);
  EXPECT_EQ(Archives(), 0U) << "deleted when done";
  EXPECT_THAT(host_->messages, testing::IsEmpty());

  ASSERT_EQ(server_.Files().size(), 1U);
  const auto [name, bytes] = *server_.Files().begin();
  EXPECT_EQ(name.find_first_of("/\\"), String::npos) << name;
  EXPECT_TRUE(name.ends_with(".zip"));
  EXPECT_EQ(server_.Count("QUIT"), 1U);
  EXPECT_THAT(server_.Commands(), testing::Not(Contains("TYPE A")));
  const String log_name = GetFileName(rti->ProcessingLog()->LogFilePath());
  const String zip = folder_.Put("received.zip", bytes);
  EXPECT_THAT(OutputOf("unzip -Z1 '" + zip + "' | sort"),
              OutputOf("printf '%s\\n' fps.xml " + log_name + " | sort"));
  EXPECT_EQ(OutputOf("unzip -p '" + zip + "' fps.xml"), OutputOf("cat '" + folder_.At("out/fps.xml") + "'"));
  const String sent_log = OutputOf("unzip -p '" + zip + "' " + log_name);
  EXPECT_THAT(sent_log, HasSubstr("Forcing log save."));
  EXPECT_THAT(sent_log, testing::Not(HasSubstr("FTP upload succeeded.")));
  EXPECT_THAT(ReadFile(rti->ProcessingLog()->LogFilePath()), HasSubstr("FTP upload succeeded."));
}

TEST_F(SupportTest, ARefusedLoginIsLogged) {
  const auto rti = Saved();
  EXPECT_FALSE(rti->FTPToSupport(server_.Address(), "ann", "wrong"));
  EXPECT_EQ(LinesOfTheAttempt(*rti).back(),
            "FTP upload failed - The FTP server refused the user name or the password.");
  EXPECT_EQ(server_.Files().size(), 0U);
  EXPECT_EQ(Archives(), 0U);
}

TEST_F(SupportTest, AServerThatIsNotThereIsLogged) {
  const auto rti = Saved();
  EXPECT_FALSE(rti->FTPToSupport("127.0.0.1:" + std::to_string(FreePort()), "ann", "secret"));
  EXPECT_EQ(LinesOfTheAttempt(*rti).back(),
            "FTP upload failed - No connection, or no secure one, could be made to the FTP server.");
}

TEST_F(SupportTest, ARefusedFileIsLogged) {
  server_.replies["STOR"] = "552 The disk is full";
  const auto rti = Saved();
  clsFTP ftp;
  EXPECT_FALSE(rti->SendToSupport(ftp, server_.Address(), "ann", "secret").sent);
  EXPECT_EQ(LinesOfTheAttempt(*rti).back(), "FTP upload failed - The FTP server refused the operation.");
  EXPECT_EQ(ftp.LastErrorMessage(), "552 The disk is full");
  EXPECT_EQ(Archives(), 0U);
}

TEST_F(SupportTest, AFileThatIsGoneMakesNoArchive) {
  const auto rti = Saved();
  std::filesystem::remove(folder_.At("out/fps.xml"));
  EXPECT_FALSE(Send(*rti));
  EXPECT_EQ(LinesOfTheAttempt(*rti).back(), "FTP upload failed - could not create ZIP file.");
  EXPECT_THAT(server_.Commands(), ElementsAre());
  EXPECT_EQ(Archives(), 0U);
}

TEST_F(SupportTest, AnErrorOnTheWayIsShownAndLogged) {
  const auto rti = Saved();
  host_->on_yield = [] { ThrowTypeMismatch(); };
  EXPECT_FALSE(Send(*rti));
  host_->on_yield = nullptr;
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsRTIController: Function FTPToSupport: Error 13 - Type mismatch");
  EXPECT_EQ(LinesOfTheAttempt(*rti).back(), "An error occurred while attempting FTP: Type mismatch");
  EXPECT_THAT(ReadFile(rti->ProcessingLog()->LogFilePath()), HasSubstr("while attempting FTP"));
  EXPECT_EQ(Archives(), 0U);
}

TEST_F(SupportTest, ASessionWithoutALogSendsTheFileAlone) {
  const auto rti = Saved();
  rti->LogThisSession(false);
  EXPECT_TRUE(Send(*rti));
  ASSERT_EQ(server_.Files().size(), 1U);
  const String zip = folder_.Put("received.zip", server_.Files().begin()->second);
  EXPECT_EQ(OutputOf("unzip -Z1 '" + zip + "'"), "fps.xml");
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

}  // namespace
}  // namespace zelnor::test
