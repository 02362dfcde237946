/// @file
/// The marks held against other programs: the canonical form by xmllint, its digest by openssl.

#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include <algorithm>
#include <filesystem>

#include "envelope/sha1_peer.h"
#include "support/recording_host.h"
#include "support/shell.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

constexpr const char* kEnvelope = "http://www.govtalk.gov.uk/CM/envelope";

// The folder of the messages that HMRC publishes; empty when there is none.
String PublishedFolder() {
  const char* folder = std::getenv("ZELNOR_PUBLISHED_SAMPLES");
  return folder == nullptr ? "" : folder;
}

std::vector<String> XmlFilesIn(const String& folder) {
  std::vector<String> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".xml") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// What is between two texts, both included; empty when they are not there.
String Cut(const String& text, const String& from, const String& to) {
  const std::size_t begin = text.find(from);
  const std::size_t end = begin == String::npos ? begin : text.find(to, begin);
  return end == String::npos ? "" : text.substr(begin, end + to.size() - begin);
}

// The text of a message's body as it is hashed by others: without the mark, with the envelope's namespace.
String BodyText(const String& message) {
  const String body = Cut(message, "<Body", "</Body>");
  return Replace(Replace(body, Cut(body, "<IRmark", "</IRmark>"), ""), "<Body>",
                 "<Body xmlns=\"" + String(kEnvelope) + "\">");
}

// A message; a file that holds a body alone gets an envelope.
String MessageIn(const String& file) {
  const String text = ReadFile(file);
  if (text.find("<GovTalkMessage") != String::npos) return text;
  return "<GovTalkMessage xmlns=\"" + String(kEnvelope) + "\"><EnvelopeVersion>2.0</EnvelopeVersion>" + text +
         "</GovTalkMessage>";
}

class IRMarkWitness : public testing::Test {
 protected:
  IRMarkWitness() {
    SetProgramFolder(folder_.At("home"));
    FurnishProgramFolder();
  }
  ~IRMarkWitness() override { SetProgramFolder(""); }

  void SetUp() override {
    if (!test::HasPrograms("xmllint") || !test::HasPrograms("openssl")) {
      GTEST_SKIP() << "xmllint and openssl are not both installed";
    }
  }

  // The mark of a message by the other programs, of the body without white space between its elements or with
  // it.
  String Witnessed(const String& message, const String& options) {
    const String file = folder_.Put("body.xml", BodyText(message));
    const std::string canonical = folder_.At("canonical");
    return test::OutputOf("xmllint " + options + " --c14n '" + file + "' > '" + canonical +
                          "' && openssl dgst -sha1 -binary '" + canonical + "' | openssl base64");
  }

  static String MarkOf(const String& xml) {
    const XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << document.ParseError().reason;
    clsGovTalkMessage message;
    message.UseValidation(false);
    message.Document(document);
    clsSHA1 sha1;
    sha1.CreateIRMark(message);
    return sha1.Base64Mark();
  }

  // A message read as objects, marked and written anew, as it is saved.
  static String Rewritten(const String& xml) {
    const XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << document.ParseError().reason;
    clsGovTalkMessage message;
    message.UseValidation(false);
    message.Document(document);
    message.SubmissionDocument()->OverrideCompression(true);
    message.SubmissionDocument()->Header()->DocIRMark()->value("");
    message.ForceRebuild();
    clsSHA1().MarkSubmission(message);
    message.ForceRebuild();
    return message.XML();
  }

  void ExpectMarksAgree(const String& folder) {
    const std::vector<String> files = XmlFilesIn(folder);
    EXPECT_FALSE(files.empty()) << folder;
    for (const String& file : files) {
      const String message = MessageIn(file);
      EXPECT_EQ(MarkOf(message), Witnessed(message, "--noblanks")) << file;
    }
  }

  // The mark in a document that this system wrote is the one of its bytes as they stand.
  void ExpectWrittenMarksAreRight(const String& folder) {
    for (const String& file : XmlFilesIn(folder)) {
      const String written = Rewritten(MessageIn(file));
      const String mark = Cut(written, "<IRmark", "</IRmark>");
      EXPECT_EQ(mark, "<IRmark Type=\"generic\">" + Witnessed(written, "") + "</IRmark>") << file;
    }
  }

  test::TemporaryFolder folder_;
  test::WithRecordingHost host_;
};

class PublishedIRMarks : public IRMarkWitness {
 protected:
  void SetUp() override {
    IRMarkWitness::SetUp();
    if (PublishedFolder().empty()) GTEST_SKIP() << "ZELNOR_PUBLISHED_SAMPLES names no folder";
  }
};

TEST_F(IRMarkWitness, AgreesOnOurSamples) { ExpectMarksAgree(ZELNOR_SOURCE_DIR "/samples"); }

TEST_F(IRMarkWitness, AgreesOnWhatWeWriteOfOurSamples) {
  ExpectWrittenMarksAreRight(ZELNOR_SOURCE_DIR "/samples");
}

TEST_F(IRMarkWitness, AgreesOnTextThatNeedsEscaping) {
  const String message =
      "<GovTalkMessage xmlns=\"" + String(kEnvelope) +
      "\"><Body><IRenvelope xmlns=\"urn:x\"><IRheader><Keys><Key Type=\"a &quot;&lt;&amp;>\">&amp;&lt;&gt;"
      "\"'</Key></Keys></IRheader></IRenvelope></Body></GovTalkMessage>";
  EXPECT_EQ(MarkOf(message), Witnessed(message, "--noblanks"));
}

TEST_F(PublishedIRMarks, AgreeWithTheWitness) { ExpectMarksAgree(PublishedFolder()); }

TEST_F(PublishedIRMarks, AgreeOnWhatWeWrite) { ExpectWrittenMarksAreRight(PublishedFolder()); }

TEST_F(PublishedIRMarks, AreThePrintedOnesWhereThereIsNoWhiteSpace) {
  EXPECT_EQ(MarkOf(MessageIn(PublishedFolder() + "/FPS-2018-19-body.xml")), "j+VBpG6b8EIuz8ldUAjkKboMmU4=");
}

TEST_F(PublishedIRMarks, AreThePrintedOnesOfBodiesWithTheirWhiteSpace) {
  for (const char* name : {"FPS", "EPS", "EYU", "NVR"}) {
    const XmlDocument document;
    document.PreserveWhiteSpace(true);
    ASSERT_TRUE(document.Load(PublishedFolder() + "/" + name + "-2014-15.xml"))
        << document.ParseError().reason;
    const XmlNode body = document.SelectSingleNode("/*/*[local-name()='Body']");
    const XmlNode mark = body.SelectSingleNode(".//*[local-name()='IRmark']");
    const String printed = mark.Text();
    mark.ParentNode().RemoveChild(mark);
    EXPECT_EQ(clsSHA1Peer::MarkOfText(body.Xml()), printed) << name;
  }
}

}  // namespace
}  // namespace zelnor
