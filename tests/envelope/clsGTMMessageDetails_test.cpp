#include "zelnor/envelope/clsGTMMessageDetails.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const std::vector<RTI_SEND_MODE> kModes = {
    RTI_SEND_MODE::Live,    RTI_SEND_MODE::FileOnly,    RTI_SEND_MODE::Test,       RTI_SEND_MODE::DevLive,
    RTI_SEND_MODE::DevTest, RTI_SEND_MODE::DevFileLive, RTI_SEND_MODE::DevFileTest};

const Date kDay = Date::FromParts(2026, 5, 6);

int Number(RTI_SEND_MODE mode) { return static_cast<int>(mode); }

// The modes in which the application sets the gateway's fields.
bool IsDevelopment(RTI_SEND_MODE mode) { return Number(mode) >= 3 && Number(mode) <= 6; }

String Before(const String& xml, const String& end) { return xml.substr(0, xml.find(end)); }

}  // namespace

TEST(clsGTMMessageDetails, ANewOneIsARequestToSubmit) {
  clsGTMMessageDetails details;
  EXPECT_EQ(details.Qualifier(), "request");
  EXPECT_EQ(details.MessageFunction(), "submit");
  EXPECT_EQ(details.Mode(), RTI_SEND_MODE::Live);
  EXPECT_EQ(Written(details),
            "<MessageDetails><Class></Class><Qualifier>request</Qualifier><Function>submit</Function>"
            "<Transformation>XML</Transformation></MessageDetails>");
}

TEST(clsGTMMessageDetails, WritesEveryRowOfItsTableInOrder) {
  clsGTMMessageDetails details;
  details.Mode(RTI_SEND_MODE::DevFileTest);
  details.Class("HMRC-PAYE-RTI-FPS");
  details.Create(true, kDay, TYPE_TRANSFORMATION::HTML, "T1", "A1", "C1", "http://gateway.example/poll", 10);
  EXPECT_EQ(
      Written(details),
      "<MessageDetails><Class>HMRC-PAYE-RTI-FPS</Class><Qualifier>request</Qualifier>"
      "<Function>submit</Function><TransactionID>T1</TransactionID><AuditID>A1</AuditID>"
      "<CorrelationID>C1</CorrelationID><ResponseEndPoint PollInterval=\"10\">http://gateway.example/poll"
      "</ResponseEndPoint><Transformation>HTML</Transformation><GatewayTest>1</GatewayTest>"
      "</MessageDetails>");
}

TEST(clsGTMMessageDetails, LeavesOutWhatIsEmptyAndWhatAFormerBuildLeft) {
  clsGTMMessageDetails details;
  details.Qualifier("");
  details.MessageFunction("");
  EXPECT_EQ(
      ParentAfterWriting(details,
                         "<P><MessageDetails><AuditID>1</AuditID><GatewayTest>1</GatewayTest>"
                         "<GatewayTimestamp>2026-05-06</GatewayTimestamp><ResponseEndPoint PollInterval="
                         "\"9\">x</ResponseEndPoint></MessageDetails></P>"),
      "<P><MessageDetails><Class></Class><Qualifier></Qualifier><Transformation>XML</Transformation>"
      "</MessageDetails></P>");
}

TEST(clsGTMMessageDetails, TheTestFlagIsWrittenByTheModeAlone) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.Mode(mode);
    details.GatewayTest(true);
    const XmlNode flag = details.ToXML(Root("<P/>")).FindChild("GatewayTest");
    const bool expected = Number(mode) == 2 || Number(mode) == 4 || Number(mode) == 6;
    EXPECT_EQ(static_cast<bool>(flag), expected) << Number(mode);
    if (flag) {
      EXPECT_EQ(flag.Text(), "1");
    }
  }
}

TEST(clsGTMMessageDetails, TheDateIsNeverWritten) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.Mode(mode);
    details.GatewayTimestamp(kDay);
    EXPECT_FALSE(details.ToXML(Root("<P/>")).FindChild("GatewayTimestamp")) << Number(mode);
  }
}

TEST(clsGTMMessageDetails, TheClassReadsWithTheNameOfTheTestServiceInTwoModes) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.Mode(mode);
    EXPECT_EQ(details.Class(), "");
    details.Class("HMRC-PAYE-RTI-EPS");
    const bool test = Number(mode) == 2 || Number(mode) == 4;
    for (int read = 0; read < 2; ++read)
      EXPECT_EQ(details.Class(), test ? "HMRC-PAYE-RTI-EPS-TIL" : "HMRC-PAYE-RTI-EPS") << Number(mode);
    EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("Class").Text(), "HMRC-PAYE-RTI-EPS") << Number(mode);
  }
}

TEST(clsGTMMessageDetails, TheTestFlagReadsAsStoredInDevelopmentAndFalseElsewhere) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.Mode(mode);
    details.GatewayTest(true);
    EXPECT_EQ(details.GatewayTest(), IsDevelopment(mode)) << Number(mode);
    details.Mode(RTI_SEND_MODE::DevLive);
    EXPECT_TRUE(details.GatewayTest()) << "the read left the stored flag, in " << Number(mode);
  }
}

TEST(clsGTMMessageDetails, TheDateReadsAsStoredInDevelopmentAndElsewhereEndsTheTest) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.Mode(mode);
    details.GatewayTest(true);
    details.GatewayTimestamp(kDay);
    EXPECT_EQ(details.GatewayTimestamp(), IsDevelopment(mode) ? kDay : Date()) << Number(mode);
    details.Mode(RTI_SEND_MODE::DevLive);
    EXPECT_EQ(details.GatewayTest(), IsDevelopment(mode)) << Number(mode);
    EXPECT_EQ(details.GatewayTimestamp(), kDay) << Number(mode);
  }
}

TEST(clsGTMMessageDetails, CreateTakesTheGatewaysFieldsInDevelopmentOnly) {
  for (const RTI_SEND_MODE mode : kModes) {
    clsGTMMessageDetails details;
    details.GatewayTest(true);
    details.Mode(mode);
    details.Validated(true);
    details.Create(true, kDay, TYPE_TRANSFORMATION::Text, "T", "A", "C", "E");
    EXPECT_FALSE(details.Validated());
    EXPECT_EQ(details.TransactionID() + details.AuditID() + details.CorrelationID(), "TAC");
    EXPECT_EQ(details.ResponseEndPoint(), "E");
    EXPECT_EQ(details.ResponsePollInterval(), 0);
    EXPECT_EQ(details.Transformation(), TYPE_TRANSFORMATION::Text);
    details.Mode(RTI_SEND_MODE::DevLive);
    EXPECT_EQ(details.GatewayTest(), IsDevelopment(mode)) << Number(mode);
    EXPECT_EQ(details.GatewayTimestamp(), IsDevelopment(mode) ? kDay : Date()) << Number(mode);
  }
}

TEST(clsGTMMessageDetails, ReadsEveryRowOfItsTable) {
  const auto details = Read<clsGTMMessageDetails>(
      "<MessageDetails><Class>K</Class><Qualifier>poll</Qualifier><Function>list</Function>"
      "<TransactionID>T</TransactionID><AuditID>A</AuditID><CorrelationID>C</CorrelationID>"
      "<ResponseEndPoint PollInterval=\"15\">E</ResponseEndPoint><Transformation>Html</Transformation>"
      "</MessageDetails>");
  EXPECT_EQ(details->Class(), "K");
  EXPECT_EQ(details->Qualifier(), "poll");
  EXPECT_EQ(details->MessageFunction(), "list");
  EXPECT_EQ(details->TransactionID() + details->AuditID() + details->CorrelationID(), "TAC");
  EXPECT_EQ(details->ResponseEndPoint(), "E");
  EXPECT_EQ(details->ResponsePollInterval(), 15);
  EXPECT_EQ(details->Transformation(), TYPE_TRANSFORMATION::HTML);
  EXPECT_EQ(details->Mode(), RTI_SEND_MODE::Live);
  EXPECT_EQ(Before(Written(*details).substr(Written(*details).find("<Transformation>")), "</Transf"),
            "<Transformation>HTML");
}

TEST(clsGTMMessageDetails, ReadingClearsTheTextsWithTheirDefaults) {
  clsGTMMessageDetails details;
  details.Class("K");
  details.Create(false, {}, TYPE_TRANSFORMATION::HTML, "T", "A", "C", "E", 9);
  details.Validated(true);
  EXPECT_TRUE(details.CreateFromXML(Root("<MessageDetails/>")));
  EXPECT_EQ(details.Class() + details.Qualifier() + details.MessageFunction() + details.TransactionID() +
                details.AuditID() + details.CorrelationID() + details.ResponseEndPoint(),
            "");
  EXPECT_EQ(details.ResponsePollInterval(), 0);
  EXPECT_EQ(details.Transformation(), TYPE_TRANSFORMATION::HTML);
  EXPECT_FALSE(details.Validated());
}

TEST(clsGTMMessageDetails, TheTransformationReadsThreeWordsInAnyCase) {
  const std::vector<std::pair<String, TYPE_TRANSFORMATION>> words = {{"xml", TYPE_TRANSFORMATION::XML},
                                                                     {"HTML", TYPE_TRANSFORMATION::HTML},
                                                                     {"Text", TYPE_TRANSFORMATION::Text},
                                                                     {"TEXT", TYPE_TRANSFORMATION::Text}};
  for (const auto& [word, expected] : words) {
    EXPECT_EQ(Read<clsGTMMessageDetails>("<MessageDetails><Transformation>" + word +
                                         "</Transformation></MessageDetails>")
                  ->Transformation(),
              expected)
        << word;
  }
  clsGTMMessageDetails details;
  details.Transformation(TYPE_TRANSFORMATION::HTML);
  details.CreateFromXML(Root("<MessageDetails><Transformation>PDF</Transformation></MessageDetails>"));
  EXPECT_EQ(details.Transformation(), TYPE_TRANSFORMATION::HTML);
}

TEST(clsGTMMessageDetails, AnUnknownTransformationIsWrittenAsItsNumber) {
  clsGTMMessageDetails details;
  details.Transformation(TYPE_TRANSFORMATION::Text);
  EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("Transformation").Text(), "Text");
  details.Transformation(static_cast<TYPE_TRANSFORMATION>(7));
  EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("Transformation").Text(), "7");
}

TEST(clsGTMMessageDetails, TheIntervalIsWrittenFromOneOn) {
  clsGTMMessageDetails details;
  details.ResponseEndPoint("E");
  for (const Integer interval : {Integer{-1}, Integer{0}}) {
    details.ResponsePollInterval(interval);
    EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("ResponseEndPoint").Xml(),
              "<ResponseEndPoint>E</ResponseEndPoint>");
  }
  details.ResponsePollInterval(1);
  EXPECT_EQ(details.ToXML(Root("<P/>")).FindChild("ResponseEndPoint").Xml(),
            "<ResponseEndPoint PollInterval=\"1\">E</ResponseEndPoint>");
}

TEST(clsGTMMessageDetails, AnAbsentIntervalReadsAsZeroAndABadOneEndsTheReading) {
  const WithRecordingHost host;
  clsGTMMessageDetails details;
  details.ResponsePollInterval(9);
  EXPECT_TRUE(
      details.CreateFromXML(Root("<MessageDetails><ResponseEndPoint>E</ResponseEndPoint></MessageDetails>")));
  EXPECT_EQ(details.ResponsePollInterval(), 0);
  EXPECT_FALSE(details.CreateFromXML(
      Root("<MessageDetails><Class>K</Class><ResponseEndPoint PollInterval=\"soon\">E</ResponseEndPoint>"
           "<Transformation>HTML</Transformation></MessageDetails>")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsGTMMessageDetails: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(details.Class(), "K");
  EXPECT_EQ(details.Transformation(), TYPE_TRANSFORMATION::XML);
}

TEST(clsGTMMessageDetails, ATestFlagOfAnyTextSetsItAndTheModeFileOnly) {
  for (const char* text : {"1", "0", "", "no"}) {
    const auto details = Read<clsGTMMessageDetails>("<MessageDetails><GatewayTest>" + String(text) +
                                                    "</GatewayTest></MessageDetails>");
    EXPECT_EQ(details->Mode(), RTI_SEND_MODE::FileOnly) << text;
    details->Mode(RTI_SEND_MODE::DevTest);
    EXPECT_TRUE(details->GatewayTest()) << text;
  }
}

TEST(clsGTMMessageDetails, ADateSetsTheTestFlagToo) {
  const auto details = Read<clsGTMMessageDetails>(
      "<MessageDetails><GatewayTimestamp>2026-05-06T10:11:12.000</GatewayTimestamp></MessageDetails>");
  EXPECT_EQ(details->Mode(), RTI_SEND_MODE::FileOnly);
  details->Mode(RTI_SEND_MODE::DevTest);
  EXPECT_TRUE(details->GatewayTest());
  EXPECT_EQ(details->GatewayTimestamp().DayOnly(), kDay);
  EXPECT_EQ(details->GatewayTimestamp().Second(), 12);
}

TEST(clsGTMMessageDetails, AnEmptyDateSetsNothing) {
  const auto details =
      Read<clsGTMMessageDetails>("<MessageDetails><GatewayTimestamp></GatewayTimestamp></MessageDetails>");
  EXPECT_EQ(details->Mode(), RTI_SEND_MODE::Live);
  details->Mode(RTI_SEND_MODE::DevTest);
  EXPECT_FALSE(details->GatewayTest());
  EXPECT_TRUE(details->GatewayTimestamp().IsZero());
}

TEST(clsGTMMessageDetails, AForeignNodeIsRefusedAndLeavesTheMode) {
  clsGTMMessageDetails details;
  details.Mode(RTI_SEND_MODE::DevTest);
  details.Class("K");
  EXPECT_FALSE(details.CreateFromXML(Root("<Details><Class>L</Class></Details>")));
  EXPECT_EQ(details.Mode(), RTI_SEND_MODE::DevTest);
  EXPECT_EQ(details.Class(), "");
}

TEST(clsGTMMessageDetails, QualifierAndFunctionClearTheFlagAtEachWrite) {
  clsGTMMessageDetails details;
  details.Validated(true);
  details.Qualifier("poll");
  EXPECT_EQ(details.Qualifier(), "poll");
  EXPECT_FALSE(details.Validated());
  details.Validated(true);
  details.Qualifier("poll");
  EXPECT_FALSE(details.Validated());
  details.Validated(true);
  details.MessageFunction("submit");
  EXPECT_FALSE(details.Validated());
}

TEST(clsGTMMessageDetails, EveryOtherFieldFollowsTheRuleOfChange) {
  using T = clsGTMMessageDetails;
  ExpectTextChangeClearsValidated(&T::Class, &T::Class);
  ExpectTextChangeClearsValidated(&T::TransactionID, &T::TransactionID);
  ExpectTextChangeClearsValidated(&T::AuditID, &T::AuditID);
  ExpectTextChangeClearsValidated(&T::CorrelationID, &T::CorrelationID);
  ExpectTextChangeClearsValidated(&T::ResponseEndPoint, &T::ResponseEndPoint);
  ExpectChangeClearsValidated(&T::ResponsePollInterval, &T::ResponsePollInterval, Integer{1}, Integer{-1});
  ExpectChangeClearsValidated(&T::Transformation, &T::Transformation, TYPE_TRANSFORMATION::HTML,
                              TYPE_TRANSFORMATION::Text);
  ExpectChangeClearsValidated(&T::Mode, &T::Mode, RTI_SEND_MODE::Test, RTI_SEND_MODE::Live);
  T details;
  details.Mode(RTI_SEND_MODE::DevLive);
  details.Validated(true);
  details.GatewayTest(false);
  details.GatewayTimestamp({});
  EXPECT_TRUE(details.Validated());
  details.GatewayTest(true);
  EXPECT_FALSE(details.Validated());
  details.Validated(true);
  details.GatewayTimestamp(kDay);
  EXPECT_FALSE(details.Validated());
}

TEST(clsGTMMessageDetails, AnyTextComesBack) {
  using T = clsGTMMessageDetails;
  ExpectTextComesBack(&T::Class, &T::Class);
  ExpectTextComesBack(&T::Qualifier, &T::Qualifier);
  ExpectTextComesBack(&T::MessageFunction, &T::MessageFunction);
  ExpectTextComesBack(&T::TransactionID, &T::TransactionID);
  ExpectTextComesBack(&T::AuditID, &T::AuditID);
  ExpectTextComesBack(&T::CorrelationID, &T::CorrelationID);
  ExpectTextComesBack(&T::ResponseEndPoint, &T::ResponseEndPoint);
}

TEST(clsGTMMessageDetails, TakesTheNamespaceOfItsParent) {
  clsGTMMessageDetails details;
  const XmlNode written = details.ToXML(Root("<Header xmlns=\"urn:envelope\"/>"));
  EXPECT_EQ(written.NamespaceURI(), "urn:envelope");
  EXPECT_EQ(written.FindChild("Class").NamespaceURI(), "urn:envelope");
  EXPECT_EQ(details.ToXML(Root("<Header/>")).NamespaceURI(), "");
}

TEST(clsGTMMessageDetails, ParsesItsOwnRootOnly) {
  clsGTMMessageDetails details;
  EXPECT_TRUE(details.ParseFromXML("<MessageDetails><Class>K</Class></MessageDetails>"));
  EXPECT_FALSE(details.ParseFromXML("<?xml version=\"1.0\"?><MessageDetails/>"));
  EXPECT_EQ(details.Class(), "K");
  EXPECT_EQ(details.RootElementName(), "MessageDetails");
}
