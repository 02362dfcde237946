#include "zelnor/validation/validator.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/validation/clsCompanyException.h"
#include "zelnor/validation/clsEmployeeException.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/pattern.h"

#include "support/recording_host.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

/// A validator whose rules the tests write.
class Sample : public Validator {
 public:
  explicit Sample(bool ignore_case = false)
      : Validator({"vlsSample", "SampleValidationErrors", "Sample", ignore_case}) {}

  using Validator::ClearErrors;
  using Validator::GetError;
  using Validator::Joined;
  using Validator::Percentage;
  using Validator::ValidatePattern;

  /// A rule that fails with the given codes, one after the other.
  bool Fail(const String& key, const std::vector<const char*>& codes, Integer status = 3,
            bool raise_errors = true) {
    const Rule rule{.key = key, .field = "Field", .code = "X.0"};
    return Check(
        rule, "",
        [&](Finding& found) {
          found.value = "value";
          for (const char* code : codes) found.Fail(code, "Title", "Text", status);
        },
        raise_errors);
  }

  /// A rule that fails by itself.
  bool Break(const String& key) {
    const Rule rule{.key = key, .field = "Field", .code = "X.0"};
    return Check(rule, "Prefix", [](Finding& found) {
      found.value = "read so far";
      ThrowTypeMismatch();
    });
  }

  int dropped = 0;

 private:
  void RecordDropped() override { ++dropped; }
};

class ValidatorTest : public testing::Test {
 protected:
  WithRecordingHost host;
  Sample validator;
};

TEST_F(ValidatorTest, RecordsOfTheLimitAreKeptAndFurtherOnesLeaveNoTrace) {
  validator.MaxErrors(2);
  EXPECT_FALSE(validator.Fail("A", {"A.1"}));
  EXPECT_FALSE(validator.Fail("B", {"B.1"}));
  EXPECT_FALSE(validator.Fail("C", {"C.1"}));
  EXPECT_FALSE(validator.Fail("A", {"A.2"}));
  EXPECT_EQ(validator.ErrorCount(), 2);
  EXPECT_EQ(validator.Errors()->Item(1)->InnerExceptions()->Count(), 0);
  EXPECT_EQ(validator.dropped, 2);
  EXPECT_FALSE(validator.MaxErrorsHit());
}

TEST_F(ValidatorTest, ProcessingErrorsAreDroppedAtTheLimitToo) {
  validator.MaxErrors(1);
  validator.Fail("A", {"A.1"});
  EXPECT_FALSE(validator.Break("B"));
  EXPECT_EQ(validator.ErrorCount(), 1);
  EXPECT_TRUE(host->messages.empty());
}

TEST_F(ValidatorTest, NegativeLimitIsStoredAsNone) {
  validator.MaxErrors(-5);
  EXPECT_EQ(validator.MaxErrors(), 0);
}

TEST_F(ValidatorTest, WarningIsAnErrorToo) {
  EXPECT_TRUE(validator.IsValid());
  EXPECT_FALSE(validator.Fail("A", {"A.1"}, 2));
  EXPECT_FALSE(validator.IsValid());
}

TEST_F(ValidatorTest, FailureWithoutRaisingIsFalseAndMakesNoRecord) {
  EXPECT_FALSE(validator.Fail("A", {"A.1"}, 3, false));
  EXPECT_TRUE(validator.IsValid());
}

TEST_F(ValidatorTest, SecondFailureOfASourceIsInsideTheFirst) {
  validator.Fail("A", {"A.1", "A.2"});
  ASSERT_EQ(validator.ErrorCount(), 1);
  const Ref<ErrorRecord> outer = validator.Errors()->Item("A");
  EXPECT_EQ(outer->Code(), "A.1");
  ASSERT_EQ(outer->InnerExceptions()->Count(), 1);
  EXPECT_EQ(outer->InnerExceptions()->Item("A")->Code(), "A.2");
}

TEST_F(ValidatorTest, ThirdFailureOfASourceIsShownAndBecomesAProcessingErrorWithoutKey) {
  EXPECT_FALSE(validator.Fail("A", {"A.1", "A.2", "A.3", "A.4"}));
  const CollectionRef<ErrorRecord> inner = validator.Errors()->Item(1)->InnerExceptions();
  ASSERT_EQ(inner->Count(), 2);
  EXPECT_EQ(inner->Item("A")->Code(), "A.2");
  EXPECT_EQ(inner->Item(2)->Code(), "X.0");
  EXPECT_EQ(inner->Item(2)->Source(), "A");
  EXPECT_EQ(
      inner->Item(2)->Description(),
      "An error occurred while attempting to validate the Field. This key is already associated with an "
      "element of this collection");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsException: Sub AddInnerException: Error 457 - This key is already "
            "associated with an element of this collection");
}

TEST_F(ValidatorTest, RuleThatBreaksShowsWhatItHadRead) {
  EXPECT_FALSE(validator.Break("A"));
  const Ref<ErrorRecord> record = validator.Errors()->Item("Prefix_A");
  EXPECT_EQ(record->Code(), "X.0");
  EXPECT_EQ(record->Title(), "Processing Error");
  EXPECT_EQ(record->Description(), "An error occurred while attempting to validate the Field. Type mismatch");
  EXPECT_EQ(record->FieldName(), "Field");
  EXPECT_EQ(record->FieldValue(), "read so far");
  EXPECT_EQ(record->Status(), 3);
}

// Keys ignore the case of letters and Sources don't: the second employee's record has no place of its own.
TEST_F(ValidatorTest, SourceThatDiffersInCaseOnlyIsShownAndKeptAsAProcessingError) {
  validator.Fail("12_a1_Surname", {"A.1"});
  EXPECT_FALSE(validator.Fail("12_A1_Surname", {"A.2"}));
  EXPECT_EQ(validator.GetError("12_A1_Surname")->Code(), "X.0");
  EXPECT_EQ(validator.GetError("12_a1_Surname")->Code(), "A.1");
  EXPECT_EQ(validator.GetError("12_a1_surname"), nullptr);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::vlsSample: Sub AddError: Error 457 - This key is already associated with an "
      "element of this collection");
}

TEST_F(ValidatorTest, XmlNestsInnerRecords) {
  validator.Fail("A", {"A.1", "A.2"}, 2);
  validator.Fail("B", {"B.1"}, 0);
  EXPECT_EQ(validator.GetAsXML().Xml(),
            "<SampleValidationErrors>"
            "<Error><ErrorType>Sample</ErrorType><Title>Title</Title><Code>A.1</Code>"
            "<Description>Text</Description><FieldName>Field</FieldName><FieldValue>value</FieldValue>"
            "<Employee>N/A</Employee><CompanyId>N/A</CompanyId><EmployeeId>N/A</EmployeeId>"
            "<EmployeeName>N/A</EmployeeName><EmployeeCode>N/A</EmployeeCode><Source>A</Source>"
            "<Status>Warning</Status>"
            "<InnerExceptions><Error><ErrorType>Sample</ErrorType><Title>Title</Title><Code>A.2</Code>"
            "<Description>Text</Description><FieldName>Field</FieldName><FieldValue>value</FieldValue>"
            "<Employee>N/A</Employee><CompanyId>N/A</CompanyId><EmployeeId>N/A</EmployeeId>"
            "<EmployeeName>N/A</EmployeeName><EmployeeCode>N/A</EmployeeCode><Source>A</Source>"
            "<Status>Warning</Status></Error></InnerExceptions></Error>"
            "<Error><ErrorType>Sample</ErrorType><Title>Title</Title><Code>B.1</Code>"
            "<Description>Text</Description><FieldName>Field</FieldName><FieldValue>value</FieldValue>"
            "<Employee>N/A</Employee><CompanyId>N/A</CompanyId><EmployeeId>N/A</EmployeeId>"
            "<EmployeeName>N/A</EmployeeName><EmployeeCode>N/A</EmployeeCode><Source>B</Source>"
            "<Status>Information</Status></Error>"
            "</SampleValidationErrors>");
}

TEST_F(ValidatorTest, XmlGoesUnderAGivenNodeWithoutARoot) {
  validator.Fail("A", {"A.1"});
  const XmlDocument doc;
  const XmlNode parent = doc.Node().AppendElement("Log");
  EXPECT_EQ(validator.GetAsXML(parent), parent);
  ASSERT_TRUE(parent.FindChild("Error"));
  EXPECT_FALSE(parent.FindChild("SampleValidationErrors"));
}

TEST_F(ValidatorTest, PatternsIgnoreCaseWhereTheValidatorDoes) {
  const Pattern small("^[a-z]$");
  EXPECT_TRUE(validator.ValidatePattern("a", small));
  EXPECT_FALSE(validator.ValidatePattern("A", small));
  EXPECT_TRUE(Sample(true).ValidatePattern("A", small));
  EXPECT_TRUE(validator.ValidatePattern("xxaxx", Pattern("a")));
}

TEST_F(ValidatorTest, PatternThatIsNoneIsShownAndMatchesNothing) {
  EXPECT_FALSE(validator.ValidatePattern("a", Pattern("(")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::vlsSample: Function ValidatePattern: Error 5 - Invalid procedure call or "
            "argument");
}

TEST_F(ValidatorTest, PercentageIsRoundedAndZeroOfNothing) {
  EXPECT_EQ(Sample::Percentage(0, 0), 0);
  EXPECT_EQ(Sample::Percentage(1, 3), 33);
  EXPECT_EQ(Sample::Percentage(2, 3), 67);
  EXPECT_EQ(Sample::Percentage(3, 3), 100);
}

TEST_F(ValidatorTest, PrefixIsJoinedOnlyWhereThereIsOne) {
  EXPECT_EQ(Sample::Joined("Company", "AORef"), "Company_AORef");
  EXPECT_EQ(Sample::Joined("", "AORef"), "AORef");
}

TEST(ErrorRecordTest, SeverityHasATextForEachNumber) {
  EXPECT_EQ(SeverityText(0), "Information");
  EXPECT_EQ(SeverityText(1), "Minor");
  EXPECT_EQ(SeverityText(2), "Warning");
  EXPECT_EQ(SeverityText(3), "Critical");
  EXPECT_EQ(SeverityText(-1), "Critical");
}

template <class Class>
class RecordClass : public testing::Test {};
using RecordClasses = testing::Types<clsException, clsCompanyException>;
TYPED_TEST_SUITE(RecordClass, RecordClasses);

TYPED_TEST(RecordClass, CreateFillsTheFieldsAndLeavesTheCollection) {
  TypeParam record;
  EXPECT_EQ(record.Status(), 0);
  const CollectionRef<ErrorRecord> inner = record.InnerExceptions();
  ASSERT_TRUE(inner);
  record.Create("source", "code", "title", "text", "name", "value", 2);
  EXPECT_EQ(record.Source(), "source");
  EXPECT_EQ(record.Code(), "code");
  EXPECT_EQ(record.Title(), "title");
  EXPECT_EQ(record.Description(), "text");
  EXPECT_EQ(record.FieldName(), "name");
  EXPECT_EQ(record.FieldValue(), "value");
  EXPECT_EQ(record.Status(), 2);
  EXPECT_EQ(record.InnerExceptions(), inner);
  const CollectionRef<ErrorRecord> other = MakeCollection<ErrorRecord>();
  record.Create("", "", "", "", "", "", 0, other);
  EXPECT_EQ(record.InnerExceptions(), other);
}

TYPED_TEST(RecordClass, InnerRecordsAreKeyedBySourceAndMakeTheirCollection) {
  TypeParam record;
  record.InnerExceptions(nullptr);
  const auto inner = std::make_shared<TypeParam>();
  inner->Source("A");
  record.AddInnerException(inner);
  EXPECT_EQ(record.InnerExceptions()->Item("A"), inner);
}

TEST(ErrorRecordTest, SecondInnerRecordOfASourceIsShownAndPassedOn) {
  const WithRecordingHost host;
  clsCompanyException record;
  record.AddInnerException(std::make_shared<clsCompanyException>());
  const auto inner = std::make_shared<clsCompanyException>();
  inner->Source("A");
  record.AddInnerException(inner);
  EXPECT_EQ(RaisedNumber([&] { record.AddInnerException(inner); }), 457);
  EXPECT_EQ(RaisedNumber([&] { record.AddInnerException(nullptr); }), 91);
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::clsCompanyException: Sub AddInnerException: Error 457 - This key is already "
      "associated with an element of this collection");
}

TEST(ErrorRecordTest, EmployeesRecordHasItsEmployee) {
  const auto employee = std::make_shared<clsEmployee>();
  clsEmployeeException record;
  record.Create(employee, "source", "code", "title", "text", "name", "value", 3);
  EXPECT_EQ(record.Employee(), employee);
  EXPECT_EQ(record.FieldValue(), "value");
}

}  // namespace
}  // namespace zelnor::test
