// The repository's samples and, where they are at hand, the published ones: read as what they are, and saved
// as documents that the schemas accept, with the mark that other tools compute.

#include "zelnor/documents/clsSectionEAS.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionEYU.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsSectionNVR.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsIRMark.h"

#include <algorithm>
#include <cstdlib>

#include "controller/controller_fixture.h"
#include "support/shell.h"

namespace zelnor::test {
namespace {

using enum eRTISUBMISSIONTYPE;

// The folder that an environment variable names; empty when it names none.
String FolderOf(const char* variable) {
  const char* folder = std::getenv(variable);
  return folder != nullptr && FolderExists(folder) ? folder : "";
}

class SamplesTest : public ControllerTest {
 protected:
  SamplesTest() { TodayOfTheSample(); }

  // Saves a document anew with its mark, and gives the file's path.
  String SavedAnew(const String& path, bool compressed = false) {
    clsRTIController rti;
    rti.ReadXML(ReadFile(path));
    rti.UseCompression(compressed);
    rti.Submission()->Header()->DocIRMark()->value("");
    const String out = folder_.At("saved.xml");
    EXPECT_EQ(rti.SaveSubmission(out), SUBMISSION_RESULT::Successful);
    return out;
  }

  // What the schemas of a folder say of a message; empty when it is valid.
  static String Verdict(const String& schemas, const String& path) {
    const auto collection = std::make_shared<XmlSchemaCollection>();
    for (const char* name :
         {"envelope-v2-0-HMRC.xsd", "FullPaymentSubmission-2026-v1-0.xsd", "xmldsig-core-schema.xsd"}) {
      XmlDocument schema;
      EXPECT_TRUE(schema.Load(schemas + "/" + name));
      collection->Add(schema.DocumentElement().Attribute("targetNamespace").value_or(""), schema);
    }
    const XmlDocument document;
    document.Schemas(collection);
    EXPECT_TRUE(document.Load(path));
    return document.Validate() ? String()
                               : document.ParseError().srcText + ": " + document.ParseError().reason;
  }

  // The mark by other tools: the canonical form of Body without its mark, digested.
  String MarkByWitness(const String& path) {
    String text = ReadFile(path);
    const std::size_t body = text.find("<Body>");
    text = text.substr(body, text.find("</Body>") + 7 - body);
    const std::size_t mark = text.find("<IRmark");
    text.erase(mark, text.find("</IRmark>") + 9 - mark);
    text.insert(5, " xmlns=\"http://www.govtalk.gov.uk/CM/envelope\"");
    const String file = folder_.Put("body.xml", text);
    return OutputOf("xmllint --c14n '" + file + "' | openssl dgst -sha1 -binary | openssl base64");
  }
};

TEST_F(SamplesTest, TheSavedSamplesAreValidAndMarkedAsOtherToolsMarkThem) {
  for (const char* name : {"FPS-25-26.xml", "FPS-25-26-agent.xml"}) {
    const String saved = SavedAnew(ZELNOR_SOURCE_DIR "/samples/" + String(name));
    EXPECT_EQ(Verdict(ZELNOR_SOURCE_DIR "/xsd", saved), "") << name;
    const XmlDocument document;
    ASSERT_TRUE(document.Load(saved));
    EXPECT_EQ(document.GetElementsByTagName("IRmark").front().Text(), MarkByWitness(saved)) << name;
  }
}

TEST_F(SamplesTest, TheSavedSamplesAreValidByThePublishedSchemas) {
  const String published = FolderOf("ZELNOR_PUBLISHED_XSD");
  if (published.empty()) GTEST_SKIP() << "ZELNOR_PUBLISHED_XSD names no folder";
  for (const char* name : {"FPS-25-26.xml", "FPS-25-26-agent.xml"}) {
    EXPECT_EQ(Verdict(published, SavedAnew(ZELNOR_SOURCE_DIR "/samples/" + String(name))), "") << name;
  }
}

TEST_F(SamplesTest, TheSamplesSavedCompressedAreValidAndMarkedAsOtherToolsMarkThem) {
  for (const char* name : {"FPS-25-26.xml", "FPS-25-26-agent.xml"}) {
    const String saved = SavedAnew(ZELNOR_SOURCE_DIR "/samples/" + String(name), true);
    EXPECT_EQ(Verdict(ZELNOR_SOURCE_DIR "/xsd", saved), "") << name;
    const String published = FolderOf("ZELNOR_PUBLISHED_XSD");
    if (!published.empty()) {
      EXPECT_EQ(Verdict(published, saved), "") << name;
    }
    const XmlDocument document;
    ASSERT_TRUE(document.Load(saved));
    EXPECT_EQ(document.GetElementsByTagName("CompressedPart").size(), 1U) << name;
    EXPECT_EQ(document.GetElementsByTagName("IRmark").front().Text(), MarkByWitness(saved)) << name;
  }
}

// The number of employees that a document's section holds.
Long EmployeesOf(clsSubmission& submission) {
  if (const auto fps = submission.FPS()) return fps->EmployeeCount();
  if (const auto eyu = submission.EYU()) return eyu->EmployeeCount();
  if (const auto eas = submission.EAS()) return eas->EmployeeCount();
  if (const auto nvr = submission.NVR()) return nvr->EmployeeCount();
  return 0;
}

TEST_F(SamplesTest, ThePublishedSamplesAreWhatTheyAreWithEveryEmployee) {
  const String published = FolderOf("ZELNOR_PUBLISHED_SAMPLES");
  if (published.empty()) GTEST_SKIP() << "ZELNOR_PUBLISHED_SAMPLES names no folder";
  const std::pair<const char*, eRTISUBMISSIONTYPE> kinds[] = {
      {"FPS", IsFPS}, {"EPS", IsEPS}, {"EAS", IsEAS}, {"EYU", IsEYU}, {"NVR", IsNVR}};
  int seen = 0;
  for (const String& name : FileNames(published)) {
    const auto kind = std::find_if(std::begin(kinds), std::end(kinds),
                                   [&](const auto& each) { return name.starts_with(each.first); });
    const XmlDocument document;
    if (kind == std::end(kinds) || !document.Load(published + "/" + name) ||
        document.DocumentElement().BaseName() != "GovTalkMessage") {
      continue;
    }
    ++seen;
    clsRTIController rti;
    rti.ReadXMLDoc(document);
    EXPECT_EQ(rti.SubmissionType(), kind->second) << name;
    EXPECT_EQ(EmployeesOf(*rti.Submission()),
              static_cast<Long>(document.GetElementsByTagName("Employee").size()))
        << name;
    EXPECT_EQ(rti.Submission()->Header()->DocIRMark()->value().size(), 28U) << name;
  }
  EXPECT_GE(seen, 5);
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

// The text of the document that a controller writes in this form.
String WrittenText(clsRTIController& rti, bool compressed) {
  rti.UseCompression(compressed);
  rti.OverrideCompression(!compressed);
  rti.GovTalkMessage()->ForceRebuild();
  return rti.GovTalkMessage()->XML();
}

// The plain form of a document that was read from this text.
String ReadAndWritten(const String& text) {
  clsRTIController rti;
  rti.ValidationRequired(false);
  rti.ReadXML(text);
  return WrittenText(rti, false);
}

TEST_F(SamplesTest, ThePublishedSamplesComeThroughCompression) {
  const String published = FolderOf("ZELNOR_PUBLISHED_SAMPLES");
  if (published.empty()) GTEST_SKIP() << "ZELNOR_PUBLISHED_SAMPLES names no folder";
  int compressed = 0;
  for (const String& name : FileNames(published)) {
    const XmlDocument document;
    if (!document.Load(published + "/" + name) || document.DocumentElement().BaseName() != "GovTalkMessage") {
      continue;
    }
    clsRTIController rti;
    rti.ValidationRequired(false);
    rti.ReadXMLDoc(document);
    const String plain = WrittenText(rti, false);
    const String packed = WrittenText(rti, true);
    if (packed.find("<CompressedPart") != String::npos) ++compressed;
    EXPECT_EQ(ReadAndWritten(packed), ReadAndWritten(plain)) << name;
  }
  EXPECT_GE(compressed, 3);
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

}  // namespace
}  // namespace zelnor::test
