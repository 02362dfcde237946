#include "zelnor/documents/clsSubmission.h"

#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/documents/iSubmissionSection.h"
#include "zelnor/envelope/clsIRMark.h"

#include "common/common_fixture.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::ChildNames;
using test::ChildText;
using test::ParentAfterWriting;
using test::ReadInto;
using test::Root;
using test::Written;
using testing::ElementsAre;
using testing::IsEmpty;
using enum eRTISUBMISSIONTYPE;

constexpr const char* kDeclaration = "<?xml version=\"1.0\"?>";

// The dispatch of one type.
struct Kind {
  eRTISUBMISSIONTYPE type;
  const char* root;
  const char* class_name;
  const char* schema;
  bool switches_validation;
  bool compresses;
};

constexpr Kind kKinds[] = {
    {IsUndefined, "", "", "", false, false},
    {IsEAS, "EmployerAlignmentSubmission", "HMRC-PAYE-RTI-EAS", "\\xsd\\EmployerAlignmentSubmission-v3-3.xsd",
     true, true},
    {IsFPS, "FullPaymentSubmission", "HMRC-PAYE-RTI-FPS", "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd", true,
     true},
    {IsEPS, "EmployerPaymentSummary", "HMRC-PAYE-RTI-EPS", "\\xsd\\EmployerPaymentSummary-2026-v1-0.xsd",
     false, false},
    {IsNVR, "NINOverificationRequest", "HMRC-PAYE-RTI-NVR", "\\xsd\\NINOverificationRequest-v1-2.xsd", true,
     false},
    {IsPollDoc, "", "", "", false, false},
    {IsErrorResponse, "ErrorResponse", "ERROR", "", false, false},
    {IsEYU, "EarlierYearUpdate", "HMRC-PAYE-RTI-EYU", "\\xsd\\EarlierYearUpdate-2020-v1-0.xsd", true, true},
};

// Writes and reads the members of a section.
template <class Section>
struct Slot {
  eRTISUBMISSIONTYPE type;
  Ref<Section> (clsSubmission::*read)();
  void (clsSubmission::*write)(Ref<Section>);
};

const Slot<clsSectionEAS> kEAS{IsEAS, &clsSubmission::EAS, &clsSubmission::EAS};
const Slot<clsSectionFPS> kFPS{IsFPS, &clsSubmission::FPS, &clsSubmission::FPS};
const Slot<clsSectionEPS> kEPS{IsEPS, &clsSubmission::EPS, &clsSubmission::EPS};
const Slot<clsSectionNVR> kNVR{IsNVR, &clsSubmission::NVR, &clsSubmission::NVR};
const Slot<clsSectionEYU> kEYU{IsEYU, &clsSubmission::EYU, &clsSubmission::EYU};
const Slot<clsSectionErrorResponse> kErrorResponse{IsErrorResponse, &clsSubmission::ERRORRESPONSE,
                                                   &clsSubmission::ERRORRESPONSE};

class Submission : public test::InProgramFolder {
 protected:
  // Puts a schema of that target namespace where the type's is looked for.
  void PutSchema(const Kind& kind, const String& target) const {
    const String name = String(kind.schema).substr(String("\\xsd\\").size());
    folder_.Put("xsd/" + name,
                "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='" + target + "'/>");
  }

  static const Kind& KindOf(eRTISUBMISSIONTYPE type) {
    return *std::find_if(std::begin(kKinds), std::end(kKinds),
                         [&](const Kind& kind) { return kind.type == type; });
  }

  // A section is read under its own type alone, and dropped as soon as a section of another type is read.
  template <class Section>
  void ExpectKeptForItsType(const Slot<Section>& slot) {
    const auto held = std::make_shared<Section>();
    (submission_.*slot.write)(held);
    EXPECT_EQ(submission_.SubmissionType(), IsFPS);
    for (const Kind& kind : kKinds) {
      if (kind.type == slot.type) continue;
      submission_.SetSubmissionType(kind.type);
      EXPECT_FALSE((submission_.*slot.read)()) << kind.root;
    }
    submission_.SetSubmissionType(slot.type);
    EXPECT_EQ((submission_.*slot.read)(), held);
    if (slot.type == IsEPS) {
      submission_.SetSubmissionType(IsFPS);
      EXPECT_TRUE(submission_.FPS());
    } else {
      submission_.SetSubmissionType(IsEPS);
      EXPECT_TRUE(submission_.EPS());
    }
    submission_.SetSubmissionType(slot.type);
    const Ref<Section> made = (submission_.*slot.read)();
    ASSERT_TRUE(made);
    EXPECT_NE(made, held);
    EXPECT_EQ((submission_.*slot.read)(), made);
  }

  void MarkHeader() {
    submission_.Header()->DocIRMark()->Validated(true);
    submission_.Header()->Validated(true);
  }

  // The document is validated with its section, the section's references and the header.
  template <class Section>
  void ExpectValidatedAsAWhole(const Slot<Section>& slot) {
    submission_.SetSubmissionType(slot.type);
    (submission_.*slot.read)()->Employer_References()->Validated(true);
    MarkHeader();
    EXPECT_FALSE(submission_.Validated());
    submission_.Validated(true);
    EXPECT_TRUE((submission_.*slot.read)()->Validated());
    EXPECT_TRUE(submission_.Validated());
    submission_.Header()->Validated(false);
    EXPECT_FALSE(submission_.Validated());
    submission_.Header()->Validated(true);
    submission_.Validated(false);
    EXPECT_FALSE((submission_.*slot.read)()->Validated());
    EXPECT_FALSE(submission_.Validated());
  }

  // What the section raises is raised by the document, as long as it holds the section.
  template <class Section>
  void ExpectPassedOn(const Slot<Section>& slot) {
    std::vector<String> raised;
    const Subscription subscription(
        submission_.events.CompressionError.connect([&](const String& text) { raised.push_back(text); }));
    submission_.SetSubmissionType(slot.type);
    (submission_.*slot.read)()->events.CompressionError("of one made");
    const auto written = std::make_shared<Section>();
    const Ref<Section> former = (submission_.*slot.read)();
    (submission_.*slot.write)(written);
    written->events.CompressionError("of one written");
    former->events.CompressionError("of one given up");
    (submission_.*slot.write)(nullptr);
    written->events.CompressionError("of one given up");
    EXPECT_TRUE(ReadInto(submission_, "<IRenvelope><" + former->RootElementName() + "/></IRenvelope>"));
    (submission_.*slot.read)()->events.CompressionError("of one from a document");
    EXPECT_THAT(raised, ElementsAre("of one made", "of one written", "of one from a document"));
  }

  clsSubmission submission_;
};

// ---- a new one

TEST_F(Submission, BeginsAsAnEmptyFullPaymentSubmission) {
  EXPECT_EQ(submission_.SubmissionType(), IsFPS);
  ASSERT_TRUE(submission_.FPS());
  EXPECT_EQ(submission_.FPS()->EmployeeCount(), 0);
  EXPECT_TRUE(submission_.Header());
  EXPECT_EQ(submission_.BuildMode(), enmBuildMode::InMemory);
  EXPECT_FALSE(submission_.Validated());
  submission_.SetSubmissionType(IsPollDoc);
  EXPECT_FALSE(submission_.PLD());
}

TEST_F(Submission, KeepsItsBuildModeAndHeader) {
  submission_.BuildMode(enmBuildMode::FileSpool);
  EXPECT_EQ(submission_.BuildMode(), enmBuildMode::FileSpool);
  const auto header = std::make_shared<clsSectionIRHeader>();
  header->Validated(true);
  submission_.Header(header);
  EXPECT_EQ(submission_.Header(), header);
  EXPECT_FALSE(header->Validated());
  submission_.Header(nullptr);
  ASSERT_TRUE(submission_.Header());
  EXPECT_NE(submission_.Header(), header);
}

// ---- reading

TEST_F(Submission, TakesItsTypeFromTheBodyOfTheEnvelope) {
  for (const Kind& kind : kKinds) {
    if (String(kind.schema).empty()) continue;
    clsSubmission submission;
    submission.SetSubmissionType(IsUndefined);
    EXPECT_TRUE(ReadInto(submission, "<IRenvelope><IRheader/><" + String(kind.root) + "/></IRenvelope>"));
    EXPECT_EQ(submission.SubmissionType(), kind.type) << kind.root;
    EXPECT_EQ(submission.RootElementName(), kind.root);
  }
}

TEST_F(Submission, FillsItsHeaderAndItsSection) {
  ASSERT_TRUE(ReadInto(submission_,
                       "<IRenvelope><IRheader><PeriodEnd>2026-04-05</PeriodEnd></IRheader>"
                       "<FullPaymentSubmission><EmpRefs><OfficeNo>961</OfficeNo></EmpRefs><Employee/>"
                       "</FullPaymentSubmission></IRenvelope>"));
  EXPECT_EQ(submission_.Header()->PeriodEndDate(), Date::FromParts(2026, 4, 5));
  EXPECT_EQ(submission_.FPS()->Employer_References()->OfficeNo(), "961");
  EXPECT_EQ(submission_.FPS()->EmployeeCount(), 1);
}

TEST_F(Submission, ReadsElementsWithAPrefix) {
  EXPECT_TRUE(
      ReadInto(submission_, "<x:IRenvelope xmlns:x='urn:x'><x:EmployerPaymentSummary/></x:IRenvelope>"));
  EXPECT_EQ(submission_.SubmissionType(), IsEPS);
}

TEST_F(Submission, KeepsItsTypeWhereTheBodyIsUnknown) {
  submission_.SetSubmissionType(IsEPS);
  const Ref<clsSectionEPS> former = submission_.EPS();
  const Ref<clsSectionIRHeader> header = submission_.Header();
  EXPECT_TRUE(ReadInto(submission_, "<IRenvelope><IRheader/><Unknown/></IRenvelope>"));
  EXPECT_EQ(submission_.SubmissionType(), IsEPS);
  ASSERT_TRUE(submission_.EPS());
  EXPECT_NE(submission_.EPS(), former);
  EXPECT_NE(submission_.Header(), header);
}

TEST_F(Submission, KeepsItsHeaderWhereTheEnvelopeHasNone) {
  const Ref<clsSectionIRHeader> header = submission_.Header();
  EXPECT_TRUE(ReadInto(submission_, "<IRenvelope><NINOverificationRequest/></IRenvelope>"));
  EXPECT_EQ(submission_.Header(), header);
  EXPECT_TRUE(ReadInto(submission_, "<Other/>"));
  EXPECT_EQ(submission_.Header(), header);
}

TEST_F(Submission, ReadsAnAlignmentOrARefusalWithoutAnEnvelope) {
  EXPECT_TRUE(ReadInto(submission_,
                       "<EmployerAlignmentSubmission><EmpRefs><OfficeNo>961</OfficeNo></EmpRefs>"
                       "</EmployerAlignmentSubmission>"));
  EXPECT_EQ(submission_.SubmissionType(), IsEAS);
  EXPECT_EQ(submission_.EAS()->Employer_References()->OfficeNo(), "961");
  EXPECT_TRUE(ReadInto(submission_, "<ErrorResponse><Error/><Error/></ErrorResponse>"));
  EXPECT_EQ(submission_.SubmissionType(), IsErrorResponse);
  EXPECT_EQ(submission_.ERRORRESPONSE()->ErrorCount(), 2);
}

TEST_F(Submission, KeepsADocumentOfAnotherRootWhole) {
  const XmlNode source = Root("<Notice kind='1'><Line>a</Line></Notice>");
  EXPECT_TRUE(submission_.CreateFromXML(source));
  source.FindChild("Line").Text("b");
  EXPECT_EQ(submission_.SubmissionType(), IsPollDoc);
  EXPECT_EQ(submission_.PLD().Xml(), "<Notice kind=\"1\"><Line>a</Line></Notice>");
  EXPECT_TRUE(submission_.Validated());
}

TEST_F(Submission, HoldsThatDocumentBeyondTheNextOne) {
  ASSERT_TRUE(ReadInto(submission_, "<Notice/>"));
  ASSERT_TRUE(ReadInto(submission_, "<IRenvelope><FullPaymentSubmission/></IRenvelope>"));
  EXPECT_FALSE(submission_.PLD());
  EXPECT_TRUE(submission_.FPS());
  submission_.SetSubmissionType(IsPollDoc);
  ASSERT_TRUE(submission_.PLD());
  EXPECT_EQ(submission_.PLD().NodeName(), "Notice");
}

TEST_F(Submission, IsAPollDocumentWithoutANode) {
  const Ref<clsSectionFPS> former = submission_.FPS();
  const Ref<clsSectionIRHeader> header = submission_.Header();
  EXPECT_FALSE(submission_.CreateFromXML(nullptr));
  EXPECT_EQ(submission_.SubmissionType(), IsPollDoc);
  EXPECT_FALSE(submission_.PLD());
  EXPECT_EQ(submission_.Header(), header);
  submission_.SetSubmissionType(IsFPS);
  EXPECT_NE(submission_.FPS(), former);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(Submission, ParsesAnEnvelopeThatIsTheFirstNode) {
  const String envelope = "<IRenvelope><EmployerPaymentSummary/></IRenvelope>";
  EXPECT_FALSE(submission_.ParseFromXML(kDeclaration + envelope));
  EXPECT_FALSE(submission_.ParseFromXML("<!-- first -->" + envelope));
  EXPECT_FALSE(submission_.ParseFromXML("<x:IRenvelope xmlns:x='urn:x'/>"));
  EXPECT_FALSE(submission_.ParseFromXML("<EmployerPaymentSummary/>"));
  EXPECT_FALSE(submission_.ParseFromXML("<IRenvelope>"));
  EXPECT_FALSE(submission_.ParseFromXML(""));
  EXPECT_EQ(submission_.SubmissionType(), IsFPS);
  EXPECT_TRUE(submission_.ParseFromXML(envelope));
  EXPECT_EQ(submission_.SubmissionType(), IsEPS);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(Submission, ParsesARefusalAndTakesTheNodeInFrontOfIt) {
  EXPECT_TRUE(submission_.ParseFromXML("<ErrorResponse><Error/></ErrorResponse>"));
  EXPECT_EQ(submission_.SubmissionType(), IsErrorResponse);
  EXPECT_EQ(submission_.ERRORRESPONSE()->ErrorCount(), 1);
  EXPECT_TRUE(submission_.ParseFromXML(String(kDeclaration) + "<ErrorResponse><Error/></ErrorResponse>"));
  EXPECT_EQ(submission_.SubmissionType(), IsPollDoc);
  EXPECT_EQ(submission_.PLD().NodeName(), "xml");
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- sections

TEST_F(Submission, KeepsAnAlignmentForItsType) { ExpectKeptForItsType(kEAS); }
TEST_F(Submission, KeepsAFullPaymentSubmissionForItsType) { ExpectKeptForItsType(kFPS); }
TEST_F(Submission, KeepsASummaryForItsType) { ExpectKeptForItsType(kEPS); }
TEST_F(Submission, KeepsAVerificationRequestForItsType) { ExpectKeptForItsType(kNVR); }
TEST_F(Submission, KeepsAnEarlierYearUpdateForItsType) { ExpectKeptForItsType(kEYU); }
TEST_F(Submission, KeepsARefusalForItsType) { ExpectKeptForItsType(kErrorResponse); }

TEST_F(Submission, AskedForAnotherSectionKeepsItsOwn) {
  submission_.SetSubmissionType(IsEPS);
  const Ref<clsSectionEPS> eps = submission_.EPS();
  EXPECT_FALSE(submission_.FPS());
  EXPECT_FALSE(submission_.PLD());
  EXPECT_EQ(submission_.EPS(), eps);
}

TEST_F(Submission, ReadingTheKeptDocumentDropsTheSections) {
  const Ref<clsSectionFPS> former = submission_.FPS();
  submission_.PLD(Root("<Notice/>"));
  EXPECT_EQ(submission_.SubmissionType(), IsFPS);
  EXPECT_FALSE(submission_.PLD());
  EXPECT_EQ(submission_.FPS(), former);
  submission_.SetSubmissionType(IsPollDoc);
  EXPECT_TRUE(submission_.PLD());
  submission_.SetSubmissionType(IsFPS);
  EXPECT_NE(submission_.FPS(), former);
}

// ---- what is answered by type

TEST_F(Submission, AnswersClassRootAndSchemaByType) {
  for (const Kind& kind : kKinds) {
    submission_.SetSubmissionType(kind.type);
    EXPECT_EQ(submission_.Class(), kind.class_name);
    EXPECT_EQ(submission_.RootElementName(), kind.root);
    EXPECT_EQ(submission_.DefaultSchema(), kind.schema);
  }
}

TEST_F(Submission, SwitchesValidationOfSomeTypesAlone) {
  for (const Kind& kind : kKinds) {
    submission_.SetSubmissionType(kind.type);
    EXPECT_FALSE(submission_.UseValidation()) << kind.root;
    submission_.UseValidation(true);
    EXPECT_EQ(submission_.UseValidation(), kind.switches_validation) << kind.root;
  }
  submission_.SetSubmissionType(IsNVR);
  submission_.NVR()->UseValidation(true);
  EXPECT_TRUE(submission_.UseValidation());
}

TEST_F(Submission, CompressesSomeTypesAlone) {
  for (const Kind& kind : kKinds) {
    submission_.SetSubmissionType(kind.type);
    EXPECT_EQ(submission_.AutoCompressionLimit(), kind.compresses ? 5000 : -1) << kind.root;
    submission_.AutoCompressionLimit(7);
    EXPECT_EQ(submission_.AutoCompressionLimit(), kind.compresses ? 7 : -1) << kind.root;
    EXPECT_FALSE(submission_.UseCompression()) << kind.root;
    submission_.UseCompression(true);
    EXPECT_EQ(submission_.UseCompression(), kind.compresses) << kind.root;
    EXPECT_FALSE(submission_.OverrideCompression()) << kind.root;
    submission_.OverrideCompression(true);
    EXPECT_EQ(submission_.OverrideCompression(), kind.compresses) << kind.root;
  }
}

TEST_F(Submission, TellsWhetherAMarkOfTheLastSubmissionIsThere) {
  EXPECT_FALSE(submission_.IsFinalSubmission());
  submission_.FPS()->Final_Submission(std::make_shared<clsFinalSubmission>());
  EXPECT_TRUE(submission_.IsFinalSubmission());
  submission_.SetSubmissionType(IsEPS);
  EXPECT_FALSE(submission_.IsFinalSubmission());
  submission_.EPS()->Final_Submission(std::make_shared<clsFinalSubmission>());
  EXPECT_TRUE(submission_.IsFinalSubmission());
  submission_.SetSubmissionType(IsNVR);
  EXPECT_FALSE(submission_.IsFinalSubmission());
}

TEST_F(Submission, TellsWhetherAnECONIsThereWhereOneIsReported) {
  EXPECT_FALSE(submission_.HasECON());
  submission_.FPS()->Employer_References()->ECON("E3123456A");
  EXPECT_TRUE(submission_.HasECON());
  submission_.SetSubmissionType(IsEYU);
  EXPECT_FALSE(submission_.HasECON());
  submission_.EYU()->Employer_References()->ECON("E3123456A");
  EXPECT_TRUE(submission_.HasECON());
  submission_.SetSubmissionType(IsEAS);
  submission_.EAS()->Employer_References()->ECON("E3123456A");
  EXPECT_FALSE(submission_.HasECON());
  submission_.SetSubmissionType(IsEPS);
  submission_.EPS()->Employer_References()->ECON("E3123456A");
  EXPECT_FALSE(submission_.HasECON());
}

TEST_F(Submission, HasAnECONThatItsDocumentLeavesOut) {
  submission_.FPS()->Employer_References()->ECON("E3123456A");
  EXPECT_EQ(Written(submission_).find("ECON"), String::npos);
  EXPECT_TRUE(submission_.HasECON());
}

// ---- validated

TEST_F(Submission, OfAnAlignmentIsValidatedAsAWhole) { ExpectValidatedAsAWhole(kEAS); }
TEST_F(Submission, OfAFullPaymentSubmissionIsValidatedAsAWhole) { ExpectValidatedAsAWhole(kFPS); }
TEST_F(Submission, OfASummaryIsValidatedAsAWhole) { ExpectValidatedAsAWhole(kEPS); }
TEST_F(Submission, OfAVerificationRequestIsValidatedAsAWhole) { ExpectValidatedAsAWhole(kNVR); }
TEST_F(Submission, OfAnEarlierYearUpdateIsValidatedAsAWhole) { ExpectValidatedAsAWhole(kEYU); }

TEST_F(Submission, OfAnotherKindHasNothingToMark) {
  MarkHeader();
  for (const eRTISUBMISSIONTYPE type : {IsUndefined, IsErrorResponse}) {
    submission_.SetSubmissionType(type);
    submission_.Validated(true);
    EXPECT_FALSE(submission_.Validated());
  }
  EXPECT_FALSE(submission_.ERRORRESPONSE()->Validated());
  submission_.SetSubmissionType(IsPollDoc);
  submission_.Validated(false);
  EXPECT_TRUE(submission_.Validated());
}

// ---- the namespace

TEST_F(Submission, HasTheTargetNamespaceOfItsSchema) {
  for (const Kind& kind : kKinds) {
    if (!String(kind.schema).empty()) PutSchema(kind, "urn:" + String(kind.root));
  }
  for (const Kind& kind : kKinds) {
    submission_.SetSubmissionType(kind.type);
    EXPECT_EQ(submission_.Namespace(), String(kind.schema).empty() ? "" : "urn:" + String(kind.root));
  }
}

TEST_F(Submission, TakesItsNamespaceAnewForAnotherTypeAlone) {
  PutSchema(KindOf(IsFPS), "urn:first");
  PutSchema(KindOf(IsEPS), "urn:summary");
  EXPECT_EQ(submission_.Namespace(), "urn:first");
  PutSchema(KindOf(IsFPS), "urn:second");
  submission_.SetSubmissionType(IsFPS);
  EXPECT_EQ(submission_.Namespace(), "urn:first");
  submission_.SetSubmissionType(IsEPS);
  EXPECT_EQ(submission_.Namespace(), "urn:summary");
  submission_.SetSubmissionType(IsFPS);
  EXPECT_EQ(submission_.Namespace(), "urn:second");
}

TEST_F(Submission, KeepsItsNamespaceForADocumentThatIsRead) {
  PutSchema(KindOf(IsFPS), "urn:fps");
  PutSchema(KindOf(IsEPS), "urn:eps");
  EXPECT_EQ(submission_.Namespace(), "urn:fps");
  ASSERT_TRUE(ReadInto(submission_, "<IRenvelope><EmployerPaymentSummary/></IRenvelope>"));
  EXPECT_EQ(submission_.SubmissionType(), IsEPS);
  EXPECT_EQ(submission_.Namespace(), "urn:fps");
}

TEST_F(Submission, HasNoNamespaceWithoutASchemaAndSaysNothing) {
  EXPECT_EQ(submission_.Namespace(), "");
  folder_.Put("xsd/FullPaymentSubmission-2026-v1-0.xsd", "no schema");
  EXPECT_EQ(submission_.Namespace(), "");
  EXPECT_THAT(Boxes(), IsEmpty());
  PutSchema(KindOf(IsFPS), "urn:fps");
  EXPECT_EQ(submission_.Namespace(), "urn:fps");
}

// ---- writing

TEST_F(Submission, WritesTheHeaderBeforeTheSection) {
  PutSchema(KindOf(IsNVR), "urn:nvr");
  submission_.SetSubmissionType(IsNVR);
  const XmlNode parent = Root("<Body xmlns='urn:envelope'/>");
  parent.OwnerDocument().PreserveWhiteSpace(true);
  const XmlNode written = submission_.ToXML(parent);
  EXPECT_EQ(written, parent.FirstChild());
  EXPECT_EQ(written.NodeName(), "IRenvelope");
  EXPECT_THAT(ChildNames(written), ElementsAre("IRheader", "NINOverificationRequest"));
  EXPECT_EQ(written.NamespaceURI(), "urn:nvr");
  EXPECT_EQ(written.FindChild("IRheader").NamespaceURI(), "urn:nvr");
  EXPECT_EQ(written.FindChild("NINOverificationRequest").FindChild("EmpRefs").NamespaceURI(), "urn:nvr");
  EXPECT_FALSE(parent.OwnerDocument().PreserveWhiteSpace());
}

TEST_F(Submission, WritesTheSectionOfItsType) {
  for (const Kind& kind : kKinds) {
    if (String(kind.schema).empty()) continue;
    submission_.SetSubmissionType(kind.type);
    EXPECT_THAT(ChildNames(submission_.ToXML(Root("<Body/>"))), ElementsAre("IRheader", kind.root));
  }
}

TEST_F(Submission, ReplacesWhatItsParentHolds) {
  submission_.SetSubmissionType(IsEPS);
  const XmlNode parent = Root("<Body>text<Other/><IRenvelope old='1'><Old/></IRenvelope></Body>");
  submission_.ToXML(parent);
  EXPECT_THAT(ChildNames(submission_.ToXML(parent)), ElementsAre("IRheader", "EmployerPaymentSummary"));
  EXPECT_THAT(ChildNames(parent), ElementsAre("IRenvelope"));
  EXPECT_FALSE(parent.FirstChild().Attribute("old"));
}

TEST_F(Submission, WritesNoHeaderWhenItHoldsNone) {
  submission_.Header(nullptr);
  EXPECT_THAT(ChildNames(submission_.ToXML(Root("<Body/>"))), ElementsAre("FullPaymentSubmission"));
}

TEST_F(Submission, OfNoTypeWritesTheHeaderAlone) {
  submission_.SetSubmissionType(IsUndefined);
  EXPECT_THAT(ChildNames(submission_.ToXML(Root("<Body/>"))), ElementsAre("IRheader"));
}

TEST_F(Submission, WritesACopyOfTheDocumentThatItKeeps) {
  ASSERT_TRUE(ReadInto(submission_, "<Notice><Line>a</Line></Notice>"));
  const XmlNode parent = Root("<Body><Old/></Body>");
  const XmlNode written = submission_.ToXML(parent);
  EXPECT_EQ(parent.Xml(), "<Body><Notice><Line>a</Line></Notice></Body>");
  EXPECT_EQ(written, parent.FirstChild());
  written.FindChild("Line").Text("b");
  EXPECT_EQ(ChildText(submission_.PLD(), "Line"), "a");
}

TEST_F(Submission, OfAPollEmptiesItsParent) {
  submission_.SetSubmissionType(IsPollDoc);
  EXPECT_FALSE(submission_.ToXML(Root("<Body/>")));
  EXPECT_EQ(ParentAfterWriting(submission_, "<Body><Old/></Body>"), "<Body></Body>");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(Submission, WritesARefusalWithoutAnEnvelope) {
  ASSERT_TRUE(ReadInto(submission_, "<ErrorResponse><Error/></ErrorResponse>"));
  const XmlNode parent = Root("<Body><Old/></Body>");
  const XmlNode written = submission_.ToXML(parent);
  EXPECT_THAT(ChildNames(parent), ElementsAre("ErrorResponse"));
  EXPECT_EQ(written, parent.FirstChild());
  EXPECT_THAT(ChildNames(written), ElementsAre("Error"));
}

TEST_F(Submission, ReportsAParentThatIsNone) {
  EXPECT_FALSE(submission_.ToXML(nullptr));
  EXPECT_THAT(Boxes(), ElementsAre("Error in ZELNOR.dll::clsSubmission: Function ToXML: Error 91 - Object "
                                   "variable or With block variable not set"));
}

// ---- events

TEST_F(Submission, PassesOnWhatAFullPaymentSubmissionRaises) { ExpectPassedOn(kFPS); }
TEST_F(Submission, PassesOnWhatAnAlignmentRaises) { ExpectPassedOn(kEAS); }
TEST_F(Submission, PassesOnWhatAnEarlierYearUpdateRaises) { ExpectPassedOn(kEYU); }

// ---- the published shape of a section

TEST(iSubmissionSection, AnswersNothing) {
  iSubmissionSection section;
  EXPECT_FALSE(section.ParseFromXML("<FullPaymentSubmission/>"));
  EXPECT_FALSE(section.CreateFromXML(Root("<FullPaymentSubmission/>")));
  section.UseCompression(true);
  EXPECT_FALSE(section.UseCompression());
  EXPECT_EQ(section.XML(), "");
  EXPECT_FALSE(section.Document());
  EXPECT_EQ(section.Class(), "");
}

}  // namespace
}  // namespace zelnor
