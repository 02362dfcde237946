#include "zelnor/documents/employee_section.h"

#include "zelnor/documents/clsCompressedEmployees.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/envelope/clsBase64.h"
#include "zelnor/platform/zip.h"

#include "support/archives.h"
#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::AddPaid;
using test::ChildNames;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;

template <class Section>
class EmployeeSections : public testing::Test {
 protected:
  /// The text of an element of the section's name.
  String Around(const String& content) const {
    const String name = section_.RootElementName();
    return "<" + name + ">" + content + "</" + name + ">";
  }

  /// The name of the class.
  String ClassName() const {
    const String name = section_.RootElementName();
    if (name == "FullPaymentSubmission") return "clsSectionFPS";
    return name == "EarlierYearUpdate" ? "clsSectionEYU" : "clsSectionEAS";
  }

  /// Whether the section writes one compressed part, or every employee by itself.
  bool Compresses() {
    const WithRecordingHost host;
    const XmlNode written = section_.ToXML(Root("<Parent/>"));
    EXPECT_TRUE(host->messages.empty());
    const std::vector<String> names = ChildNames(written);
    const auto parts = std::count(names.begin(), names.end(), "CompressedPart");
    EXPECT_EQ(std::count(names.begin(), names.end(), "Employee"), parts == 1 ? 0 : section_.EmployeeCount());
    return parts == 1;
  }

  Section section_;
};

struct SectionNames {
  template <class Section>
  static std::string GetName(int /*index*/) {
    return Section().RootElementName();
  }
};

using Sections = testing::Types<clsSectionFPS, clsSectionEYU, clsSectionEAS>;
TYPED_TEST_SUITE(EmployeeSections, Sections, SectionNames);

TYPED_TEST(EmployeeSections, AMissingEmployeeIsReported) {
  const WithRecordingHost host;
  this->section_.Employees()->Add(nullptr);
  this->section_.ToXML(Root("<Parent/>"));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::" + this->ClassName() +
                ": Function ToXML: Error 91 - Object variable or With block variable not set");
}

TYPED_TEST(EmployeeSections, BeginEmptyAndUncompressed) {
  auto& section = this->section_;
  EXPECT_TRUE(section.Employer_References());
  EXPECT_EQ(section.Employees()->Count(), 0);
  EXPECT_EQ(section.EmployeeCount(), 0);
  EXPECT_FALSE(section.UseValidation());
  EXPECT_FALSE(section.UseCompression());
  EXPECT_FALSE(section.OverrideCompression());
  EXPECT_EQ(section.AutoCompressionLimit(), 5000);
  EXPECT_FALSE(section.CompressedPart());
  EXPECT_FALSE(section.Validated());
}

TYPED_TEST(EmployeeSections, KeepTheirSwitches) {
  auto& section = this->section_;
  section.UseValidation(true);
  section.UseCompression(true);
  section.OverrideCompression(true);
  section.AutoCompressionLimit(10);
  EXPECT_TRUE(section.UseValidation());
  EXPECT_TRUE(section.UseCompression());
  EXPECT_TRUE(section.OverrideCompression());
  EXPECT_EQ(section.AutoCompressionLimit(), 10);
}

TYPED_TEST(EmployeeSections, AppendEmployeesAndClearTheirValidated) {
  auto& section = this->section_;
  const Ref<clsEmployee> first = NewEmployee();
  first->EmployeeDetails()->Validated(true);
  first->EmployeeDetails()->Contact()->Validated(true);
  section.AddEmployee(first);
  EXPECT_FALSE(first->Validated());
  const auto range = MakeCollection<clsEmployee>();
  range->Add(NewEmployee());
  range->Add(NewEmployee());
  section.AddEmployeeRange(range);
  ASSERT_EQ(section.EmployeeCount(), 3);
  EXPECT_EQ(section.Employees()->Item(1), first);
  EXPECT_EQ(section.Employees()->Item(2), range->Item(1));
  EXPECT_EQ(section.Employees()->Item(3), range->Item(2));
}

TYPED_TEST(EmployeeSections, AppendTheirOwnEmployeesOnceMore) {
  auto& section = this->section_;
  section.AddEmployee(NewEmployee());
  section.AddEmployee(NewEmployee());
  section.AddEmployeeRange(section.Employees());
  ASSERT_EQ(section.EmployeeCount(), 4);
  EXPECT_EQ(section.Employees()->Item(3), section.Employees()->Item(1));
}

TYPED_TEST(EmployeeSections, ReportARangeThatIsNone) {
  WithRecordingHost host;
  this->section_.AddEmployeeRange(nullptr);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::" + this->ClassName() +
                ": Sub AddEmployeeRange: Error 91 - Object variable or With block variable "
                "not set");
  EXPECT_EQ(this->section_.EmployeeCount(), 0);
}

TYPED_TEST(EmployeeSections, MakeReferencesWhenAbsentAndClearThoseWritten) {
  auto& section = this->section_;
  const auto references = std::make_shared<clsEmployerReferences>();
  references->Validated(true);
  section.Employer_References(references);
  EXPECT_EQ(section.Employer_References(), references);
  EXPECT_FALSE(references->Validated());
  section.Employer_References(nullptr);
  ASSERT_TRUE(section.Employer_References());
  EXPECT_NE(section.Employer_References(), references);
}

TYPED_TEST(EmployeeSections, AreValidatedWithReferencesAndEveryEmployee) {
  auto& section = this->section_;
  section.Validated(true);
  EXPECT_FALSE(section.Validated());
  section.Employer_References()->Validated(true);
  EXPECT_TRUE(section.Validated());
  section.AddEmployee(NewEmployee());
  EXPECT_FALSE(section.Validated());
}

TYPED_TEST(EmployeeSections, CompressFromTheLimitOn) {
  auto& section = this->section_;
  section.AutoCompressionLimit(3);
  section.AddEmployee(NewEmployee());
  section.AddEmployee(NewEmployee());
  EXPECT_FALSE(this->Compresses());
  section.AddEmployee(NewEmployee());
  EXPECT_TRUE(this->Compresses());
  section.OverrideCompression(true);
  EXPECT_FALSE(this->Compresses());
}

TYPED_TEST(EmployeeSections, CompressAnyNumberWhenAsked) {
  auto& section = this->section_;
  section.AddEmployee(NewEmployee());
  EXPECT_FALSE(this->Compresses());
  section.UseCompression(true);
  EXPECT_TRUE(this->Compresses());
  section.OverrideCompression(true);
  EXPECT_FALSE(this->Compresses());
}

TYPED_TEST(EmployeeSections, CompressFiveThousandUnlessToldOtherwise) {
  auto& section = this->section_;
  const Ref<clsEmployee> employee = NewEmployee();
  for (int i = 0; i < 4999; ++i) section.AddEmployee(employee);
  EXPECT_FALSE(this->Compresses());
  section.AddEmployee(employee);
  EXPECT_TRUE(this->Compresses());
  section.OverrideCompression(true);
  EXPECT_FALSE(this->Compresses());
}

TYPED_TEST(EmployeeSections, HoldThePartThatTheyWroteLast) {
  auto& section = this->section_;
  section.AddEmployee(NewEmployee());
  section.UseCompression(true);
  ASSERT_TRUE(this->Compresses());
  ASSERT_TRUE(section.CompressedPart());
  EXPECT_EQ(section.CompressedPart()->Employees(), section.Employees());
}

TYPED_TEST(EmployeeSections, WriteTheSamePartAgainUntilAnEmployeeChanges) {
  const WithRecordingHost host;
  host->now = Date::FromParts(2017, 4, 5);
  auto& section = this->section_;
  const Ref<clsEmployee> employee = NewEmployee("1");
  section.AddEmployee(employee);
  section.UseCompression(true);
  const auto written = [&] { return section.ToXML(Root("<Parent/>")).FindChild("CompressedPart").Text(); };
  const String first = written();
  host->now = Date::FromParts(2017, 4, 6);
  EXPECT_EQ(written(), first);
  employee->EmployeeDetails()->NINO("2");
  const String second = written();
  EXPECT_NE(second, first);
  EXPECT_EQ(test::ByUnzip("-Z -1", clsBase64().DecodeBytes(second)), "06042017.xml");
  host->now = Date::FromParts(2017, 4, 7);
  EXPECT_EQ(written(), second);
}

TYPED_TEST(EmployeeSections, WriteOneFormAtATimeIntoTheElementThere) {
  auto& section = this->section_;
  AddPaid(section);
  const XmlNode root = Root("<Parent/>");
  section.ToXML(root);
  section.UseCompression(true);
  const XmlNode written = section.ToXML(root);
  EXPECT_FALSE(written.FindChild("Employee"));
  EXPECT_TRUE(written.FindChild("CompressedPart"));
  section.OverrideCompression(true);
  section.ToXML(root);
  EXPECT_TRUE(written.FindChild("Employee"));
  EXPECT_FALSE(written.FindChild("CompressedPart"));
}

TYPED_TEST(EmployeeSections, CompressNoEmployeesAsWell) {
  auto& section = this->section_;
  section.UseCompression(true);
  ASSERT_TRUE(this->Compresses());
  TypeParam again;
  ASSERT_TRUE(again.CreateFromXML(section.ToXML(Root("<Parent/>"))));
  EXPECT_EQ(again.EmployeeCount(), 0);
  EXPECT_TRUE(again.UseCompression());
}

TYPED_TEST(EmployeeSections, ReadTheirOwnCompressedPart) {
  auto& section = this->section_;
  section.UseCompression(true);
  for (int i = 0; i < 30; ++i) section.AddEmployee(NewEmployee(std::to_string(i)));
  TypeParam again;
  ASSERT_TRUE(again.CreateFromXML(section.ToXML(Root("<Parent xmlns='urn:x'/>"))));
  EXPECT_TRUE(again.UseCompression());
  ASSERT_EQ(again.EmployeeCount(), 30);
  for (Long i = 1; i <= 30; ++i) {
    EXPECT_EQ(again.Employees()->Item(i)->EmployeeDetails()->NINO(), std::to_string(i - 1));
  }
  ASSERT_TRUE(again.CompressedPart());
  EXPECT_EQ(again.CompressedPart()->Employees(), again.Employees());
}

TYPED_TEST(EmployeeSections, PackEmployeesInTheFormThatTheyHaveInTheSection) {
  auto& section = this->section_;
  clsEmployment& employment = AddPaid(section, 3);
  test::AddNI(employment, Currency::FromUnits(-5), Currency::FromUnits(7));
  const XmlNode plain = section.ToXML(Root("<Parent xmlns='urn:x'/>"));
  section.UseCompression(true);
  const XmlNode packed = section.ToXML(Root("<Parent xmlns='urn:x'/>"));
  EXPECT_EQ(test::ByUnzip("-p", clsBase64().DecodeBytes(packed.FindChild("CompressedPart").Text())),
            plain.FindChild("Employee").Xml());
}

TYPED_TEST(EmployeeSections, AddEmployeesBehindACompressedPartAndTakeThePlainFormAgain) {
  auto& section = this->section_;
  ASSERT_TRUE(
      ReadInto(section, this->Around(test::CompressedPart("<Employee/><Employee/>") + "<Employee/>")));
  EXPECT_EQ(section.EmployeeCount(), 3);
  EXPECT_FALSE(section.UseCompression());
  ASSERT_TRUE(
      ReadInto(section, this->Around("<Employee/>" + test::CompressedPart("<Employee/><Employee/>"))));
  EXPECT_EQ(section.EmployeeCount(), 2);
  EXPECT_TRUE(section.UseCompression());
}

TYPED_TEST(EmployeeSections, DropTheCompressedPartOfAnEarlierRead) {
  auto& section = this->section_;
  ASSERT_TRUE(ReadInto(section, this->Around(test::CompressedPart("<Employee/>"))));
  ASSERT_TRUE(section.CompressedPart());
  ASSERT_TRUE(ReadInto(section, this->Around("<Employee/>")));
  EXPECT_FALSE(section.CompressedPart());
}

TYPED_TEST(EmployeeSections, ShowThatACompressedPartCanNotBeRead) {
  const WithRecordingHost host;
  auto& section = this->section_;
  section.AddEmployee(NewEmployee());
  ASSERT_TRUE(
      ReadInto(section, this->Around("<CompressedPart Type='zip'>UEsDBA==</CompressedPart><EmpRefs/>")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsCompressedEmployees: Function CreateFromXML: Error -1 - Error occurred "
            "UnZipping Data");
  EXPECT_EQ(section.EmployeeCount(), 0);
  ASSERT_TRUE(section.CompressedPart());
  EXPECT_EQ(section.CompressedPart()->Failure(), "Error occurred UnZipping Data");
}

TYPED_TEST(EmployeeSections, WriteThePlainFormWhenTheEmployeesCanNotBePacked) {
  const WithRecordingHost host;
  auto& section = this->section_;
  section.AddEmployee(NewEmployee(String(kFreelyUnpackedBytes + 1, 'a')));
  section.UseCompression(true);
  std::vector<String> raised;
  const Subscription subscription(
      section.events.CompressionError.connect([&](const String& text) { raised.push_back(text); }));
  const XmlNode written = section.ToXML(Root("<Parent/>"));
  EXPECT_EQ(raised, std::vector<String>{"Error occurred Zipping Data - Dynazip error number = 18"});
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsCompressedEmployees: Function ToXML: Error -1 - Error occurred Zipping "
            "Data - Dynazip error number = 18");
  EXPECT_FALSE(written.FindChild("CompressedPart"));
  EXPECT_FALSE(section.CompressedPart());
  ASSERT_TRUE(written.FindChild("Employee"));
  const XmlNode details = written.FindChild("Employee").FindChild("EmployeeDetails");
  EXPECT_EQ(details.FindChild("NINO").Text().size(), kFreelyUnpackedBytes + 1);
}

TYPED_TEST(EmployeeSections, ReadEmployeesInOrderAndTakeThePlainForm) {
  auto& section = this->section_;
  section.UseCompression(true);
  ASSERT_TRUE(ReadInto(
      section, this->Around("<Employee><EmployeeDetails><NINO>1</NINO></EmployeeDetails></Employee>"
                            "<Unknown/>"
                            "<Employee><EmployeeDetails><NINO>2</NINO></EmployeeDetails></Employee>")));
  EXPECT_FALSE(section.UseCompression());
  ASSERT_EQ(section.EmployeeCount(), 2);
  EXPECT_EQ(section.Employees()->Item(1)->EmployeeDetails()->NINO(), "1");
  EXPECT_EQ(section.Employees()->Item(2)->EmployeeDetails()->NINO(), "2");
}

TYPED_TEST(EmployeeSections, ReadingClearsReferencesAndEmployeesAndKeepsTheSwitches) {
  auto& section = this->section_;
  section.AddEmployee(NewEmployee());
  section.Employer_References()->OfficeNo("123");
  section.UseCompression(true);
  section.OverrideCompression(true);
  section.AutoCompressionLimit(3);
  section.Validated(true);
  const Ref<clsEmployerReferences> before = section.Employer_References();
  ASSERT_TRUE(ReadInto(section, this->Around("")));
  EXPECT_EQ(section.EmployeeCount(), 0);
  EXPECT_NE(section.Employer_References(), before);
  EXPECT_EQ(section.Employer_References()->OfficeNo(), "");
  EXPECT_TRUE(section.UseCompression());
  EXPECT_TRUE(section.OverrideCompression());
  EXPECT_EQ(section.AutoCompressionLimit(), 3);
  section.Employer_References()->Validated(true);
  EXPECT_FALSE(section.Validated());
}

TYPED_TEST(EmployeeSections, RefuseOtherNamesAndDeclarations) {
  auto& section = this->section_;
  EXPECT_FALSE(ReadInto(section, "<Other><Employee/></Other>"));
  EXPECT_EQ(section.EmployeeCount(), 0);
  const String text = this->Around("<Employee/>");
  EXPECT_FALSE(section.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(section.ParseFromXML("<" + section.RootElementName() + ">"));
  EXPECT_EQ(section.EmployeeCount(), 0);
  EXPECT_TRUE(section.ParseFromXML(text));
  EXPECT_EQ(section.EmployeeCount(), 1);
}

TYPED_TEST(EmployeeSections, ReplaceTheEmployeesOfTheElementThere) {
  auto& section = this->section_;
  AddPaid(section);
  const XmlNode root = Root("<Parent/>");
  section.ToXML(root);
  const XmlNode written = section.ToXML(root);
  EXPECT_EQ(ChildNames(root).size(), 1U);
  const std::vector<String> names = ChildNames(written);
  EXPECT_EQ(std::count(names.begin(), names.end(), "Employee"), 1);
  EXPECT_EQ(std::count(names.begin(), names.end(), "EmpRefs"), 1);
}

TYPED_TEST(EmployeeSections, WriteNewReferencesForNone) {
  WithRecordingHost host;
  auto& section = this->section_;
  section.Employer_References(nullptr);
  EXPECT_TRUE(section.ToXML(Root("<Parent/>")).FindChild("EmpRefs"));
  EXPECT_TRUE(host->messages.empty());
}

TYPED_TEST(EmployeeSections, ReportAMissingParent) {
  WithRecordingHost host;
  EXPECT_FALSE(this->section_.ToXML({}));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::" + this->ClassName() +
                ": Function ToXML: Error 91 - Object variable or With block variable not set");
}

}  // namespace
}  // namespace zelnor
