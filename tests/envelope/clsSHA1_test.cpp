#include "zelnor/envelope/clsSHA1.h"

#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

#include "envelope/sha1_peer.h"
#include "support/recording_host.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kEnvelope = "http://www.govtalk.gov.uk/CM/envelope";
constexpr const char* kFps = "http://www.govtalk.gov.uk/taxation/PAYE/RTI/FullPaymentSubmission/25-26/1";
constexpr const char* kKeys = R"(<Keys><Key Type="TaxOfficeNumber">961</Key></Keys>)";

// An envelope around a header of the given children.
String Envelope(const String& header) {
  return "<GovTalkMessage xmlns=\"" + String(kEnvelope) +
         "\"><EnvelopeVersion>2.0</EnvelopeVersion><Header></Header><GovTalkDetails></GovTalkDetails>"
         "<Body><IRenvelope xmlns=\"" +
         kFps + "\"><IRheader>" + header +
         "</IRheader><FullPaymentSubmission></FullPaymentSubmission></IRenvelope></Body></GovTalkMessage>";
}

// A program's folder of the test's own, in place before the first message reads its settings there.
class HomeOfItsOwn {
 public:
  HomeOfItsOwn() {
    SetProgramFolder(folder_.Path());
    FurnishProgramFolder();
  }
  HomeOfItsOwn(const HomeOfItsOwn&) = delete;
  HomeOfItsOwn& operator=(const HomeOfItsOwn&) = delete;
  ~HomeOfItsOwn() { SetProgramFolder(""); }

 private:
  test::TemporaryFolder folder_;
};

class clsSHA1Test : public testing::Test {
 protected:
  // Takes the marks of an envelope as it stands.
  XmlDocument Mark(const String& xml) {
    const XmlDocument document;
    EXPECT_TRUE(document.LoadXML(xml)) << document.ParseError().reason;
    message_.UseValidation(false);
    message_.Document(document);
    return sha1_.CreateIRMark(message_);
  }

  // The mark of such a header, and where it is put.
  std::vector<String> ChildrenOfMarkedHeader(const String& header) {
    const XmlNode marked = HeaderOf(Mark(Envelope(header)));
    std::vector<String> names;
    for (const XmlNode& child : marked.ChildNodes()) names.push_back(child.NodeName());
    return names;
  }

  static XmlNode HeaderOf(const XmlDocument& document) {
    return document.SelectSingleNode("//*[local-name()='IRheader']");
  }

  String DescriptionOfFailure(const std::function<void()>& body) {
    try {
      body();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), static_cast<Long>(0x80040200U));
      return error.Description();
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
  }

  HomeOfItsOwn home_;
  test::WithRecordingHost host_;
  clsGovTalkMessage message_;
  clsSHA1 sha1_;
};

using CreateIRMark = clsSHA1Test;
using CreateIRMark2 = clsSHA1Test;

TEST_F(CreateIRMark, IsTheDigestOfTheBodyWithTheEnvelopesNamespace) {
  Mark(Envelope(kKeys));
  const String body = "<Body xmlns=\"" + String(kEnvelope) + "\"><IRenvelope xmlns=\"" + kFps +
                      "\"><IRheader>" + kKeys +
                      "</IRheader><FullPaymentSubmission></FullPaymentSubmission></IRenvelope></Body>";
  EXPECT_EQ(sha1_.Base64Mark(), clsSHA1Peer::MarkOfText(body));
  EXPECT_EQ(sha1_.Base64Mark().size(), 28U);
  EXPECT_EQ(sha1_.Base32Mark(), clsSHA1Peer::Base64ToBase32(sha1_.Base64Mark(), 160));
  EXPECT_EQ(sha1_.Base32Mark().size(), 32U);
}

TEST_F(CreateIRMark, ABodyWithoutNamespaceIsHashedAsIfItHadTheEnvelopes) {
  const String text = Envelope(kKeys);
  Mark(text);
  const String mark = sha1_.Base64Mark();
  Mark(Replace(text, " xmlns=\"" + String(kEnvelope) + "\"", ""));
  EXPECT_EQ(sha1_.Base64Mark(), mark);
}

TEST_F(CreateIRMark, MarksAreEmptyAtFirstAndReplacedEachTime) {
  EXPECT_EQ(sha1_.Base64Mark(), "");
  EXPECT_EQ(sha1_.Base32Mark(), "");
  Mark(Envelope(kKeys));
  const String first = sha1_.Base64Mark();
  Mark(Envelope(String(kKeys) + "<Sender>Company</Sender>"));
  EXPECT_NE(sha1_.Base64Mark(), first);
}

TEST_F(CreateIRMark, AMarkThatIsThereChangesNothing) {
  Mark(Envelope(String(kKeys) + "<Sender>Company</Sender>"));
  const String mark = sha1_.Base64Mark();
  Mark(Envelope(String(kKeys) + "<IRmark Type=\"generic\">old</IRmark><Sender>Company</Sender>"));
  EXPECT_EQ(sha1_.Base64Mark(), mark);
  Mark(Envelope(String(kKeys) + "<IRmark></IRmark><Sender>Company</Sender>"));
  EXPECT_EQ(sha1_.Base64Mark(), mark);
}

TEST_F(CreateIRMark, ReplacesAnOldMarkAtItsPlace) {
  const XmlDocument marked = Mark(Envelope(
      String(kKeys) + "<Sender>Company</Sender><IRmark Type=\"SAonly\">old</IRmark><Other></Other>"));
  EXPECT_EQ(HeaderOf(marked).Xml(), "<IRheader xmlns=\"" + String(kFps) + "\">" + kKeys +
                                        "<Sender>Company</Sender><IRmark Type=\"generic\">" +
                                        sha1_.Base64Mark() + "</IRmark><Other></Other></IRheader>");
}

TEST_F(CreateIRMark, ReplacesAnOldMarkThatIsTheLastChild) {
  EXPECT_THAT(ChildrenOfMarkedHeader(String(kKeys) + "<Sender></Sender><IRmark>old</IRmark>"),
              ElementsAre("Keys", "Sender", "IRmark"));
}

TEST_F(CreateIRMark, StandsBehindTheFirstOfTheListThatIsThere) {
  EXPECT_THAT(
      ChildrenOfMarkedHeader("<Keys/><PeriodEnd/><Principal/><Agent/><DefaultCurrency/><Manifest/><Sender/>"),
      ElementsAre("Keys", "PeriodEnd", "Principal", "Agent", "DefaultCurrency", "Manifest", "IRmark",
                  "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Keys/><PeriodEnd/><Principal/><Agent/><DefaultCurrency/><Sender/>"),
              ElementsAre("Keys", "PeriodEnd", "Principal", "Agent", "DefaultCurrency", "IRmark", "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Keys/><PeriodEnd/><Principal/><Agent/><Sender/>"),
              ElementsAre("Keys", "PeriodEnd", "Principal", "Agent", "IRmark", "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Keys/><PeriodEnd/><Principal/><Sender/>"),
              ElementsAre("Keys", "PeriodEnd", "Principal", "IRmark", "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Keys/><PeriodEnd/><Sender/>"),
              ElementsAre("Keys", "PeriodEnd", "IRmark", "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Keys/><Sender/>"), ElementsAre("Keys", "IRmark", "Sender"));
  EXPECT_THAT(ChildrenOfMarkedHeader("<Sender/><Keys/>"), ElementsAre("Sender", "Keys", "IRmark"));
}

TEST_F(CreateIRMark, TheListsOrderCountsAndNotTheDocuments) {
  EXPECT_THAT(ChildrenOfMarkedHeader("<Manifest/><Keys/><PeriodEnd/>"),
              ElementsAre("Manifest", "IRmark", "Keys", "PeriodEnd"));
}

TEST_F(CreateIRMark, TakesTheHeadersNamespaceAndTheGenericType) {
  const XmlNode mark = HeaderOf(Mark(Envelope(kKeys))).FindChild("IRmark");
  EXPECT_EQ(mark.NamespaceURI(), kFps);
  EXPECT_EQ(mark.Attribute("Type"), "generic");
  EXPECT_EQ(mark.Text(), sha1_.Base64Mark());
  EXPECT_EQ(mark.Attributes().size(), 1U);
}

TEST_F(CreateIRMark, AHeadersOwnDeclarationWins) {
  const XmlDocument marked = Mark(Replace(Envelope(kKeys), "<IRheader>", "<IRheader xmlns=\"urn:header\">"));
  EXPECT_EQ(HeaderOf(marked).FindChild("IRmark").NamespaceURI(), "urn:header");
}

TEST_F(CreateIRMark, AHeaderWithoutNamespaceGetsAPlainMark) {
  const XmlDocument marked = Mark(Replace(Replace(Envelope(kKeys), " xmlns=\"" + String(kFps) + "\"", ""),
                                          " xmlns=\"" + String(kEnvelope) + "\"", ""));
  EXPECT_EQ(HeaderOf(marked).FindChild("IRmark").NamespaceURI(), "");
}

TEST_F(CreateIRMark, IsStoredInTheDocumentsHeader) {
  Mark(Envelope(String(kKeys) + "<IRmark Type=\"generic\">old</IRmark>"));
  EXPECT_EQ(message_.SubmissionDocument()->Header()->DocIRMark()->value(), sha1_.Base64Mark());
}

TEST_F(CreateIRMark, GivesANewDocumentAndLeavesTheMessagesAlone) {
  const XmlDocument marked = Mark(Envelope(kKeys));
  EXPECT_FALSE(marked == message_.Document());
  EXPECT_THAT(message_.XML(), testing::Not(HasSubstr("IRmark")));
  EXPECT_THAT(marked.Xml(), HasSubstr("<IRmark Type=\"generic\">" + sha1_.Base64Mark() + "</IRmark>"));
}

TEST_F(CreateIRMark, WhiteSpaceBetweenElementsDoesNotCount) {
  const String text = Envelope(kKeys);
  Mark(text);
  const String mark = sha1_.Base64Mark();
  Mark(Replace(text, "><", ">\r\n\t  <"));
  EXPECT_EQ(sha1_.Base64Mark(), mark);
}

TEST_F(CreateIRMark, HashesThePoundSignAsOneByte) {
  Mark(Envelope(String(kKeys) + "<Sender>\xC2\xA3</Sender>"));
  const String body = "<Body xmlns=\"" + String(kEnvelope) + "\"><IRenvelope xmlns=\"" + kFps +
                      "\"><IRheader>" + kKeys +
                      "<Sender>\xC2\xA3</Sender></IRheader><FullPaymentSubmission></FullPaymentSubmission></"
                      "IRenvelope></Body>";
  EXPECT_EQ(sha1_.Base64Mark(), clsSHA1Peer::MarkOfText(body));
}

TEST_F(CreateIRMark, WithoutAPlaceForTheMarkRaises) {
  EXPECT_EQ(DescriptionOfFailure([&] { Mark(Envelope("<Sender>Company</Sender>")); }),
            "Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - Object variable or With "
            "block variable "
            "not set");
  // An old mark that is the first child has nothing before it.
  EXPECT_THAT(DescriptionOfFailure([&] { Mark(Envelope("<IRmark>old</IRmark>" + String(kKeys))); }),
              StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - "));
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(CreateIRMark, AnEnvelopeWithoutBodyRaises) {
  EXPECT_THAT(DescriptionOfFailure([&] { Mark("<GovTalkMessage><Header/></GovTalkMessage>"); }),
              StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - "));
}

TEST_F(clsSHA1Test, MarkedTextIsTheTextOfTheDocumentThatCreateIRMarkReturns) {
  const String keys = kKeys;
  for (const String& header : {
           keys,
           keys + "<Sender>Company</Sender>",
           keys + "<IRmark Type=\"generic\">old</IRmark><Sender>Company</Sender>",
           "\n  " + keys + "\n<DefaultCurrency> </DefaultCurrency>\n<Sender>\xC2\xA3 &amp; &lt;</Sender>",
           keys + " <Sender> <![CDATA[Company]]></Sender> <Other xml:space=\"preserve\"> </Other>",
       }) {
    const XmlDocument document;
    document.PreserveWhiteSpace(true);
    ASSERT_TRUE(document.LoadXML(Envelope(header)));
    message_.UseValidation(false);
    message_.Document(document);
    const String before = message_.XML();
    const String expected = sha1_.CreateIRMark(message_).Xml();
    clsSHA1 other;
    EXPECT_EQ(other.MarkedText(message_), expected) << header;
    EXPECT_EQ(other.Base64Mark(), sha1_.Base64Mark());
    EXPECT_EQ(other.Base32Mark(), sha1_.Base32Mark());
    EXPECT_EQ(message_.SubmissionDocument()->Header()->DocIRMark()->value(), sha1_.Base64Mark());
    EXPECT_EQ(message_.XML(), before) << "the message's own document is as it was";
  }
}

TEST_F(clsSHA1Test, MarkedTextRaisesWithoutAPlaceForTheMark) {
  for (const char* header : {"<Sender>Company</Sender>", "<IRmark>old</IRmark><Keys/>"}) {
    const XmlDocument document;
    document.LoadXML(Envelope(header));
    message_.Document(document);
    const String before = message_.XML();
    EXPECT_THAT(DescriptionOfFailure([&] { sha1_.MarkedText(message_); }),
                StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - "));
    EXPECT_EQ(message_.XML(), before);
  }
}

TEST_F(clsSHA1Test, MarkSubmissionStoresTheSameMark) {
  Mark(Envelope(String(kKeys) + "<Sender>Company</Sender>"));
  const String mark = sha1_.Base64Mark();
  message_.SubmissionDocument()->Header()->DocIRMark()->value("");
  clsSHA1 other;
  other.MarkSubmission(message_);
  EXPECT_EQ(other.Base64Mark(), mark);
  EXPECT_EQ(other.Base32Mark(), sha1_.Base32Mark());
  EXPECT_EQ(message_.SubmissionDocument()->Header()->DocIRMark()->value(), mark);
}

TEST_F(clsSHA1Test, MarkSubmissionMarksADocumentWithItsWhiteSpaceAsCreateIRMarkDoes) {
  const XmlDocument document;
  document.PreserveWhiteSpace(true);
  ASSERT_TRUE(document.LoadXML(Envelope("\n  " + String(kKeys) + "\n<DefaultCurrency> </DefaultCurrency>")));
  message_.UseValidation(false);
  message_.Document(document);
  sha1_.CreateIRMark(message_);
  clsSHA1 other;
  other.MarkSubmission(message_);
  EXPECT_EQ(other.Base64Mark(), sha1_.Base64Mark());
}

TEST_F(clsSHA1Test, MarkSubmissionRaisesWithoutAPlaceForTheMark) {
  const XmlDocument document;
  document.LoadXML(Envelope("<Sender>Company</Sender>"));
  message_.Document(document);
  EXPECT_EQ(DescriptionOfFailure([&] { sha1_.MarkSubmission(message_); }),
            "Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark: Error Number = 91 - Object variable or With "
            "block variable "
            "not set");
}

TEST_F(CreateIRMark2, AgreesWithCreateIRMarkOnMarkedText) {
  const String text =
      Envelope(String(kKeys) + "<IRmark Type=\"generic\">old</IRmark><Sender>Company</Sender>");
  Mark(text);
  EXPECT_EQ(clsSHA1().CreateIRMark2(text), sha1_.Base64Mark());
}

TEST_F(CreateIRMark2, ChangesNoProperty) {
  Mark(Envelope(kKeys));
  const String mark = sha1_.Base64Mark();
  sha1_.CreateIRMark2(Envelope(String(kKeys) + "<IRmark>old</IRmark><Sender>Other</Sender>"));
  EXPECT_EQ(sha1_.Base64Mark(), mark);
}

TEST_F(CreateIRMark2, WithoutGovTalkDetailsStartsAtCharacter17) {
  const String body = "<Body><a>1</a><IRmark>old</IRmark></Body>";
  const String expected =
      clsSHA1Peer::MarkOfText("<Body xmlns=\"" + String(kEnvelope) + "\"><a>1</a></Body>");
  EXPECT_EQ(sha1_.CreateIRMark2("0123456789abcdef" + body), expected);
  // Characters are counted, not bytes.
  EXPECT_EQ(sha1_.CreateIRMark2("0123456789abcd\xE2\x82\xAC\xC2\xA3" + body), expected);
}

TEST_F(CreateIRMark2, DropsTabsAndHashesEmptyElementsAsPairs) {
  const String expected =
      clsSHA1Peer::MarkOfText("<Body xmlns=\"" + String(kEnvelope) + "\"><a></a>it's 1</Body>");
  EXPECT_EQ(sha1_.CreateIRMark2("</GovTalkDetails><Body>\t<a/>it&apos;s\t 1<IRmark/></IRmark></Body>"),
            expected);
}

TEST_F(CreateIRMark2, WithoutAMarkRaises) {
  EXPECT_EQ(DescriptionOfFailure([&] { sha1_.CreateIRMark2(Envelope(kKeys)); }),
            "Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark2: Error Number = 5 - Invalid procedure call or "
            "argument");
  EXPECT_THAT(DescriptionOfFailure([&] { sha1_.CreateIRMark2(Envelope("<IRmark>")); }),
              StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark2: Error Number = 5 - "));
}

TEST_F(CreateIRMark2, WithoutABodysEndRaises) {
  EXPECT_THAT(DescriptionOfFailure([&] { sha1_.CreateIRMark2(""); }),
              StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark2: Error Number = 5 - "));
  EXPECT_THAT(DescriptionOfFailure([&] { sha1_.CreateIRMark2("</GovTalkDetails><Body><IRmark>x</IRmark>"); }),
              StartsWith("Error in ZELNOR.dll::clsSHA1::Sub CreateIRMark2: Error Number = 5 - "));
}

}  // namespace
}  // namespace zelnor
