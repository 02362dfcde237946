#include "zelnor/validation/vlsSchemaValidator.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/platform/files.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/clsSAXValidator.h"

#include <filesystem>

#include "support/recording_host.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

constexpr const char* kFPS = "HMRC-PAYE-RTI-FPS";
constexpr const char* kEAS = "HMRC-PAYE-RTI-EAS";

/// A stand-in for the schema of an EAS, which isn't installed: employees with a NINO, or a compressed part.
constexpr const char* kEASSchema = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"
    targetNamespace="urn:eas" xmlns="urn:eas" elementFormDefault="qualified">
  <xs:element name="IRenvelope"><xs:complexType><xs:sequence>
    <xs:element name="EmployerAlignmentSubmission"><xs:complexType><xs:sequence>
      <xs:element name="OfficeNo" type="xs:integer"/>
      <xs:choice>
        <xs:element name="Employee" maxOccurs="unbounded"><xs:complexType><xs:sequence>
          <xs:element name="NINO" type="xs:string"/>
        </xs:sequence></xs:complexType></xs:element>
        <xs:element name="CompressedPart" type="xs:base64Binary"/>
      </xs:choice>
    </xs:sequence></xs:complexType></xs:element>
  </xs:sequence></xs:complexType></xs:element>
</xs:schema>)";

class SchemaValidatorTest : public testing::Test {
 protected:
  SchemaValidatorTest() {
    SetProgramFolder(folder_.Path());
    FurnishProgramFolder();
  }
  ~SchemaValidatorTest() override { SetProgramFolder(""); }

  static String Setting(const String& key) { return alsAppSettings().ReadSetting(key, "15.0"); }

  static XmlDocument Parsed(const String& text) {
    const XmlDocument document;
    EXPECT_TRUE(document.LoadXML(text)) << document.ParseError().reason;
    return document;
  }

  static XmlDocument Sample() { return Parsed(ReadFile(ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml")); }

  /// An envelope with an EAS of this office number and this content.
  XmlDocument EAS(const String& office_number, const String& content) {
    WriteFile(folder_.Path() + "/xsd/EmployerAlignmentSubmission-v3-3.xsd", String(kEASSchema));
    return Parsed(
        "<GovTalkMessage xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"><EnvelopeVersion>2.0"
        "</EnvelopeVersion><Header><MessageDetails><Class>HMRC-PAYE-RTI-EAS</Class><Qualifier>request"
        "</Qualifier></MessageDetails></Header><GovTalkDetails/><Body><IRenvelope xmlns=\"urn:eas\">"
        "<EmployerAlignmentSubmission><OfficeNo>" +
        office_number + "</OfficeNo>" + content +
        "</EmployerAlignmentSubmission></IRenvelope></Body></GovTalkMessage>");
  }

  /// A fragment with the given XML's children.
  static XmlNode Fragment(const String& children) {
    const XmlDocument document = Parsed("<All xmlns=\"urn:eas\">" + children + "</All>");
    const XmlNode fragment = document.CreateDocumentFragment();
    while (const XmlNode child = document.DocumentElement().FirstChild()) fragment.AppendChild(child);
    return fragment;
  }

  TemporaryFolder folder_;
  WithRecordingHost host;
  vlsSchemaValidator validator;
};

TEST_F(SchemaValidatorTest, SampleIsValid) {
  EXPECT_TRUE(validator.ValidateSchema(kFPS, Sample()))
      << validator.Error().Reason << validator.Error().SrcText;
  EXPECT_FALSE(validator.HasErrors());
  EXPECT_EQ(validator.ErrorCount(), 0);
  EXPECT_EQ(validator.ErrorCode(), "");
  EXPECT_EQ(validator.Exception(), nullptr);
  EXPECT_EQ(validator.GetAsXML().Xml(), "<SchemaValidationErrors></SchemaValidationErrors>");
  EXPECT_TRUE(host->messages.empty());
}

TEST_F(SchemaValidatorTest, FirstErrorIsKeptWithItsPlace) {
  const XmlDocument sample = Sample();
  const String before = sample.Xml();
  sample.GetElementsByTagName("OfficeNo")[0].Text("x");
  const String changed = sample.Xml();
  EXPECT_FALSE(validator.ValidateSchema(kFPS, sample));
  EXPECT_EQ(sample.Xml(), changed);
  EXPECT_TRUE(validator.HasErrors());
  EXPECT_EQ(validator.ErrorCount(), 1);
  EXPECT_EQ(validator.ErrorCode(), validator.Error().ErrorCode);
  EXPECT_NE(validator.ErrorCode(), "0");
  EXPECT_EQ(validator.Error().FilePos, "0");
  EXPECT_EQ(validator.Error().Line, "0");
  EXPECT_EQ(validator.Error().LinePos, "0");
  EXPECT_EQ(validator.Error().Url, "");
  EXPECT_EQ(validator.Error().SrcText,
            "/GovTalkMessage/Body/IRenvelope/FullPaymentSubmission/EmpRefs/OfficeNo");
  EXPECT_NE(before, changed);
}

TEST_F(SchemaValidatorTest, ErrorIsARecord) {
  const XmlDocument sample = Sample();
  sample.GetElementsByTagName("OfficeNo")[0].Text("x");
  validator.ValidateSchema(kFPS, sample);
  const Ref<clsException> record = validator.Exception();
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Code(), validator.ErrorCode());
  EXPECT_EQ(record->Title(), "Schema Validation Error");
  EXPECT_EQ(record->Description(), validator.Error().Reason + ": " + validator.Error().SrcText);
  EXPECT_EQ(record->Source(), "Schema 0.0.0");
  EXPECT_EQ(record->Status(), 3);
  EXPECT_NE(validator.Exception(), record);  // a new one each time
}

TEST_F(SchemaValidatorTest, ErrorAsXml) {
  const XmlDocument sample = Sample();
  sample.GetElementsByTagName("OfficeNo")[0].Text("x");
  validator.ValidateSchema(kFPS, sample);
  const XmlNode error = validator.GetAsXML().FirstChild();
  std::vector<std::pair<String, String>> children;
  for (const XmlNode& child : error.ChildNodes()) children.emplace_back(child.BaseName(), child.Text());
  const String description = validator.Exception()->Description();
  EXPECT_EQ(children, (std::vector<std::pair<String, String>>{{"ErrorType", "Schema"},
                                                              {"Title", "Schema Validation Error"},
                                                              {"Code", validator.ErrorCode() + "_0.0.0"},
                                                              {"Description", description},
                                                              {"FieldName", "Schema"},
                                                              {"FieldValue", ""},
                                                              {"Employee", "N/A"},
                                                              {"CompanyId", "N/A"},
                                                              {"EmployeeId", "N/A"},
                                                              {"EmployeeName", "N/A"},
                                                              {"EmployeeCode", "N/A"},
                                                              {"Source", "Schema 0.0.0"},
                                                              {"Status", "Critical"}}));
  const XmlDocument document;
  const XmlNode parent = document.Node().AppendElement("Errors");
  EXPECT_EQ(validator.GetAsXML(parent), parent);
  EXPECT_EQ(parent.FirstChild().BaseName(), "Error");
}

TEST_F(SchemaValidatorTest, SuccessClearsAnEarlierError) {
  const XmlDocument sample = Sample();
  sample.GetElementsByTagName("OfficeNo")[0].Text("x");
  EXPECT_FALSE(validator.ValidateSchema(kFPS, sample));
  EXPECT_TRUE(validator.ValidateSchema(kFPS, Sample()));
  EXPECT_FALSE(validator.HasErrors());
}

TEST_F(SchemaValidatorTest, DefaultsAreWrittenToTheSettings) {
  validator.ValidateSchema(kFPS, Sample());
  EXPECT_EQ(Setting("GovTalkMessage_XSD"), "\\xsd\\envelope-v2-0-HMRC.xsd");
  EXPECT_EQ(Setting("dsig_XSD"), "\\xsd\\xmldsig-core-schema.xsd");
  EXPECT_EQ(Setting("HMRCPAYERTIFPS_XSD"), "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd");
}

TEST_F(SchemaValidatorTest, MissingSchemaIsShownWithItsPath) {
  validator.SetSchema(kFPS, "\\xsd\\none.xsd");
  EXPECT_EQ(Setting("HMRCPAYERTIFPS_XSD"), "\\xsd\\none.xsd");
  EXPECT_FALSE(validator.ValidateSchema(kFPS, Sample()));
  EXPECT_FALSE(validator.HasErrors());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::vlsSchemaValidator: Function ValidateSchema: Error -99999 - XML Schema not "
            "found: " +
                folder_.Path() + "\\xsd\\none.xsd");
}

TEST_F(SchemaValidatorTest, SchemaMayLieAnywhere) {
  const String path = folder_.Path() + "/fps.xsd";
  CopyFile(folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd", path);
  DeleteFile(folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd");
  validator.SetSchema(kFPS, path);
  EXPECT_TRUE(validator.ValidateSchema(kFPS, Sample()));
}

TEST_F(SchemaValidatorTest, SchemaThatIsNoXmlIsShown) {
  WriteFile(folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd", "none");
  EXPECT_FALSE(validator.ValidateSchema(kFPS, Sample()));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::vlsSchemaValidator: Function ValidateSchema: Error "));
}

TEST_F(SchemaValidatorTest, SchemaThatCannotBeReadIsShown) {
  const String path = folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd";
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  EXPECT_FALSE(validator.ValidateSchema(kFPS, Sample()));
  EXPECT_EQ(host->messages.size(), 1U);
}

TEST_F(SchemaValidatorTest, SchemaThatIsNoSchemaIsAnError) {
  WriteFile(folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd",
            "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:x\">"
            "<xs:element name=\"a\" type=\"nowhere\"/></xs:schema>");
  EXPECT_FALSE(validator.ValidateSchema(kFPS, Sample()));
  EXPECT_TRUE(validator.HasErrors());
  EXPECT_TRUE(validator.Exception()->Description().starts_with("A schema is not usable"))
      << validator.Exception()->Description();
}

// The envelope's schema lets any body through for which there is none.
TEST_F(SchemaValidatorTest, SchemaOfAnotherNamespaceLeavesTheBodyUnchecked) {
  const String path = folder_.Path() + "/xsd/FullPaymentSubmission-2026-v1-0.xsd";
  String schema = ReadFile(path);
  for (std::size_t at = 0; (at = schema.find("/25-26/1", at)) != String::npos;)
    schema.replace(at, 8, "/99-00/1");
  WriteFile(path, schema);
  EXPECT_TRUE(validator.ValidateSchema(kFPS, Sample()));
  EXPECT_TRUE(host->messages.empty());
}

TEST_F(SchemaValidatorTest, ClassWithoutASchemaIsShown) {
  EXPECT_FALSE(validator.ValidateSchema("HMRC-PAYE-RTI-XYZ", Sample()));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::vlsSchemaValidator: Function ValidateSchema: Error -99998 - Submission "
            "Schema not identified!");
}

TEST_F(SchemaValidatorTest, NoDocumentIsShown) {
  EXPECT_FALSE(validator.ValidateSchema(kFPS, nullptr));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::vlsSchemaValidator: Function ValidateSchema: Error -99997 - Document not "
            "found! Check XML structure is valid RTI document.");
}

TEST_F(SchemaValidatorTest, BeginningOfTheClassDecidesInAnyCase) {
  EXPECT_TRUE(validator.ValidateSchema("hmrc-paye-rti-fps-to-be", Sample()));
  EXPECT_EQ(Setting("hmrcpayertifpstobe_XSD"), "\\xsd\\FullPaymentSubmission-2026-v1-0.xsd");
}

TEST_F(SchemaValidatorTest, EachClassHasItsFile) {
  const std::pair<const char*, const char*> files[] = {
      {"HMRC-PAYE-RTI-EPS", "\\xsd\\EmployerPaymentSummary-2026-v1-0.xsd"},
      {"HMRC-PAYE-RTI-NVR", "\\xsd\\NINOverificationRequest-v1-2.xsd"},
      {"HMRC-PAYE-RTI-EAS", "\\xsd\\EmployerAlignmentSubmission-v3-3.xsd"},
      {"HMRC-PAYE-RTI-EYU", "\\xsd\\EarlierYearUpdate-2020-v1-0.xsd"},
  };
  for (const auto& [class_name, file] : files) {
    host->messages.clear();
    DeleteFile(folder_.Path() + file);
    EXPECT_FALSE(validator.ValidateSchema(class_name, Sample()));
    ASSERT_EQ(host->messages.size(), 1U);
    EXPECT_TRUE(host->messages[0].text.ends_with("XML Schema not found: " + folder_.Path() + file))
        << host->messages[0].text;
  }
}

TEST_F(SchemaValidatorTest, FragmentStandsInForTheCompressedPart) {
  const XmlDocument document = EAS("961", "<CompressedPart>AAAA</CompressedPart>");
  const String before = document.Xml();
  EXPECT_TRUE(validator.ValidateSchema(kEAS, document,
                                       Fragment("<Employee><NINO>A</NINO></Employee>"
                                                "<Employee><NINO>B</NINO></Employee>")))
      << validator.Error().Reason;
  EXPECT_EQ(document.Xml(), before);
}

TEST_F(SchemaValidatorTest, ErrorInTheFragmentIsTheError) {
  EXPECT_FALSE(validator.ValidateSchema(kEAS, EAS("961", "<CompressedPart>AAAA</CompressedPart>"),
                                        Fragment("<Employee><NINO>A</NINO></Employee><Employee/>")));
  EXPECT_EQ(validator.Error().SrcText,
            "/GovTalkMessage/Body/IRenvelope/EmployerAlignmentSubmission/Employee[2]");
  EXPECT_EQ(validator.Error().Reason.find("\r\n\r\n"), String::npos);
}

TEST_F(SchemaValidatorTest, SecondErrorStandsBehindTheFirst) {
  const XmlDocument document = EAS("x", "<CompressedPart>AAAA</CompressedPart>");
  EXPECT_FALSE(validator.ValidateSchema(kEAS, document));
  const SchemaError first = validator.Error();
  EXPECT_FALSE(validator.ValidateSchema(kEAS, document, Fragment("<Employee/>")));
  EXPECT_EQ(validator.Error().Reason, first.Reason + "\r\n\r\n" + first.Reason);
  EXPECT_EQ(validator.Error().SrcText, first.SrcText);
  EXPECT_EQ(validator.ErrorCount(), 1);
}

TEST_F(SchemaValidatorTest, FragmentHasNoEffectWithoutACompressedPart) {
  EXPECT_TRUE(validator.ValidateSchema(kEAS, EAS("961", "<Employee><NINO>A</NINO></Employee>"),
                                       Fragment("<Employee/>")));
}

TEST_F(SchemaValidatorTest, FragmentHasNoEffectInAnFPS) {
  EXPECT_TRUE(validator.ValidateSchema(kFPS, Sample(), Fragment("<Employee/>")));
}

TEST_F(SchemaValidatorTest, FragmentHasNoEffectInOtherClasses) {
  WriteFile(folder_.Path() + "/xsd/NINOverificationRequest-v1-2.xsd", String(kEASSchema));
  EXPECT_TRUE(validator.ValidateSchema(
      "HMRC-PAYE-RTI-NVR", EAS("961", "<CompressedPart>AAAA</CompressedPart>"), Fragment("<Employee/>")))
      << validator.Error().Reason;
}

TEST(SAXValidatorTest, TellsWhereTheParserStands) {
  clsSAXValidator handler;
  EXPECT_EQ(handler.lineNumber(), 0);
  EXPECT_EQ(handler.columnNumber(), 0);
  const clsSAXValidator::Locator locator{7, 12, "public", "system"};
  handler.documentLocator(&locator);
  EXPECT_EQ(handler.lineNumber(), 7);
  EXPECT_EQ(handler.columnNumber(), 12);
  EXPECT_EQ(handler.publicId(), "public");
  EXPECT_EQ(handler.systemId(), "system");
  EXPECT_EQ(handler.error(locator, "text"), "7.12: text");
  EXPECT_EQ(handler.fatalError(locator, "text"), "7.12: text");
  EXPECT_EQ(handler.ignorableWarning(locator, "text"), "7.12: text");
}

}  // namespace
}  // namespace zelnor::test
