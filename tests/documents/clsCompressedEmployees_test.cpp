#include "zelnor/documents/clsCompressedEmployees.h"

#include "zelnor/envelope/clsDZEncoder.h"

#include "support/archives.h"
#include "support/payroll.h"
#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ByUnzip;
using test::NewEmployee;
using test::ReadInto;
using test::Root;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kTwo =
    "<Employee><EmployeeDetails><NINO>1</NINO></EmployeeDetails></Employee>"
    "<Employee><EmployeeDetails><NINO>2</NINO></EmployeeDetails></Employee>";

class CompressedEmployees : public testing::Test {
 protected:
  /// Reads an element with this Base64 text.
  bool ReadBase64(const String& base64) {
    return ReadInto(part_, "<CompressedPart Type=\"zip\">" + base64 + "</CompressedPart>");
  }

  /// Reads an element with this archive.
  bool ReadArchive(const std::string& archive) { return ReadBase64(clsBase64().EncodeBytes(archive)); }

  /// The part is refused, with this behind "Error ", and holds no employees.
  void ExpectRefused(const String& base64, const String& error) {
    host_->messages.clear();
    part_.AddEmployee(NewEmployee());
    EXPECT_FALSE(ReadBase64(base64));
    EXPECT_EQ(part_.EmployeeCount(), 0);
    ASSERT_FALSE(host_->messages.empty());
    EXPECT_THAT(
        host_->messages.back().text,
        StartsWith("Error in ZELNOR.dll::clsCompressedEmployees: Function CreateFromXML: Error " + error));
    EXPECT_THAT(part_.Failure(), StartsWith("Error"));
  }

  /// What the part's archive holds when written under the parent.
  String Inside(const String& parent) {
    return ByUnzip("-p", clsBase64().DecodeBytes(part_.ToXML(Root(parent)).Text()));
  }

  test::WithRecordingHost host_;
  clsCompressedEmployees part_;
};

// ---- the record

TEST_F(CompressedEmployees, BeginEmpty) {
  EXPECT_EQ(part_.RootElementName(), "CompressedPart");
  EXPECT_EQ(part_.EmployeeCount(), 0);
  EXPECT_EQ(part_.CompressionMode(), enmCompressionMode::Zip);
  EXPECT_FALSE(part_.Validated());
  EXPECT_EQ(part_.Failure(), "");
}

TEST_F(CompressedEmployees, HoldACollectionByReference) {
  const auto employees = MakeCollection<clsEmployee>();
  part_.Create(employees);
  EXPECT_EQ(part_.Employees(), employees);
  part_.AddEmployee(NewEmployee());
  EXPECT_EQ(employees->Count(), 1);
  part_.Employees(nullptr);
  EXPECT_EQ(part_.EmployeeCount(), 0);
  EXPECT_TRUE(part_.Employees());
}

TEST_F(CompressedEmployees, AppendEmployeesAndClearTheirValidated) {
  const Ref<clsEmployee> employee = NewEmployee();
  employee->EmployeeDetails()->Validated(true);
  part_.AddEmployee(employee);
  EXPECT_FALSE(employee->Validated());
  part_.AddEmployeeRange(part_.Employees());
  ASSERT_EQ(part_.EmployeeCount(), 2);
  EXPECT_EQ(part_.Employees()->Item(2), employee);
}

TEST_F(CompressedEmployees, ReportNoEmployeeAndNoRange) {
  part_.AddEmployee(nullptr);
  part_.AddEmployeeRange(nullptr);
  ASSERT_EQ(host_->messages.size(), 2U);
  EXPECT_THAT(host_->messages[0].text,
              StartsWith("Error in ZELNOR.dll::clsCompressedEmployees: Sub AddEmployee: Error 91 - "));
  EXPECT_THAT(host_->messages[1].text,
              StartsWith("Error in ZELNOR.dll::clsCompressedEmployees: Sub AddEmployeeRange: Error 91 - "));
}

TEST_F(CompressedEmployees, AreValidatedWithEveryEmployee) {
  part_.Validated(true);
  EXPECT_TRUE(part_.Validated());
  part_.AddEmployee(NewEmployee());
  EXPECT_FALSE(part_.Validated());
}

// ---- reading

TEST_F(CompressedEmployees, ReadTheEmployeesInOrder) {
  ASSERT_TRUE(ReadInto(part_, test::CompressedPart(kTwo)));
  ASSERT_EQ(part_.EmployeeCount(), 2);
  EXPECT_EQ(part_.Employees()->Item(1)->EmployeeDetails()->NINO(), "1");
  EXPECT_EQ(part_.Employees()->Item(2)->EmployeeDetails()->NINO(), "2");
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(CompressedEmployees, ReplaceThoseOfAnEarlierRead) {
  part_.AddEmployee(NewEmployee());
  part_.Validated(true);
  ASSERT_TRUE(ReadInto(part_, test::CompressedPart(kTwo)));
  EXPECT_EQ(part_.EmployeeCount(), 2);
  for (const Ref<clsEmployee>& each : *part_.Employees()) each->Validated(true);
  EXPECT_FALSE(part_.Validated());
}

TEST_F(CompressedEmployees, ReadZipAndGzipWhateverTheTypeSays) {
  for (const String type : {"zip", "ZIP", "Zip", "gzip", "GZIP", "gZip", "tar", ""}) {
    for (const std::string& archive : {test::ZippedByZip(kTwo), test::ZippedByGzip(kTwo)}) {
      ASSERT_TRUE(ReadInto(part_, "<CompressedPart Type=\"" + type + "\">" +
                                      clsBase64().EncodeBytes(archive) + "</CompressedPart>"));
      EXPECT_EQ(part_.EmployeeCount(), 2) << type;
      EXPECT_EQ(part_.CompressionMode() == enmCompressionMode::GZip, type.size() == 4) << type;
    }
  }
}

TEST_F(CompressedEmployees, ReadAnElementWithoutAType) {
  part_.CompressionMode(enmCompressionMode::GZip);
  ASSERT_TRUE(ReadInto(
      part_, "<CompressedPart>" + clsBase64().EncodeBytes(test::ZippedByZip(kTwo)) + "</CompressedPart>"));
  EXPECT_EQ(part_.EmployeeCount(), 2);
  EXPECT_EQ(part_.CompressionMode(), enmCompressionMode::Zip);
}

TEST_F(CompressedEmployees, ReadEmployeesOfAnyNamespace) {
  ASSERT_TRUE(ReadArchive(test::ZippedByZip("\n<Employee xmlns=\"urn:x\"/>\n<Unknown/><Employee/>\n")));
  EXPECT_EQ(part_.EmployeeCount(), 2);
}

TEST_F(CompressedEmployees, ReadWhatIsNoUtf8AsWindows1252) {
  ASSERT_TRUE(ReadArchive(test::ZippedByZip(
      "<Employee><EmployeeDetails><Name><Sur>Zo\xEB</Sur></Name></EmployeeDetails></Employee>")));
  EXPECT_EQ(part_.Employees()->Item(1)->EmployeeDetails()->Contact()->Surname(), "Zo\xC3\xAB");
}

TEST_F(CompressedEmployees, ReadNoEmployeesFromAnEmptyText) {
  ASSERT_TRUE(ReadArchive(test::ZippedByZip("")));
  EXPECT_EQ(part_.EmployeeCount(), 0);
  EXPECT_TRUE(ReadBase64(""));
  EXPECT_EQ(part_.EmployeeCount(), 0);
}

TEST_F(CompressedEmployees, RefuseOtherNamesAndDeclarations) {
  part_.AddEmployee(NewEmployee());
  const String text = test::CompressedPart(kTwo);
  EXPECT_FALSE(part_.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(part_.ParseFromXML("<CompressedPart>"));
  EXPECT_FALSE(part_.ParseFromXML("<Other/>"));
  EXPECT_EQ(part_.EmployeeCount(), 1);
  EXPECT_FALSE(ReadInto(part_, "<Other>" + text + "</Other>"));
  EXPECT_EQ(part_.EmployeeCount(), 0);
  EXPECT_TRUE(part_.ParseFromXML(text));
  EXPECT_EQ(part_.EmployeeCount(), 2);
  EXPECT_TRUE(host_->messages.empty());
}

TEST_F(CompressedEmployees, RefuseWhatIsNoReadableArchive) {
  const std::string whole = test::ZippedByZip(kTwo);
  const std::string encrypted = test::ArchiveBy("zip -q -P secret a.zip pay.xml && mv a.zip archive", kTwo);
  const std::string many =
      test::ArchiveBy("cp pay.xml other.xml && zip -q a.zip *.xml && mv a.zip archive", kTwo);
  const std::string none = "PK\x05\x06" + std::string(18, '\0');
  std::string damaged = whole;
  const std::size_t data = 30 + static_cast<unsigned char>(whole[26]) + static_cast<unsigned char>(whole[28]);
  damaged[data + 10] = static_cast<char>(damaged[data + 10] ^ 0x55);
  for (const std::string& archive :
       {whole.substr(0, whole.size() / 2), encrypted, many, none, damaged, std::string("text")}) {
    ExpectRefused(clsBase64().EncodeBytes(archive), "-1 - Error occurred UnZipping Data");
  }
  ExpectRefused("no Base64!", "-1 - Error occurred UnZipping Data");
}

TEST_F(CompressedEmployees, RefuseABomb) {
  const std::string bomb = test::ArchiveBy("head -c 100000000 /dev/zero | gzip -1 >archive", "");
  ExpectRefused(clsBase64().EncodeBytes(bomb), "-1 - Error occurred UnZipping Data");
}

TEST_F(CompressedEmployees, RefuseAnArchiveOfWhatIsNoXml) {
  ExpectRefused(clsBase64().EncodeBytes(test::ZippedByZip("<Employee>")),
                "-1 - Error in the unzipped employees: ");
  ExpectRefused(clsBase64().EncodeBytes(test::ZippedByZip("</Employees><Employees>")),
                "-1 - Error in the unzipped employees: ");
}

TEST_F(CompressedEmployees, TakeAnArchiveOfATextThatBeginsWithErrorForAFailure) {
  ExpectRefused(clsBase64().EncodeBytes(test::ZippedByZip("Error everywhere")), "-1 - Error everywhere");
}

TEST_F(CompressedEmployees, ForgetAFailureWithTheNextRead) {
  ExpectRefused("AAAA", "-1");
  ASSERT_TRUE(ReadInto(part_, test::CompressedPart(kTwo)));
  EXPECT_EQ(part_.Failure(), "");
}

// ---- writing

TEST_F(CompressedEmployees, WriteAZipWhateverTheMode) {
  part_.CompressionMode(enmCompressionMode::GZip);
  part_.AddEmployee(NewEmployee("1"));
  const XmlNode written = part_.ToXML(Root("<FullPaymentSubmission xmlns=\"urn:x\"/>"));
  EXPECT_EQ(written.NodeName(), "CompressedPart");
  EXPECT_EQ(written.NamespaceURI(), "urn:x");
  EXPECT_EQ(written.Attribute("Type"), "zip");
  EXPECT_EQ(written.Attributes().size(), 1U);
  EXPECT_THAT(ByUnzip("-t", clsBase64().DecodeBytes(written.Text())), HasSubstr("No errors detected"));
}

TEST_F(CompressedEmployees, PackEachEmployeeWithItsNamespace) {
  part_.AddEmployee(NewEmployee("1"));
  part_.AddEmployee(NewEmployee("2"));
  for (const String name : {"FullPaymentSubmission", "EmployerAlignmentSubmission", "EarlierYearUpdate"}) {
    const String inside = Inside("<" + name + " xmlns=\"urn:x\"/>");
    EXPECT_THAT(inside, StartsWith("<Employee xmlns=\"urn:x\"><EmployeeDetails><NINO>1</NINO>"));
    EXPECT_THAT(inside, HasSubstr("</Employee><Employee xmlns=\"urn:x\"><EmployeeDetails><NINO>2</NINO>"));
  }
  EXPECT_THAT(Inside("<FullPaymentSubmission/>"), StartsWith("<Employee><EmployeeDetails>"));
}

TEST_F(CompressedEmployees, PackTheEmployeesOfASectionThatInheritsItsNamespace) {
  part_.AddEmployee(NewEmployee("1"));
  const XmlNode envelope = Root("<IRenvelope xmlns=\"urn:x\"><FullPaymentSubmission/></IRenvelope>");
  const XmlNode written = part_.ToXML(envelope.FindChild("FullPaymentSubmission"));
  EXPECT_THAT(ByUnzip("-p", clsBase64().DecodeBytes(written.Text())),
              StartsWith("<Employee xmlns=\"urn:x\">"));
}

TEST_F(CompressedEmployees, PackEmployeesInTheFormOfTheirSection) {
  const Ref<clsEmployee> employee = NewEmployee("1");
  test::AddEmployment(*employee, 3);
  part_.AddEmployee(employee);
  std::set<String> forms;
  for (const String name : {"FullPaymentSubmission", "EmployerAlignmentSubmission", "EarlierYearUpdate"}) {
    const XmlNode section = Root("<" + name + "/>");
    const String plain = employee->ToXML(section).Xml();
    EXPECT_EQ(Inside("<" + name + "/>"), plain) << name;
    forms.insert(plain);
  }
  EXPECT_EQ(forms.size(), 3U);
}

TEST_F(CompressedEmployees, PackAnEmptyTextForNoEmployees) {
  for (const CollectionRef<clsEmployee>& none :
       {MakeCollection<clsEmployee>(), CollectionRef<clsEmployee>()}) {
    part_.Employees(none);
    const XmlNode written = part_.ToXML(Root("<FullPaymentSubmission/>"));
    const std::string archive = clsBase64().DecodeBytes(written.Text());
    EXPECT_THAT(ByUnzip("-Z", archive), HasSubstr("1 file, 0 bytes uncompressed"));
  }
}

TEST_F(CompressedEmployees, WriteIntoTheElementThere) {
  const XmlNode section = Root(
      "<FullPaymentSubmission><CompressedPart Type=\"gzip\">AAAA</CompressedPart>"
      "</FullPaymentSubmission>");
  part_.AddEmployee(NewEmployee("1"));
  part_.ToXML(section);
  ASSERT_EQ(test::ChildNames(section).size(), 1U);
  clsCompressedEmployees again;
  ASSERT_TRUE(again.CreateFromXML(section.FirstChild()));
  EXPECT_EQ(section.FirstChild().Attribute("Type"), "zip");
  EXPECT_EQ(again.EmployeeCount(), 1);
}

TEST_F(CompressedEmployees, BringEveryTextThrough) {
  for (const String& text : test::TextsThatComeBack()) {
    clsCompressedEmployees part;
    part.AddEmployee(NewEmployee(text));
    clsCompressedEmployees again;
    ASSERT_TRUE(again.CreateFromXML(part.ToXML(Root("<FullPaymentSubmission/>"))));
    EXPECT_EQ(again.Employees()->Item(1)->EmployeeDetails()->NINO(), text);
  }
}

TEST_F(CompressedEmployees, ReportAMissingEmployeeAndAMissingParent) {
  part_.Employees()->Add(nullptr);
  EXPECT_FALSE(part_.ToXML(Root("<FullPaymentSubmission/>")));
  EXPECT_EQ(part_.Failure(),
            "Error in ZELNOR.dll::clsCompressedEmployees: Function ToXML: Error 91 - Object variable or With "
            "block variable not set");
  EXPECT_FALSE(part_.ToXML({}));
  ASSERT_EQ(host_->messages.size(), 2U);
  EXPECT_EQ(host_->messages[0].text, part_.Failure());
  EXPECT_EQ(host_->messages[1].text, part_.Failure());
}

// ---- fragments

TEST_F(CompressedEmployees, GiveThemselvesUncompressedAsAFragment) {
  part_.AddEmployee(NewEmployee("1"));
  part_.AddEmployee(NewEmployee("2"));
  const XmlNode fragment = part_.EmployeeFragment();
  ASSERT_EQ(fragment.NodeType(), XmlNodeType::DocumentFragment);
  EXPECT_EQ(test::ChildNames(fragment), std::vector<String>{"Employees"});
  EXPECT_EQ(test::ChildNames(fragment.FirstChild()), (std::vector<String>{"Employee", "Employee"}));
  EXPECT_EQ(fragment.FirstChild().NamespaceURI(), "");
}

TEST_F(CompressedEmployees, GiveTheFragmentTheNameAndNamespaceAskedFor) {
  part_.AddEmployee(NewEmployee("1"));
  const XmlNode root = part_.EmployeeFragment("People", "urn:x").FirstChild();
  EXPECT_EQ(root.NodeName(), "People");
  EXPECT_EQ(root.NamespaceURI(), "urn:x");
  EXPECT_EQ(root.FirstChild().NamespaceURI(), "urn:x");
  EXPECT_THAT(root.Xml(), StartsWith("<People xmlns=\"urn:x\"><Employee><EmployeeDetails>"));
}

TEST_F(CompressedEmployees, GiveTheFragmentTheFormOfTheirSection) {
  const Ref<clsEmployee> employee = NewEmployee("1");
  test::AddEmployment(*employee, 3);
  part_.AddEmployee(employee);
  const auto fragment = [&] { return part_.EmployeeFragment().FirstChild().FirstChild().Xml(); };
  EXPECT_EQ(fragment(), employee->ToXML(Root("<FullPaymentSubmission/>")).Xml());
  for (const String name : {"EmployerAlignmentSubmission", "EarlierYearUpdate", "FullPaymentSubmission"}) {
    const String expected = employee->ToXML(Root("<" + name + "/>")).Xml();
    const XmlNode section = Root("<" + name + "/>");
    part_.ToXML(section);
    EXPECT_EQ(fragment(), expected) << name;
    clsCompressedEmployees again;
    ASSERT_TRUE(again.CreateFromXML(section.FirstChild()));
    EXPECT_EQ(again.EmployeeFragment().FirstChild().FirstChild().Xml(),
              again.Employees()->Item(1)->ToXML(Root("<" + name + "/>")).Xml());
  }
}

TEST_F(CompressedEmployees, GiveThemselvesCompressedAsAFragment) {
  part_.AddEmployee(NewEmployee("1"));
  for (const auto& [root, name] : {std::pair{"", "CompressedPart"}, std::pair{"Packed", "Packed"}}) {
    const XmlNode fragment = part_.XMLFragment(root, "urn:x");
    ASSERT_EQ(fragment.NodeType(), XmlNodeType::DocumentFragment);
    const XmlNode element = fragment.FirstChild();
    EXPECT_EQ(element.NodeName(), name);
    EXPECT_EQ(element.NamespaceURI(), "urn:x");
    EXPECT_EQ(element.Attribute("Type"), "zip");
    EXPECT_THAT(ByUnzip("-p", clsBase64().DecodeBytes(element.Text())),
                StartsWith("<Employee xmlns=\"urn:x\"><EmployeeDetails><NINO>1"));
  }
}

TEST_F(CompressedEmployees, ReportFragmentsThatCanNotBeMade) {
  EXPECT_FALSE(part_.EmployeeFragment("no name"));
  EXPECT_FALSE(part_.XMLFragment("no name"));
  ASSERT_EQ(host_->messages.size(), 2U);
  EXPECT_THAT(host_->messages[0].text,
              StartsWith("Error in ZELNOR.dll::clsCompressedEmployees: Function EmployeeFragment: Error 5"));
  EXPECT_THAT(host_->messages[1].text,
              StartsWith("Error in ZELNOR.dll::clsCompressedEmployees: Function XMLFragment: Error 5"));
}

}  // namespace
}  // namespace zelnor
