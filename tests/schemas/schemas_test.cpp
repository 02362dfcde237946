// The schemas that we install, against tables of documents that pass and documents that don't. With
// ZELNOR_PUBLISHED_XSD naming a folder with the published schemas, under the same file names, the tables are
// held against those as well: ours have to give the same verdict in every case.

#include "zelnor/platform/xml.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "schemas/mutation.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

const std::string kOwnSchemas = ZELNOR_SOURCE_DIR "/xsd";
const std::string kTables = ZELNOR_TEST_DATA "/schemas/tables";
const std::vector<std::string> kSchemaFiles = {
    "envelope-v2-0-HMRC.xsd", "xmldsig-core-schema.xsd", "FullPaymentSubmission-2026-v1-0.xsd",
    "EmployerPaymentSummary-2026-v1-0.xsd", "NINOverificationRequest-v1-2.xsd"};

XmlDocument Loaded(const std::string& path) {
  XmlDocument document;
  if (!document.Load(path)) throw std::runtime_error(path + ": " + document.ParseError().reason);
  return document;
}

std::shared_ptr<const XmlSchemaCollection> SchemasIn(const std::string& folder) {
  auto schemas = std::make_shared<XmlSchemaCollection>();
  for (const std::string& name : kSchemaFiles) {
    const XmlDocument schema = Loaded(folder + "/" + name);
    schemas->Add(schema.DocumentElement().Attribute("targetNamespace").value_or(""), schema);
  }
  return schemas;
}

// Samples lie where those who use them look, all others beside the tests.
XmlDocument BaseDocument(const std::string& name) {
  const std::string sample = ZELNOR_SOURCE_DIR "/samples/" + name;
  return Loaded(std::filesystem::exists(sample) ? sample : ZELNOR_TEST_DATA "/documents/schemas/" + name);
}

std::vector<std::string> TableNames() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kTables))
    names.insert(entry.path().stem().string());
  return {names.begin(), names.end()};
}

std::vector<MutationCase> AllCases() {
  std::vector<MutationCase> all;
  for (const std::string& name : TableNames()) {
    for (MutationCase& mutation : ReadMutationTable(kTables + "/" + name + ".txt"))
      all.push_back(std::move(mutation));
  }
  return all;
}

void ExpectTheVerdictsOf(const std::string& table, const std::string& schema_folder) {
  const auto schemas = SchemasIn(schema_folder);
  std::map<std::string, XmlDocument> bases;
  const std::vector<MutationCase> cases = ReadMutationTable(kTables + "/" + table + ".txt");
  ASSERT_FALSE(cases.empty());
  for (const MutationCase& mutation : cases) {
    if (!bases.contains(mutation.document)) bases.emplace(mutation.document, BaseDocument(mutation.document));
    XmlDocument changed;
    changed.AppendChild(changed.ImportNode(bases.at(mutation.document).DocumentElement(), true));
    Apply(mutation, changed);
    changed.Schemas(schemas);
    EXPECT_EQ(changed.Validate(), mutation.valid) << mutation.Description() << "\n"
                                                  << changed.ParseError().reason;
    // Schemas that can't be used refuse everything, which must not pass for a verdict.
    ASSERT_FALSE(changed.ParseError().reason.starts_with("A schema is not usable"))
        << changed.ParseError().reason;
  }
}

// All elements of our schemas with that name (such as "xs:element"), in all files.
std::vector<XmlNode> InOwnSchemas(std::string_view name) {
  std::vector<XmlNode> found;
  for (const std::string& file : kSchemaFiles) {
    for (const XmlNode& node : Loaded(kOwnSchemas + "/" + file).GetElementsByTagName(name))
      found.push_back(node);
  }
  return found;
}

std::string LastName(const std::string& address) {
  const std::string step = address.substr(address.rfind('/') + 1);  // the whole where there is no slash
  return step.substr(0, step.find('['));
}

class SchemaTable : public testing::TestWithParam<std::string> {};

TEST_P(SchemaTable, OwnSchemasGiveItsVerdicts) { ExpectTheVerdictsOf(GetParam(), kOwnSchemas); }

TEST_P(SchemaTable, PublishedSchemasGiveItsVerdicts) {
  const char* folder = std::getenv("ZELNOR_PUBLISHED_XSD");
  if (folder == nullptr || *folder == '\0') GTEST_SKIP() << "ZELNOR_PUBLISHED_XSD names no folder";
  ExpectTheVerdictsOf(GetParam(), folder);
}

INSTANTIATE_TEST_SUITE_P(Tables, SchemaTable, testing::ValuesIn(TableNames()),
                         [](const auto& table) { return table.param; });

TEST(SchemaTables, RemoveAndDoubleEveryElementThatOurSchemasKnow) {
  std::set<std::string> removed;
  std::set<std::string> doubled;
  std::set<std::string> tried_as_choice;
  for (const MutationCase& mutation : AllCases()) {
    for (const MutationStep& step : mutation.steps) {
      if (step[0] == "remove") removed.insert(LastName(step[1]));
      if (step[0] == "duplicate") doubled.insert(LastName(step[1]));
      if (step[0] == "rename" && mutation.valid) tried_as_choice.insert(step[2]);
    }
  }
  for (const XmlNode& declaration : InOwnSchemas("xs:element")) {
    const std::string name = declaration.Attribute("name").value_or("");
    if (name.empty() || name == "GovTalkMessage") continue;  // a reference; the root
    const bool covered = (removed.contains(name) && doubled.contains(name)) || tried_as_choice.contains(name);
    EXPECT_TRUE(covered) << name << " is in no table";
  }
}

TEST(SchemaTables, TryEveryAttributeThatOurSchemasKnow) {
  std::set<std::string> tried;
  for (const MutationCase& mutation : AllCases()) {
    for (const MutationStep& step : mutation.steps) {
      if (step[0] == "attribute" || step[0] == "drop") tried.insert(step[2]);
    }
  }
  for (const XmlNode& declaration : InOwnSchemas("xs:attribute")) {
    const std::string name = declaration.Attribute("name").value_or("");
    EXPECT_TRUE(tried.contains(name)) << name << " is in no table";
  }
}

TEST(SchemaTables, PassEveryWordThatOurSchemasOffer) {
  std::set<std::string> passed;
  for (const MutationCase& mutation : AllCases()) {
    for (const MutationStep& step : mutation.steps) {
      if (mutation.valid && (step[0] == "text" || step[0] == "attribute")) passed.insert(step.back());
    }
  }
  for (const XmlNode& word : InOwnSchemas("xs:enumeration")) {
    const std::string value = word.Attribute("value").value_or("");
    EXPECT_TRUE(passed.contains(value)) << value << " is in no table";
  }
}

TEST(Schemas, ImportTheSignatureFromAFileBesideThem) {
  const std::vector<XmlNode> imports = InOwnSchemas("xs:import");
  ASSERT_EQ(imports.size(), 1u);
  EXPECT_EQ(imports[0].Attribute("namespace"), "http://www.w3.org/2000/09/xmldsig#");
  EXPECT_EQ(imports[0].Attribute("schemaLocation"), "xmldsig-core-schema.xsd");
}

TEST(Schemas, CheckTheBodyByTheSubmissionsSchemaOnlyWhenItIsInTheCollection) {
  const MutationCase wrong_gender{"", "bare.xml", false, {{"text", "Gender", "X"}}};
  const XmlDocument document = BaseDocument("bare.xml");
  Apply(wrong_gender, document);
  auto without = std::make_shared<XmlSchemaCollection>();
  for (const char* name : {"envelope-v2-0-HMRC.xsd", "xmldsig-core-schema.xsd"}) {
    const XmlDocument schema = Loaded(kOwnSchemas + "/" + name);
    without->Add(schema.DocumentElement().Attribute("targetNamespace").value_or(""), schema);
  }
  document.Schemas(without);
  EXPECT_TRUE(document.Validate()) << document.ParseError().reason;
  document.Schemas(SchemasIn(kOwnSchemas));
  EXPECT_FALSE(document.Validate());
  EXPECT_EQ(document.ParseError().srcText,
            "/GovTalkMessage/Body/IRenvelope/FullPaymentSubmission/Employee/EmployeeDetails/Gender");
}

TEST(MutationTable, RefusesWhatItDoesNotUnderstand) {
  const XmlDocument document = BaseDocument("bare.xml");
  EXPECT_THROW(ReadMutationTable(kTables + "/none.txt"), std::runtime_error);
  EXPECT_THROW(Apply({"", "bare.xml", true, {{"remove", "NINO"}}}, document), std::runtime_error);
  EXPECT_THROW(Apply({"", "bare.xml", true, {{"swap", "Employment"}}}, document), std::runtime_error);
  EXPECT_THROW(Apply({"", "bare.xml", true, {{"drop", "Gender", "Type"}}}, document), std::runtime_error);
}

}  // namespace
}  // namespace zelnor::test
