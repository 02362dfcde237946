// Documents as they are read (tests/documents/pairs/NAME.xml) and as they are written again
// (NAME.written.xml), for each type in full and with the least that it may hold.

#include "zelnor/envelope/clsGovTalkMessage.h"

#include <algorithm>
#include <cstdlib>

#include "controller/controller_fixture.h"

namespace zelnor::test {
namespace {

const String kPairs = ZELNOR_TEST_DATA "/documents/pairs/";
const String kWritten = ".written.xml";

std::vector<String> PairNames() {
  std::vector<String> names;
  for (const String& file : FileNames(kPairs)) {
    if (file.ends_with(kWritten)) names.push_back(file.substr(0, file.size() - kWritten.size()));
  }
  return names;
}

// The text of a file's document, without the indentation and the comments before it.
String Document(const String& path) {
  const XmlDocument document;
  EXPECT_TRUE(document.Load(path)) << path << ": " << document.ParseError().reason;
  return document.DocumentElement().Xml();
}

String WrittenAgain(const String& text) {
  clsRTIController rti;
  rti.ReadXML(text);
  rti.GovTalkMessage()->ForceRebuild();
  return rti.GovTalkMessage()->Document().DocumentElement().Xml();
}

// What the schemas of a folder say of a message; empty when it is valid.
String Verdict(const String& schemas, const String& text) {
  const auto collection = std::make_shared<XmlSchemaCollection>();
  for (const String& name : FileNames(schemas)) {
    if (name.starts_with("published-")) continue;  // other editions of what is there
    const XmlDocument schema;
    EXPECT_TRUE(schema.Load(schemas + "/" + name));
    collection->Add(schema.DocumentElement().Attribute("targetNamespace").value_or(""), schema);
  }
  const XmlDocument document;
  document.Schemas(collection);
  EXPECT_TRUE(document.LoadXML(text));
  return document.Validate() ? String() : document.ParseError().srcText + ": " + document.ParseError().reason;
}

class DocumentPairTest : public ControllerTest, public testing::WithParamInterface<String> {};

TEST_P(DocumentPairTest, IsWrittenAsItsPairTells) {
  EXPECT_EQ(WrittenAgain(Document(kPairs + GetParam() + ".xml")), Document(kPairs + GetParam() + kWritten));
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

TEST_P(DocumentPairTest, ChangesNothingMoreTheSecondTime) {
  const String written = Document(kPairs + GetParam() + kWritten);
  EXPECT_EQ(WrittenAgain(written), written);
}

TEST_P(DocumentPairTest, IsValidWhenItCameFromAValidDocument) {
  const String schemas = ZELNOR_SOURCE_DIR "/xsd";
  const bool valid = Verdict(schemas, Document(kPairs + GetParam() + ".xml")).empty();
  EXPECT_EQ(valid, !GetParam().ends_with("-as-others-write-it"));
  const String verdict = Verdict(schemas, Document(kPairs + GetParam() + kWritten));
  EXPECT_EQ(verdict.empty(), valid) << verdict;
}

INSTANTIATE_TEST_SUITE_P(Pairs, DocumentPairTest, testing::ValuesIn(PairNames()), [](const auto& pair) {
  String name = pair.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

TEST(DocumentPairs, AreThereForEachTypeInFullAndWithTheLeast) {
  const std::vector<String> names = PairNames();
  for (const char* type : {"eps", "eas", "eyu", "nvr"}) {
    EXPECT_THAT(names, testing::Contains(String(type) + "-full"));
    EXPECT_THAT(names, testing::Contains(String(type) + "-minimal"));
  }
}

// A document without a principal is written with an empty Principal, in which the reader sees a contact
// without a name. That is the one thing that the second writing may add.
String WithTheContactOfAnEmptyPrincipal(String text) {
  const String empty = "<Principal></Principal>";
  const std::size_t at = text.find(empty);
  if (at == String::npos) return text;
  return text.replace(at, empty.size(),
                      "<Principal><Contact><Name><Fore></Fore><Sur></Sur></Name></Contact></Principal>");
}

class PublishedSamplesTest : public ControllerTest {};

TEST_F(PublishedSamplesTest, ChangeNothingMoreTheSecondTime) {
  const char* published = std::getenv("ZELNOR_PUBLISHED_SAMPLES");
  if (published == nullptr || !FolderExists(published))
    GTEST_SKIP() << "ZELNOR_PUBLISHED_SAMPLES names no folder";
  std::size_t seen = 0;
  for (const String& name : FileNames(published)) {
    const XmlDocument document;
    if (!document.Load(String(published) + "/" + name) ||
        document.DocumentElement().BaseName() != "GovTalkMessage") {
      continue;
    }
    ++seen;
    const String written = WrittenAgain(document.DocumentElement().Xml());
    const String settled = WithTheContactOfAnEmptyPrincipal(written);
    EXPECT_EQ(WrittenAgain(written), settled) << name;
    EXPECT_EQ(WrittenAgain(settled), settled) << name;
  }
  EXPECT_GE(seen, 5U);
  EXPECT_THAT(host_->messages, testing::IsEmpty());
}

}  // namespace
}  // namespace zelnor::test
