#include "zelnor/documents/clsEmployerReferences.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const char kFps[] = "FullPaymentSubmission";
const char kEps[] = "EmployerPaymentSummary";
const char kEyu[] = "EarlierYearUpdate";

clsEmployerReferences WithTaxReference(const String& reference, etaxEmpRefTaxRef type) {
  clsEmployerReferences references;
  references.Create("527", "AS90316", "527PX00317642", "", reference, type);
  return references;
}

// What stands in EmpRefs behind the three references when it is written into a section that holds `before`.
String Behind(clsEmployerReferences references, const String& section, const String& before = {}) {
  const XmlNode parent = Root("<" + section + "><EmpRefs><OfficeNo/><PayeRef/><AORef/>" + before +
                              "</EmpRefs></" + section + ">");
  const String xml = references.ToXML(parent).Xml();
  const String three =
      "<EmpRefs><OfficeNo>527</OfficeNo><PayeRef>AS90316</PayeRef><AORef>527PX00317642</AORef>";
  EXPECT_EQ(xml.substr(0, three.size()), three);
  const String end = "</EmpRefs>";
  return xml.substr(three.size(), xml.size() - three.size() - end.size());
}

const String kUtr = "<SAUTR>8596148860</SAUTR>";
const String kCot = "<COTAXRef>8596148860</COTAXRef>";

}  // namespace

TEST(clsEmployerReferences, CreateStoresItsArguments) {
  clsEmployerReferences references;
  references.Validated(true);
  references.Create("527", "AS90316", "527PX00317642", " E3100127Q ", "8596148860",
                    etaxEmpRefTaxRef::etxUseUTR);
  EXPECT_EQ(references.OfficeNo(), "527");
  EXPECT_EQ(references.PayeRef(), "AS90316");
  EXPECT_EQ(references.AORef(), "527PX00317642");
  EXPECT_EQ(references.ECON(), "E3100127Q");
  EXPECT_EQ(references.SAUTROrCOTAXRef(), "8596148860");
  EXPECT_EQ(references.SAUTROrCOTAXRefType(), etaxEmpRefTaxRef::etxUseUTR);
  EXPECT_FALSE(references.Validated());
}

TEST(clsEmployerReferences, CreateWithoutThemKeepsEconAndTaxReferenceAndUndefinesItsType) {
  clsEmployerReferences references;
  references.Create("1", "2", "3", "E", "4", etaxEmpRefTaxRef::extUseCOTAXRef);
  references.Create("5", "6", "7", "", "", etaxEmpRefTaxRef::etxUseUTR);
  EXPECT_EQ(references.ECON(), "E");
  EXPECT_EQ(references.SAUTROrCOTAXRef(), "4");
  EXPECT_EQ(references.SAUTROrCOTAXRefType(), etaxEmpRefTaxRef::extUndefined);
}

TEST(clsEmployerReferences, WritesThreeReferencesInOrderAlsoEmpty) {
  clsEmployerReferences references;
  EXPECT_EQ(Written(references),
            "<EmpRefs><OfficeNo></OfficeNo><PayeRef></PayeRef><AORef></AORef></EmpRefs>");
}

TEST(clsEmployerReferences, WritesInPlaceWithoutEmptyingItsElement) {
  clsEmployerReferences references;
  references.Create("1", "2", "3");
  EXPECT_EQ(ParentAfterWriting(references,
                               "<P><EmpRefs><AORef>x</AORef><Other/><OfficeNo>y</OfficeNo></EmpRefs></P>"),
            "<P><EmpRefs><AORef>3</AORef><Other></Other><OfficeNo>1</OfficeNo><PayeRef>2</PayeRef></EmpRefs>"
            "</P>");
}

TEST(clsEmployerReferences, NeverWritesEconAndRemovesOneThatIsThere) {
  clsEmployerReferences references = WithTaxReference("", etaxEmpRefTaxRef::extUndefined);
  references.ECON("E3100127Q");
  for (const char* section : {kFps, kEps, kEyu, "Parent"}) {
    EXPECT_EQ(Behind(references, section, "<ECON>E</ECON>"), "") << section;
  }
  EXPECT_EQ(references.ECON(), "E3100127Q");
}

TEST(clsEmployerReferences, AnFpsCarriesEitherTaxReference) {
  EXPECT_EQ(Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::etxUseUTR), kFps), kUtr);
  EXPECT_EQ(Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::extUseCOTAXRef), kFps), kCot);
}

TEST(clsEmployerReferences, AnEpsCarriesTheCorporationTaxReferenceAlone) {
  EXPECT_EQ(Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::extUseCOTAXRef), kEps), kCot);
  EXPECT_EQ(Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::etxUseUTR), kEps,
                   "<SAUTR>1</SAUTR><COTAXRef>2</COTAXRef>"),
            "");
}

TEST(clsEmployerReferences, OtherDocumentsCarryNeither) {
  for (const char* section : {kEyu, "EmployerAlignmentSubmission", "Parent"}) {
    for (const etaxEmpRefTaxRef type : {etaxEmpRefTaxRef::etxUseUTR, etaxEmpRefTaxRef::extUseCOTAXRef}) {
      EXPECT_EQ(
          Behind(WithTaxReference("8596148860", type), section, "<COTAXRef>2</COTAXRef><SAUTR>1</SAUTR>"), "")
          << section;
    }
  }
}

TEST(clsEmployerReferences, AnUnknownTypeAndAnEmptyReferenceRemoveBoth) {
  const String both = "<SAUTR>1</SAUTR><COTAXRef>2</COTAXRef>";
  for (const char* section : {kFps, kEps}) {
    clsEmployerReferences references = WithTaxReference("8596148860", etaxEmpRefTaxRef::extUndefined);
    EXPECT_EQ(Behind(references, section, both), "");
    references.SetSAUTROrCOTAXRef("8596148860", static_cast<etaxEmpRefTaxRef>(3));
    EXPECT_EQ(Behind(references, section, both), "");
    references.SetSAUTROrCOTAXRef("", etaxEmpRefTaxRef::extUseCOTAXRef);
    EXPECT_EQ(Behind(references, section, both), "");
  }
}

TEST(clsEmployerReferences, AnElementOfTheOtherKindKeepsItsPlace) {
  EXPECT_EQ(
      Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::extUseCOTAXRef), kFps, "<SAUTR>1</SAUTR>"),
      "<SAUTR>1</SAUTR>" + kCot);
  EXPECT_EQ(Behind(WithTaxReference("8596148860", etaxEmpRefTaxRef::etxUseUTR), kFps,
                   "<SAUTR>1</SAUTR><COTAXRef>2</COTAXRef>"),
            kUtr + "<COTAXRef>2</COTAXRef>");
}

TEST(clsEmployerReferences, FindsTheSectionAnyNumberOfLevelsUp) {
  clsEmployerReferences references = WithTaxReference("8596148860", etaxEmpRefTaxRef::etxUseUTR);
  const XmlNode section =
      Root("<x:FullPaymentSubmission xmlns:x=\"urn:x\"><A><B/></A></x:FullPaymentSubmission>");
  const XmlNode written = references.ToXML(section.FirstChild().FirstChild());
  EXPECT_TRUE(written.FindChild("SAUTR"));
}

TEST(clsEmployerReferences, ReadsEveryRowOfItsTable) {
  const auto references = Read<clsEmployerReferences>(
      "<EmpRefs><OfficeNo>1</OfficeNo><PayeRef>2</PayeRef><AORef>3</AORef><ECON>4</ECON><SAUTR>5</SAUTR>"
      "</EmpRefs>");
  EXPECT_EQ(references->OfficeNo() + references->PayeRef() + references->AORef() + references->ECON(),
            "1234");
  EXPECT_EQ(references->SAUTROrCOTAXRef(), "5");
  EXPECT_TRUE(references->HasSAUTR());
  EXPECT_FALSE(references->HasCOTAXRef());
  EXPECT_EQ(references->COTAXRef(), "");
}

TEST(clsEmployerReferences, OfTwoTaxReferencesTheLastOneReadWins) {
  const auto references =
      Read<clsEmployerReferences>("<EmpRefs><SAUTR>5</SAUTR><COTAXRef>6</COTAXRef></EmpRefs>");
  EXPECT_TRUE(references->HasCOTAXRef());
  EXPECT_FALSE(references->HasSAUTR());
  EXPECT_EQ(references->COTAXRef(), "6");
}

TEST(clsEmployerReferences, ReadingClearsEverything) {
  clsEmployerReferences references;
  references.Create("1", "2", "3", "4", "5", etaxEmpRefTaxRef::etxUseUTR);
  references.Validated(true);
  EXPECT_TRUE(references.CreateFromXML(Root("<EmpRefs/>")));
  EXPECT_EQ(references.OfficeNo() + references.PayeRef() + references.AORef() + references.ECON() +
                references.SAUTROrCOTAXRef(),
            "");
  EXPECT_EQ(references.SAUTROrCOTAXRefType(), etaxEmpRefTaxRef::extUndefined);
  EXPECT_FALSE(references.Validated());
}

TEST(clsEmployerReferences, EconAndTheTaxReferenceWithItsTypeLeaveTheFlag) {
  clsEmployerReferences references;
  references.Validated(true);
  references.ECON(" E ");
  references.SetSAUTROrCOTAXRef("5", etaxEmpRefTaxRef::extUseCOTAXRef);
  EXPECT_EQ(references.ECON(), "E");
  EXPECT_EQ(references.COTAXRef(), "5");
  EXPECT_TRUE(references.Validated());
}

TEST(clsEmployerReferences, EveryOtherTextFollowsTheRuleOfChangeAndComesBack) {
  ExpectTextChangeClearsValidated(&clsEmployerReferences::OfficeNo, &clsEmployerReferences::OfficeNo);
  ExpectTextChangeClearsValidated(&clsEmployerReferences::PayeRef, &clsEmployerReferences::PayeRef);
  ExpectTextChangeClearsValidated(&clsEmployerReferences::AORef, &clsEmployerReferences::AORef);
  ExpectTextChangeClearsValidated(&clsEmployerReferences::SAUTROrCOTAXRef,
                                  &clsEmployerReferences::SAUTROrCOTAXRef);
  ExpectTextComesBack(&clsEmployerReferences::OfficeNo, &clsEmployerReferences::OfficeNo);
  ExpectTextComesBack(&clsEmployerReferences::PayeRef, &clsEmployerReferences::PayeRef);
  ExpectTextComesBack(&clsEmployerReferences::AORef, &clsEmployerReferences::AORef);
}

TEST(clsEmployerReferences, ParsesItsOwnRootOnly) {
  clsEmployerReferences references;
  EXPECT_TRUE(references.ParseFromXML("<EmpRefs><AORef>3</AORef></EmpRefs>"));
  EXPECT_FALSE(references.ParseFromXML("<?xml version=\"1.0\"?><EmpRefs/>"));
  EXPECT_FALSE(references.ParseFromXML("<EmpRef/>"));
  EXPECT_EQ(references.AORef(), "3");
  EXPECT_EQ(references.RootElementName(), "EmpRefs");
}
