// Values that no document should hold, through reading and validation: the records that they give, and no
// crash.

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/platform/text.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr Long kEmployeeErrors = 1;

class BadValuesTest : public ControllerTest {
 protected:
  BadValuesTest() { TodayOfTheSample(); }

  /// A document of one employee, with one place of it replaced.
  static String Document(const String& place = {}, const String& replacement = {}) {
    String text = ReadFile(ZELNOR_SOURCE_DIR "/samples/new/fps.xml");
    if (place.empty()) return text;
    EXPECT_NE(text.find(place), String::npos) << place;
    return Replace(text, place, replacement);
  }

  /// An element with its text, of the last of that name: the first may be the contact's.
  static String Element(const String& name) {
    const String text = Document();
    const std::size_t at = text.rfind("<" + name + ">");
    return text.substr(at, text.rfind("</" + name + ">") - at) + "</" + name + ">";
  }

  /// The codes of the records, those of inner ones behind their own.
  static std::vector<String> Codes(const Collection<Ref<ErrorRecord>>& errors) {
    std::vector<String> codes;
    for (const Ref<ErrorRecord>& error : errors) {
      codes.push_back(error->Code());
      for (const String& inner : Codes(*error->InnerExceptions())) codes.push_back(inner);
    }
    return codes;
  }

  /// Reads and validates; gives the codes of the employees' records.
  std::vector<String> EmployeeCodes(const String& document) {
    rti_.ReadXML(document);
    rti_.Submission()->Header()->DocIRMark();
    rti_.OverrideCompression(true);
    passed_ = rti_.Validate();
    return Codes(*rti_.EmployeeValidator()->Errors());
  }

  clsRTIController rti_;
  bool passed_ = false;
};

TEST_F(BadValuesTest, TheDocumentItselfIsGood) {
  EXPECT_THAT(EmployeeCodes(Document()), IsEmpty());
  for (const auto& message : host_->messages) ADD_FAILURE() << message.text;
}

TEST_F(BadValuesTest, AnEmptySurnameIsMissing) {
  EXPECT_THAT(EmployeeCodes(Document(Element("Sur"), "<Sur></Sur>")), Contains("E4.1.1"));
}

TEST_F(BadValuesTest, AnAbsentNameIsMissing) {
  const std::vector<String> codes = EmployeeCodes(Document(Element("Name"), ""));
  EXPECT_THAT(codes, Contains("E4.1.1"));
  EXPECT_THAT(codes, Contains("E4.2.1"));
  EXPECT_FALSE(passed_);
}

TEST_F(BadValuesTest, ASurnameOfTenMegabytesIsTooLong) {
  const String surname(10'000'000, 'x');
  EXPECT_THAT(EmployeeCodes(Document(Element("Sur"), "<Sur>" + surname + "</Sur>")), Contains("E4.1.2a"));
  EXPECT_EQ(rti_.EmployeeValidator()->Errors()->Item(1)->FieldValue().size(), surname.size());
}

TEST_F(BadValuesTest, LettersBeyondTheBasicPlaneAreNone) {
  EXPECT_THAT(EmployeeCodes(Document(Element("Sur"), "<Sur>𝒜𝒷</Sur>")), ElementsAre("E4.1.2"));
  // Each counts for two in a length.
  String eighteen;
  for (int i = 0; i < 18; ++i) eighteen += "😀";
  EXPECT_THAT(EmployeeCodes(Document(Element("Sur"), "<Sur>" + eighteen + "</Sur>")), ElementsAre("E4.1.2a"));
}

TEST_F(BadValuesTest, ABirthDateBefore1900IsTooLongAgo) {
  EXPECT_THAT(EmployeeCodes(Document(Element("BirthDate"), "<BirthDate>1850-06-01</BirthDate>")),
              ElementsAre("E4.10.3"));
}

TEST_F(BadValuesTest, ABirthDateBehindTheYear9999IsNone) {
  EXPECT_THAT(EmployeeCodes(Document(Element("BirthDate"), "<BirthDate>12000-06-01</BirthDate>")),
              ElementsAre("E4.10.1"));
  EXPECT_FALSE(passed_);
}

TEST_F(BadValuesTest, AnAmountAtTheLimitOfMoneyIsOutOfRange) {
  const String pay = "<TaxDeductedOrRefunded>922337203685477.58</TaxDeductedOrRefunded>";
  EXPECT_THAT(EmployeeCodes(Document(Element("TaxDeductedOrRefunded"), pay)), ElementsAre("E7.21.1"));
  EXPECT_EQ(rti_.EmployeeValidator()->Errors()->Item(1)->FieldValue(), "922337203685477.58");
}

TEST_F(BadValuesTest, AnAmountBeyondMoneyIsToldAtTheRead) {
  const String pay = "<TaxDeductedOrRefunded>922337203685477.59</TaxDeductedOrRefunded>";
  EmployeeCodes(Document(Element("TaxDeductedOrRefunded"), pay));
  ASSERT_FALSE(host_->messages.empty());
  EXPECT_THAT(host_->messages.front().text, testing::HasSubstr("Error 6 - Overflow"));
}

TEST_F(BadValuesTest, SixteenEmploymentsAreLookedAt) {
  const String employment =
      Document().substr(Document().find("<Employment>"),
                        Document().find("</Employment>") + 13 - Document().find("<Employment>"));
  String sixteen;
  for (int i = 0; i < 16; ++i)
    sixteen += Replace(employment, "<TaxCode>", i == 15 ? "<TaxCode>W" : "<TaxCode>");
  EXPECT_THAT(EmployeeCodes(Document(employment, sixteen)), Contains("E7.9.2"));
  EXPECT_EQ(rti_.Submission()->FPS()->Employees()->Item(1)->Employment()->Count(), 16);
}

TEST_F(BadValuesTest, TwoHundredNILettersAreTooMany) {
  const String text = Document();
  const std::size_t at = text.find("<NIlettersAndValues>");
  const String row = text.substr(at, text.find("</NIlettersAndValues>") + 21 - at);
  String many;
  for (int i = 0; i < 200; ++i) many += row;
  EXPECT_THAT(EmployeeCodes(Document(row, many)), Contains("E10.6.0b"));
  EXPECT_FALSE(passed_);
}

TEST_F(BadValuesTest, ASubmissionWithoutEmployeesFailsNoRuleAndNoSchema) {
  const String text = Document();
  const std::size_t at = text.find("<Employee>");
  const String employee = text.substr(at, text.find("</Employee>") + 11 - at);
  EXPECT_THAT(EmployeeCodes(Document(employee, "")), IsEmpty());
  EXPECT_TRUE(passed_);
  EXPECT_EQ(rti_.EmployeeValidator()->EmployeesChecked(), 0);
}

TEST_F(BadValuesTest, AnEmployeeInTwoSectionsIsCheckedOnce) {
  rti_.ReadXML(Document());
  const CollectionRef<clsEmployee> employees = rti_.Submission()->FPS()->Employees();
  const auto shared = MakeCollection<clsEmployee>();
  shared->Add(employees->Item(1));
  vlsEmployeeValidator validator;
  EXPECT_TRUE(validator.ValidateEmployees(employees, eRTISUBMISSIONTYPE::IsFPS, "25-26"));
  EXPECT_EQ(validator.EmployeesChecked(), 1);
  EXPECT_TRUE(validator.ValidateEmployees(shared, eRTISUBMISSIONTYPE::IsFPS, "25-26"));
  EXPECT_EQ(validator.EmployeesChecked(), 0);
}

}  // namespace
}  // namespace zelnor::test
