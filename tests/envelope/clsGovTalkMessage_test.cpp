#include "zelnor/envelope/clsGovTalkMessage.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMGovTalkDetails.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsIRMark.h"

#include "common/common_fixture.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::ChildNames;
using test::ChildText;
using test::ReadInto;
using test::Root;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using enum eRTISUBMISSIONTYPE;

constexpr const char* kSchema = "xsd/envelope-v2-0-HMRC.xsd";

// An envelope around a body of that content.
String Around(const String& body) {
  return "<GovTalkMessage xmlns='urn:e'><EnvelopeVersion>2.5</EnvelopeVersion><Header><MessageDetails>"
         "<Class>K</Class></MessageDetails><SenderDetails><EmailAddress>a@b.example</EmailAddress>"
         "</SenderDetails></Header><GovTalkDetails><Keys><Key Type='T'>961</Key></Keys></GovTalkDetails>"
         "<Body>" +
         body + "</Body></GovTalkMessage>";
}

// A document of that type, without content.
Ref<clsSubmission> SubmissionOf(eRTISUBMISSIONTYPE type) {
  auto submission = std::make_shared<clsSubmission>();
  submission->SetSubmissionType(type);
  return submission;
}

class GovTalkMessage : public test::InProgramFolder {
 protected:
  GovTalkMessage() { PutSchema("urn:envelope"); }

  void PutSchema(const String& target) const {
    folder_.Put(kSchema,
                "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='" + target + "'/>");
  }

  static void Set(const String& key, const String& value, const String& version = "15.0") {
    alsAppSettings().SetSetting(key, value, version);
  }

  // Marks the message and all its records as checked.
  static void MarkAll(clsGovTalkMessage& message) {
    message.Validated(true);
    MarkRecords(message);
  }

  static void MarkRecords(clsGovTalkMessage& message) {
    message.Header_MessageDetails()->Validated(true);
    message.Header_SenderDetails()->Validated(true);
    message.GTMGovTalkDetails()->Validated(true);
    message.SubmissionDocument()->Validated(true);
    message.SubmissionDocument()->FPS()->Employer_References()->Validated(true);
    message.SubmissionDocument()->Header()->Validated(true);
    message.SubmissionDocument()->Header()->DocIRMark()->Validated(true);
  }
};

// ---- settings

TEST_F(GovTalkMessage, IsOfVersion20UnlessASettingSaysOtherwise) {
  EXPECT_EQ(clsGovTalkMessage().GTMEnvelopeVersion(), "2.0");
  Set("GovTalkVersion", "1.1", "");
  EXPECT_EQ(clsGovTalkMessage().GTMEnvelopeVersion(), "2.0");
  Set("GovTalkVersion", "3.0");
  clsGovTalkMessage message;
  EXPECT_EQ(message.GTMEnvelopeVersion(), "3.0");
  EXPECT_EQ(ChildText(message.Document().DocumentElement(), "EnvelopeVersion"), "3.0");
  Set("GovTalkVersion", "");
  EXPECT_EQ(clsGovTalkMessage().GTMEnvelopeVersion(), "2.0");
}

TEST_F(GovTalkMessage, TakesItsSchemasFromTheSettingsOnce) {
  clsGovTalkMessage with_defaults;
  EXPECT_EQ(with_defaults.DefaultGTMSchema(), "\\xsd\\envelope-v2-0-HMRC.xsd");
  EXPECT_EQ(with_defaults.DefaultDSGSchema(), "\\xsd\\xmldsig-core-schema.xsd");
  Set("GovTalkMessage_XSD", "\\other\\envelope.xsd");
  Set("dsig_XSD", "/other/dsig.xsd");
  clsGovTalkMessage with_settings;
  EXPECT_EQ(with_settings.DefaultGTMSchema(), "\\other\\envelope.xsd");
  EXPECT_EQ(with_settings.DefaultDSGSchema(), "/other/dsig.xsd");
  EXPECT_EQ(with_defaults.DefaultGTMSchema(), "\\xsd\\envelope-v2-0-HMRC.xsd");
  EXPECT_EQ(with_defaults.DefaultDSGSchema(), "\\xsd\\xmldsig-core-schema.xsd");
}

TEST_F(GovTalkMessage, StoresTheSchemaThatItFound) {
  clsGovTalkMessage message;
  EXPECT_THAT(message.XML(), StartsWith("<GovTalkMessage xmlns=\"urn:envelope\">"));
  EXPECT_EQ(alsAppSettings().ReadSetting("GovTalkMessage_XSD", "15.0"), "\\xsd\\envelope-v2-0-HMRC.xsd");
}

TEST_F(GovTalkMessage, TakesItsNamespaceFromTheSchemaOfTheSettingOnce) {
  const String schema = folder_.Get(kSchema);
  Set("GovTalkMessage_XSD", folder_.Put("elsewhere.xsd", schema));
  std::filesystem::remove(folder_.At(kSchema));
  clsGovTalkMessage message;
  EXPECT_THAT(message.XML(), StartsWith("<GovTalkMessage xmlns=\"urn:envelope\">"));
  std::filesystem::remove(folder_.At("elsewhere.xsd"));
  message.ForceRebuild();
  EXPECT_THAT(message.XML(), StartsWith("<GovTalkMessage xmlns=\"urn:envelope\">"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(GovTalkMessage, WarnsOncePerObjectOfAMissingSchema) {
  std::filesystem::remove(folder_.At(kSchema));
  for (std::size_t i = 1; i <= 2; ++i) {
    clsGovTalkMessage message;
    EXPECT_THAT(message.XML(), StartsWith("<GovTalkMessage><EnvelopeVersion>"));
    message.ForceRebuild();
    EXPECT_EQ(Boxes().size(), i);
  }
}

// ---- records

TEST_F(GovTalkMessage, CreateStoresItsArgumentsAndClearsTheirFlags) {
  const auto message_details = std::make_shared<clsGTMMessageDetails>();
  const auto sender_details = std::make_shared<clsGTMSenderDetails>();
  const auto govtalk_details = std::make_shared<clsGTMGovTalkDetails>();
  message_details->Validated(true);
  sender_details->Validated(true);
  govtalk_details->Validated(true);
  clsGovTalkMessage message;
  message.UseValidation(true);
  message.Create("9.9", message_details, sender_details, govtalk_details);
  EXPECT_EQ(message.GTMEnvelopeVersion(), "9.9");
  EXPECT_EQ(message.Header_MessageDetails(), message_details);
  EXPECT_EQ(message.Header_SenderDetails(), sender_details);
  EXPECT_EQ(message.GTMGovTalkDetails(), govtalk_details);
  EXPECT_FALSE(message_details->Validated());
  EXPECT_FALSE(sender_details->Validated());
  EXPECT_FALSE(govtalk_details->Validated());
  EXPECT_FALSE(message.Validated());
}

TEST_F(GovTalkMessage, CreateTakesNoRecordsAndReadingMakesThem) {
  clsGovTalkMessage message;
  message.Create("", nullptr, nullptr, nullptr);
  EXPECT_EQ(message.GTMEnvelopeVersion(), "");
  EXPECT_TRUE(message.Header_MessageDetails());
  EXPECT_TRUE(message.Header_SenderDetails());
  EXPECT_TRUE(message.GTMGovTalkDetails());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(GovTalkMessage, MessageDetailsTakeTheClassOfADocumentThatIsThere) {
  clsGovTalkMessage message;
  const auto early = std::make_shared<clsGTMMessageDetails>();
  early->Class("K");
  message.Header_MessageDetails(early);
  EXPECT_EQ(early->Class(), "K");
  message.SubmissionDocument(SubmissionOf(IsEPS));
  const auto late = std::make_shared<clsGTMMessageDetails>();
  late->Class("K");
  late->Validated(true);
  message.SetMessageDetails(late);
  EXPECT_EQ(message.Header_MessageDetails(), late);
  EXPECT_EQ(late->Class(), "HMRC-PAYE-RTI-EPS");
  EXPECT_FALSE(late->Validated());
}

TEST_F(GovTalkMessage, ADocumentHandsItsClassToTheDetails) {
  clsGovTalkMessage message;
  const Ref<clsSubmission> submission = SubmissionOf(IsFPS);
  submission->FPS()->Employer_References()->Validated(true);
  submission->FPS()->Validated(true);
  message.SubmissionDocument(submission);
  EXPECT_EQ(message.SubmissionDocument(), submission);
  EXPECT_FALSE(submission->FPS()->Validated());
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-FPS");
  message.SubmissionDocument(SubmissionOf(IsNVR));
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-NVR");
  message.SubmissionDocument(nullptr);
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-NVR");
  EXPECT_EQ(message.SubmissionDocument()->SubmissionType(), IsFPS);
}

TEST_F(GovTalkMessage, OtherRecordsLoseTheirFlagWhenTheyAreSet) {
  clsGovTalkMessage message;
  const auto sender_details = std::make_shared<clsGTMSenderDetails>();
  sender_details->Validated(true);
  message.Header_SenderDetails(sender_details);
  EXPECT_EQ(message.Header_SenderDetails(), sender_details);
  EXPECT_FALSE(sender_details->Validated());
  const auto govtalk_details = std::make_shared<clsGTMGovTalkDetails>();
  govtalk_details->Validated(true);
  message.GTMGovTalkDetails(govtalk_details);
  EXPECT_EQ(message.GTMGovTalkDetails(), govtalk_details);
  EXPECT_FALSE(govtalk_details->Validated());
}

TEST_F(GovTalkMessage, InTestTheClassReadsWithItsMarkOnceAndIsWrittenWithout) {
  clsGovTalkMessage message;
  message.SubmissionDocument(SubmissionOf(IsEAS));
  message.Header_MessageDetails()->Mode(RTI_SEND_MODE::Test);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(message.Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-EAS-TIL");
    message.ForceRebuild();
    const XmlNode header = message.Document().DocumentElement().FindChild("Header");
    EXPECT_EQ(ChildText(header.FindChild("MessageDetails"), "Class"), "HMRC-PAYE-RTI-EAS");
  }
}

// ---- validated

TEST_F(GovTalkMessage, IsValidatedWithoutFurtherAdoWhenValidationIsOff) {
  clsGovTalkMessage message;
  EXPECT_TRUE(message.Validated());
  message.UseValidation(true);
  EXPECT_FALSE(message.Validated());
  message.UseValidation(false);
  EXPECT_TRUE(message.Validated());
}

TEST_F(GovTalkMessage, IsValidatedWithEveryRecordThatIsThere) {
  clsGovTalkMessage message;
  message.UseValidation(true);
  MarkAll(message);
  ASSERT_TRUE(message.Validated());
  message.Header_MessageDetails()->Validated(false);
  EXPECT_FALSE(message.Validated());
  MarkAll(message);
  message.Header_SenderDetails()->Validated(false);
  EXPECT_FALSE(message.Validated());
  MarkAll(message);
  message.GTMGovTalkDetails()->Validated(false);
  EXPECT_FALSE(message.Validated());
  MarkAll(message);
  message.SubmissionDocument()->Validated(false);
  EXPECT_FALSE(message.Validated());
  MarkAll(message);
  message.GTMEnvelopeVersion(message.GTMEnvelopeVersion());
  EXPECT_TRUE(message.Validated());
  message.GTMEnvelopeVersion("2.1");
  EXPECT_FALSE(message.Validated());
}

TEST_F(GovTalkMessage, RecordsThatAreNotThereDoNotCount) {
  clsGovTalkMessage message;
  message.Create("2.0", nullptr, nullptr, nullptr);
  message.UseValidation(true);
  EXPECT_FALSE(message.Validated());
  message.Validated(true);
  EXPECT_TRUE(message.Validated());
}

TEST_F(GovTalkMessage, TellsItsDocumentWhetherToValidate) {
  clsGovTalkMessage message;
  message.SubmissionDocument(SubmissionOf(IsFPS));
  message.UseValidation(true);
  EXPECT_TRUE(message.SubmissionDocument()->UseValidation());
  message.UseValidation(false);
  EXPECT_FALSE(message.SubmissionDocument()->UseValidation());
}

// ---- reading

TEST_F(GovTalkMessage, ReadsEveryPart) {
  clsGovTalkMessage message;
  EXPECT_TRUE(message.ParseFromXML("<?xml version=\"1.0\"?>" +
                                   Around("<IRenvelope><EmployerPaymentSummary/></IRenvelope>")));
  EXPECT_EQ(message.GTMEnvelopeVersion(), "2.5");
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "K");
  EXPECT_EQ(message.Header_SenderDetails()->EmailAddress(), "a@b.example");
  EXPECT_EQ(message.GTMGovTalkDetails()->Keys()->Count(), 1);
  EXPECT_EQ(message.SubmissionDocument()->SubmissionType(), IsEPS);
}

TEST_F(GovTalkMessage, ReadingMakesAllButTheGovTalkDetailsAnew) {
  clsGovTalkMessage message;
  ASSERT_TRUE(ReadInto(message, Around("<IRenvelope><EmployerPaymentSummary/></IRenvelope>")));
  const Ref<clsGTMMessageDetails> message_details = message.Header_MessageDetails();
  const Ref<clsGTMSenderDetails> sender_details = message.Header_SenderDetails();
  const Ref<clsGTMGovTalkDetails> govtalk_details = message.GTMGovTalkDetails();
  ASSERT_TRUE(ReadInto(message, "<GovTalkMessage><Unknown/></GovTalkMessage>"));
  EXPECT_EQ(message.GTMEnvelopeVersion(), "");
  EXPECT_NE(message.Header_MessageDetails(), message_details);
  EXPECT_NE(message.Header_SenderDetails(), sender_details);
  EXPECT_EQ(message.GTMGovTalkDetails(), govtalk_details);
  EXPECT_FALSE(message.HasSubmission());
}

TEST_F(GovTalkMessage, IsToBeValidatedAgainOnceItIsRead) {
  clsGovTalkMessage message;
  message.UseValidation(true);
  MarkAll(message);
  ASSERT_TRUE(ReadInto(message, "<GovTalkMessage/>"));
  MarkRecords(message);
  EXPECT_FALSE(message.Validated());
  message.Validated(true);
  EXPECT_TRUE(message.Validated());
}

TEST_F(GovTalkMessage, RefusesAnotherRootAndIsLeftEmpty) {
  clsGovTalkMessage message;
  ASSERT_TRUE(ReadInto(message, Around("<IRenvelope/>")));
  EXPECT_FALSE(ReadInto(message, "<Other><EnvelopeVersion>2.5</EnvelopeVersion></Other>"));
  EXPECT_EQ(message.GTMEnvelopeVersion(), "");
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "");
  EXPECT_EQ(message.Header_SenderDetails()->EmailAddress(), "");
  EXPECT_FALSE(message.HasSubmission());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(GovTalkMessage, KeepsWhatItHoldsWhereTheTextIsNoEnvelope) {
  clsGovTalkMessage message;
  ASSERT_TRUE(message.ParseFromXML(Around("<IRenvelope/>")));
  EXPECT_FALSE(message.ParseFromXML("<GovTalkMessage>"));
  EXPECT_FALSE(message.ParseFromXML("<Other/>"));
  EXPECT_EQ(message.GTMEnvelopeVersion(), "2.5");
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "K");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(GovTalkMessage, ARootWithAPrefixIsFoundAndThenRefused) {
  clsGovTalkMessage message;
  EXPECT_FALSE(message.ParseFromXML("<e:GovTalkMessage xmlns:e='urn:e'/>"));
  EXPECT_EQ(message.GTMEnvelopeVersion(), "");
}

TEST_F(GovTalkMessage, HandsTheFirstChildOfItsBodyToTheDocument) {
  clsGovTalkMessage message;
  EXPECT_TRUE(ReadInto(message, Around("<SuccessResponse/><IRenvelope><EmployerPaymentSummary/></IRenvelope>"
                                       "<ErrorResponse/>")));
  EXPECT_EQ(message.SubmissionDocument()->SubmissionType(), IsPollDoc);
  EXPECT_EQ(message.SubmissionDocument()->PLD().BaseName(), "SuccessResponse");
}

TEST_F(GovTalkMessage, MakesADocumentForEachBody) {
  clsGovTalkMessage message;
  EXPECT_TRUE(ReadInto(message,
                       "<GovTalkMessage><Body><IRenvelope><IRheader><PeriodEnd>2026-04-05</PeriodEnd>"
                       "</IRheader></IRenvelope></Body><Body><IRenvelope/></Body></GovTalkMessage>"));
  EXPECT_TRUE(message.SubmissionDocument()->Header()->PeriodEndDate().IsZero());
}

TEST_F(GovTalkMessage, AnEmptyBodyIsThatOfAPoll) {
  clsGovTalkMessage message;
  EXPECT_TRUE(ReadInto(message, Around("")));
  EXPECT_EQ(message.SubmissionDocument()->SubmissionType(), IsPollDoc);
  EXPECT_FALSE(message.SubmissionDocument()->PLD());
}

// ---- writing

TEST_F(GovTalkMessage, WritesItsPartsInOrderAndInItsNamespace) {
  clsGovTalkMessage message;
  message.SubmissionDocument(SubmissionOf(IsNVR));
  message.Header_SenderDetails()->Create("S1", "principal", "not-a-real-password");
  const XmlNode root = message.Document().DocumentElement();
  EXPECT_EQ(root.NodeName(), "GovTalkMessage");
  EXPECT_EQ(root.NodeName(), message.RootElementName());
  EXPECT_EQ(root.Attribute("xmlns"), "urn:envelope");
  EXPECT_THAT(ChildNames(root), ElementsAre("EnvelopeVersion", "Header", "GovTalkDetails", "Body"));
  EXPECT_THAT(ChildNames(root.FindChild("Header")), ElementsAre("MessageDetails", "SenderDetails"));
  EXPECT_THAT(ChildNames(root.FindChild("Body")), ElementsAre("IRenvelope"));
  EXPECT_EQ(message.XML(), message.Document().Xml());
  const XmlNode again = Root(message.XML());
  for (const XmlNode& part : again.ChildNodes()) EXPECT_EQ(part.NamespaceURI(), "urn:envelope");
}

TEST_F(GovTalkMessage, OfAPollHasAnEmptyBody) {
  clsGovTalkMessage message;
  message.SubmissionDocument(SubmissionOf(IsPollDoc));
  EXPECT_FALSE(message.Document().DocumentElement().FindChild("Body").HasChildNodes());
}

TEST_F(GovTalkMessage, TakesTheClassOfItsDocumentWhereItHasNone) {
  clsGovTalkMessage message;
  message.SubmissionDocument()->SetSubmissionType(IsEYU);
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "");
  message.ForceRebuild();
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-EYU");
  message.Header_MessageDetails()->Class("K");
  message.ForceRebuild();
  EXPECT_EQ(message.Header_MessageDetails()->Class(), "K");
}

TEST_F(GovTalkMessage, WithoutValidationKeepsItsDocumentUntilItIsForced) {
  clsGovTalkMessage message;
  const XmlDocument first = message.Document();
  EXPECT_TRUE(first.HasChildNodes());
  message.GTMEnvelopeVersion("9.9");
  EXPECT_EQ(message.Document(), first);
  EXPECT_EQ(ChildText(first.DocumentElement(), "EnvelopeVersion"), "2.0");
  message.ForceRebuild();
  const XmlDocument second = message.Document();
  EXPECT_NE(second, first);
  EXPECT_EQ(ChildText(second.DocumentElement(), "EnvelopeVersion"), "9.9");
  EXPECT_EQ(ChildText(first.DocumentElement(), "EnvelopeVersion"), "2.0");
}

TEST_F(GovTalkMessage, WithValidationBuildsItsDocumentAnewUntilAllIsValidated) {
  clsGovTalkMessage message;
  message.UseValidation(true);
  const XmlDocument first = message.Document();
  EXPECT_NE(message.Document(), first);
  MarkAll(message);
  const XmlDocument marked = message.Document();
  EXPECT_EQ(message.Document(), marked);
  message.GTMEnvelopeVersion("9.9");
  EXPECT_EQ(ChildText(message.Document().DocumentElement(), "EnvelopeVersion"), "9.9");
}

TEST_F(GovTalkMessage, IsFilledFromADocumentThatItKeeps) {
  clsGovTalkMessage message;
  const XmlDocument document;
  ASSERT_TRUE(document.LoadXML(Around("<IRenvelope><EmployerPaymentSummary/></IRenvelope>")));
  message.Document(document);
  EXPECT_EQ(message.GTMEnvelopeVersion(), "2.5");
  EXPECT_EQ(message.SubmissionDocument()->SubmissionType(), IsEPS);
  EXPECT_EQ(message.Document(), document);
  EXPECT_FALSE(document.PreserveWhiteSpace());
}

TEST_F(GovTalkMessage, BuildsWhereItsDocumentIsEmptyOrNone) {
  clsGovTalkMessage message;
  const XmlDocument empty;
  message.Document(empty);
  EXPECT_EQ(message.GTMEnvelopeVersion(), "2.0");
  EXPECT_NE(message.Document(), empty);
  EXPECT_TRUE(message.Document().HasChildNodes());
  message.Document(nullptr);
  EXPECT_TRUE(message.Document().HasChildNodes());
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- events

TEST_F(GovTalkMessage, PassesOnWhatItsDocumentRaises) {
  clsGovTalkMessage message;
  std::vector<String> raised;
  message.events.CompressionError.connect([&](const String& text) { raised.push_back(text); });
  const Ref<clsSubmission> former = message.SubmissionDocument();
  former->events.CompressionError("made");
  const Ref<clsSubmission> written = SubmissionOf(IsFPS);
  message.SubmissionDocument(written);
  written->events.CompressionError("written");
  former->events.CompressionError("given up");
  message.SubmissionDocument(nullptr);
  written->events.CompressionError("given up");
  ASSERT_TRUE(ReadInto(message, Around("<IRenvelope/>")));
  message.SubmissionDocument()->events.CompressionError("read");
  EXPECT_THAT(raised, ElementsAre("made", "written", "read"));
}

}  // namespace
}  // namespace zelnor
