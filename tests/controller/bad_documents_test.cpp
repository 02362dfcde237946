// Documents that no application should write and some do: what the reader makes of them, what it says, and
// what is written from it.

#include "zelnor/documents/clsApprenticeshipLevy.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsPaymentForPeriod.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/envelope/clsGTMMessageDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using enum eRTISUBMISSIONTYPE;

// The text of a pair's document as it is read, with one place of it replaced.
String Document(const String& pair, const String& place = {}, const String& replacement = {}) {
  const XmlDocument document;
  EXPECT_TRUE(document.Load(ZELNOR_TEST_DATA "/documents/pairs/" + pair + ".xml"));
  String text = document.DocumentElement().Xml();
  if (place.empty()) return text;
  const std::size_t at = text.find(place);
  EXPECT_NE(at, String::npos) << place;
  return text.replace(at, place.size(), replacement);
}

// The element of that name with all that it holds.
String ElementOf(const String& pair, const String& name) {
  const String text = Document(pair);
  const String end = "</" + name + ">";
  const std::size_t at = text.find("<" + name + ">");
  return text.substr(at, text.find(end) + end.size() - at);
}

String Written(clsRTIController& rti) {
  rti.GovTalkMessage()->ForceRebuild();
  return rti.GovTalkMessage()->XML();
}

// Adds an element that nobody knows below every element with children, and returns their number.
int AddInvented(const XmlNode& node) {
  int added = 0;
  for (const XmlNode& child : node.ChildNodes()) added += AddInvented(child);
  if (!node.FirstChild() || node.FirstChild().NodeType() != XmlNodeType::Element) return added;
  node.AppendElement("Invented").Text("anything");
  return added + 1;
}

class BadDocumentTest : public ControllerTest {};

TEST_F(BadDocumentTest, UnknownElementsArePassedOverEverywhere) {
  for (const char* pair : {"eps-full", "eas-full", "eyu-full", "nvr-full"}) {
    const XmlDocument document;
    ASSERT_TRUE(document.LoadXML(Document(pair)));
    EXPECT_GT(AddInvented(document.GetElementsByTagName("IRenvelope").front()), 8) << pair;
    clsRTIController rti;
    rti.ReadXML(document.DocumentElement().Xml());
    clsRTIController plain;
    plain.ReadXML(Document(pair));
    EXPECT_EQ(Written(rti), Written(plain)) << pair;
  }
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, TheLastOfTwoSingleElementsWins) {
  clsRTIController eps;
  eps.ReadXML(Document("eps-full", "<RelatedTaxYear>25-26</RelatedTaxYear>",
                       "<RelatedTaxYear>25-26</RelatedTaxYear><RelatedTaxYear>24-25</RelatedTaxYear>"
                       "<RecoverableAmountsYTD><CISDeductionsSuffered>1.00</CISDeductionsSuffered>"
                       "</RecoverableAmountsYTD>"));
  EXPECT_EQ(eps.Submission()->EPS()->TaxYear(), "24-25");
  const Ref<clsPaymentForPeriod> amounts = eps.Submission()->EPS()->PaymentForPeriod();
  EXPECT_EQ(amounts->CISDeductionsSuffered(), Currency(1));
  EXPECT_EQ(amounts->SMPRecovered(), Currency()) << "a new record for each element";

  clsRTIController eas;
  eas.ReadXML(Document("eas-full", "<NumberOfParts>2</NumberOfParts>",
                       "<NumberOfParts>2</NumberOfParts><NumberOfParts>7</NumberOfParts>"));
  EXPECT_EQ(eas.Submission()->EAS()->NumberOfParts(), 7);

  clsRTIController eyu;
  eyu.ReadXML(Document("eyu-full", "</EmpRefs>", "</EmpRefs><EmpRefs><OfficeNo>123</OfficeNo></EmpRefs>"));
  EXPECT_EQ(eyu.Submission()->EYU()->Employer_References()->OfficeNo(), "123");
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, AnAmountThatIsNoneEndsItsRecordAndNoOther) {
  clsRTIController rti;
  rti.ReadXML(Document("eps-full", "<SAPRecovered>300.50", "<SAPRecovered>three hundred"));
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsPaymentForPeriod: Function CreateFromXML: Error 13 - Type mismatch");
  const Ref<clsSectionEPS> eps = rti.Submission()->EPS();
  EXPECT_EQ(eps->PaymentForPeriod()->OSPPRecovered(), Currency::FromPence(20050)) << "read before it";
  EXPECT_EQ(eps->PaymentForPeriod()->ASPPRecovered(), Currency()) << "stood behind it";
  EXPECT_EQ(eps->ApprenticeshipLevy()->LevyDueYTD(), Currency(4300));
  EXPECT_EQ(eps->TaxYear(), "25-26");
}

TEST_F(BadDocumentTest, AFlagOfStateAidThatIsNoTruthValueEndsTheSection) {
  clsRTIController rti;
  rti.ReadXML(Document("eps-full", "<Agri>yes", "<Agri>perhaps"));
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsSectionEPS: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_TRUE(rti.Submission()->EPS()->NoPaymentForPeriod()) << "read before it";
  EXPECT_EQ(rti.Submission()->EPS()->TaxYear(), "") << "stood behind it";
}

TEST_F(BadDocumentTest, ANumberOfPartsThatIsNoneEndsTheAlignment) {
  clsRTIController rti;
  rti.ReadXML(Document("eas-full", "<NumberOfParts>2", "<NumberOfParts>two"));
  ASSERT_EQ(host_->messages.size(), 1U);
  EXPECT_EQ(host_->messages[0].text,
            "Error in ZELNOR.dll::clsSectionEAS: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(rti.Submission()->EAS()->NumberOfParts(), 1);
  EXPECT_EQ(rti.Submission()->EAS()->EmployeeCount(), 0);
  EXPECT_EQ(rti.Submission()->EAS()->Employer_References()->OfficeNo(), "961");
}

TEST_F(BadDocumentTest, OfTwoBodiesTheLastIsTheDocument) {
  clsRTIController rti;
  rti.ReadXML(Document("eyu-minimal", "</EarlierYearUpdate>",
                       "</EarlierYearUpdate>" + ElementOf("eps-full", "EmployerPaymentSummary")));
  EXPECT_EQ(rti.SubmissionType(), IsEPS);
  EXPECT_EQ(rti.Submission()->EYU(), nullptr);
  EXPECT_EQ(rti.Submission()->EPS()->Employer_References()->COTAXRef(), "8596148860");
  const String written = Written(rti);
  EXPECT_THAT(written, HasSubstr("<EmployerPaymentSummary>"));
  EXPECT_THAT(written, Not(HasSubstr("<EarlierYearUpdate>")));
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, AnEnvelopeWithoutABodyIsWhatANewDocumentIs) {
  clsRTIController rti;
  rti.ReadXML(Document("nvr-full", ElementOf("nvr-full", "NINOverificationRequest"), ""));
  EXPECT_EQ(rti.SubmissionType(), IsFPS);
  EXPECT_EQ(rti.Submission()->NVR(), nullptr);
  EXPECT_EQ(rti.Submission()->FPS()->EmployeeCount(), 0);
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, AnEnvelopeWithAnEmptyBodyIsAPollDocument) {
  const String body = ElementOf("nvr-full", "Body");
  clsRTIController rti;
  rti.ReadXML(Document("nvr-full", body, "<Body/>"));
  EXPECT_EQ(rti.SubmissionType(), IsPollDoc);
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, TheBodyDecidesWhatADocumentIsAndItsClassStandsAsRead) {
  clsRTIController rti;
  rti.ReadXML(Document("eps-minimal", "HMRC-PAYE-RTI-EPS", "HMRC-PAYE-RTI-FPS"));
  EXPECT_EQ(rti.SubmissionType(), IsEPS);
  EXPECT_EQ(rti.Submission()->Class(), "HMRC-PAYE-RTI-EPS");
  EXPECT_EQ(rti.GovTalkMessage()->Header_MessageDetails()->Class(), "HMRC-PAYE-RTI-FPS");
  EXPECT_THAT(Written(rti), HasSubstr("<Class>HMRC-PAYE-RTI-FPS</Class>"));
  EXPECT_THAT(Written(rti), HasSubstr("<EmployerPaymentSummary>"));
}

TEST_F(BadDocumentTest, ADocumentWithoutClassIsWrittenWithThatOfItsBody) {
  clsRTIController rti;
  rti.ReadXML(Document("eas-minimal", "<Class>HMRC-PAYE-RTI-EAS</Class>", ""));
  EXPECT_THAT(Written(rti), HasSubstr("<Class>HMRC-PAYE-RTI-EAS</Class>"));
}

TEST_F(BadDocumentTest, OfAHundredPeopleANINORequestReadsAllAndWritesNinetyNine) {
  const String person = ElementOf("nvr-minimal", "Employee");
  String people;
  for (int i = 0; i < 100; ++i) people += person;
  clsRTIController rti;
  rti.ReadXML(Document("nvr-minimal", person, people));
  const Ref<clsSectionNVR> nvr = rti.Submission()->NVR();
  EXPECT_EQ(nvr->EmployeeCount(), 100);
  try {
    nvr->AddEmployee(std::make_shared<clsEmployee>());
    ADD_FAILURE() << "took one more";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 1511);
    EXPECT_EQ(error.Source(), "Add Employee");
    EXPECT_EQ(error.Description(), "Maximum Employees (99) reached!");
  }
  EXPECT_EQ(nvr->EmployeeCount(), 100);
  const XmlDocument written;
  ASSERT_TRUE(written.LoadXML(Written(rti)));
  EXPECT_EQ(written.GetElementsByTagName("Employee").size(), 99U);
  EXPECT_THAT(host_->messages, IsEmpty());
}

TEST_F(BadDocumentTest, NoPaymentDatesWithoutTheirFlagAreReadAndNotWritten) {
  clsRTIController rti;
  rti.ReadXML(Document("eps-full", "<NoPaymentForPeriod>yes</NoPaymentForPeriod>", ""));
  const Ref<clsSectionEPS> eps = rti.Submission()->EPS();
  EXPECT_EQ(eps->NoPaymentFrom(), Date::FromParts(2025, 8, 6));
  try {
    eps->NoPaymentFrom(Date::FromParts(2025, 9, 6));
    ADD_FAILURE() << "took the date";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -234572);
    EXPECT_EQ(error.Source(), "ZELNOR.clsSectionEPS.NoPaymentFrom");
    EXPECT_EQ(error.Description(), "You cannot have No Payment dates if No Payment For Period is unset.");
  }
  EXPECT_EQ(eps->NoPaymentFrom(), Date::FromParts(2025, 8, 6));
  EXPECT_THAT(Written(rti), Not(HasSubstr("<NoPaymentDates>")));
  EXPECT_THAT(host_->messages, IsEmpty());
}

}  // namespace
}  // namespace zelnor::test
