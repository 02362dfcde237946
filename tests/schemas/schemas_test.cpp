// The schemas that we install, against tables of documents that pass and documents that don't. With
// ZELNOR_PUBLISHED_XSD naming a folder with the published schemas, under the same file names, the tables are
// held against those as well: ours have to give the same verdict in every case. Of the EAS and the EYU only
// the edition of 2014 is published; what it spells otherwise or didn't know yet is told in Predecessor.

#include "zelnor/platform/files.h"
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
using FileNames = std::vector<std::string>;

const FileNames kPublishedFiles = {
    "envelope-v2-0-HMRC.xsd", "xmldsig-core-schema.xsd", "FullPaymentSubmission-2026-v1-0.xsd",
    "EmployerPaymentSummary-2026-v1-0.xsd", "NINOverificationRequest-v1-2.xsd"};
const FileNames kSchemaFiles = {"envelope-v2-0-HMRC.xsd",
                                "xmldsig-core-schema.xsd",
                                "FullPaymentSubmission-2026-v1-0.xsd",
                                "EmployerPaymentSummary-2026-v1-0.xsd",
                                "NINOverificationRequest-v1-2.xsd",
                                "EmployerAlignmentSubmission-v3-3.xsd",
                                "EarlierYearUpdate-2020-v1-0.xsd"};

XmlDocument Loaded(const std::string& path) {
  XmlDocument document;
  if (!document.Load(path)) throw std::runtime_error(path + ": " + document.ParseError().reason);
  return document;
}

std::shared_ptr<XmlSchemaCollection> SchemasIn(const std::string& folder, const FileNames& files) {
  auto schemas = std::make_shared<XmlSchemaCollection>();
  for (const std::string& name : files) {
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

// For values that have come since 2014 nothing is published to compare with.
std::vector<std::string> PublishedTableNames() {
  std::vector<std::string> names = TableNames();
  std::erase_if(names, [](const std::string& name) { return name.ends_with("_since_2014"); });
  return names;
}

std::vector<MutationCase> AllCases() {
  std::vector<MutationCase> all;
  for (const std::string& name : TableNames()) {
    for (MutationCase& mutation : ReadMutationTable(kTables + "/" + name + ".txt"))
      all.push_back(std::move(mutation));
  }
  return all;
}

std::vector<MutationCase> CasesOf(const std::string& table) {
  return ReadMutationTable(kTables + "/" + table + ".txt");
}

XmlDocument CopyOf(const XmlDocument& document) {
  XmlDocument copy;
  copy.AppendChild(copy.ImportNode(document.DocumentElement(), true));
  return copy;
}

void ExpectTheVerdict(const MutationCase& mutation, XmlDocument& changed,
                      const std::shared_ptr<const XmlSchemaCollection>& schemas) {
  changed.Schemas(schemas);
  EXPECT_EQ(changed.Validate(), mutation.valid) << mutation.Description() << "\n"
                                                << changed.ParseError().reason;
  // Schemas that can't be used refuse everything, which must not pass for a verdict.
  ASSERT_FALSE(changed.ParseError().reason.starts_with("A schema is not usable"))
      << changed.ParseError().reason;
}

void ExpectTheVerdictsOf(const std::string& table, const std::string& schema_folder, const FileNames& files) {
  const auto schemas = SchemasIn(schema_folder, files);
  std::map<std::string, XmlDocument> bases;
  const std::vector<MutationCase> cases = CasesOf(table);
  ASSERT_FALSE(cases.empty());
  for (const MutationCase& mutation : cases) {
    if (!bases.contains(mutation.document)) bases.emplace(mutation.document, BaseDocument(mutation.document));
    XmlDocument changed = CopyOf(bases.at(mutation.document));
    Apply(mutation, changed);
    ExpectTheVerdict(mutation, changed, schemas);
  }
}

// A published schema of an earlier edition, and what our documents hold that it spells otherwise or lacks.
struct Predecessor {
  std::string file;
  std::string name_space;
  std::string name_space_now;
  std::map<std::string, std::string> spelt;
  std::set<std::string> unknown;
};

const std::map<std::string, Predecessor> kPredecessors = {
    {"eas",
     {"published-EmployerAlignmentSubmission-2014.xsd",
      "http://www.govtalk.gov.uk/taxation/PAYE/RTI/EmployerAlignmentSubmission/3",
      "http://www.govtalk.gov.uk/taxation/PAYE/RTI/EmployerAlignmentSubmission/3",
      {},
      {"OffPayrollWorker", "DirectorsNIC", "TaxWkOfApptOfDirector", "EmployeeWorkplacePostcode"}}},
    {"eyu",
     {"published-EarlierYearUpdate-2014.xsd",
      "http://www.govtalk.gov.uk/taxation/PAYE/RTI/EarlierYearUpdate/13-14/3",
      "http://www.govtalk.gov.uk/taxation/PAYE/RTI/EarlierYearUpdate/19-20/1",
      {{"SPP", "OSPP"}, {"ShPP", "ASPP"}, {"PTtoUEL", "PTtoUAP"}},
      {"PostgradLoan", "StatePension", "EmployeeWorkplacePostcode", "PostgradLoanRecovered", "SPBPYTD",
       "FlexibleDrawdown"}}},
};

// The steps as they read in the document of the earlier edition.
MutationCase Respelt(MutationCase mutation, const Predecessor& before) {
  for (MutationStep& step : mutation.steps) {
    for (std::string& word : step) {
      const std::size_t name = word.rfind('/') + 1;
      const auto found = before.spelt.find(word.substr(name));
      if (found != before.spelt.end()) word.replace(name, std::string::npos, found->second);
    }
  }
  return mutation;
}

// The document as the earlier edition would have had it.
XmlDocument InEarlierEdition(const XmlDocument& document, const Predecessor& before) {
  MutationCase changes;
  for (const std::string& name : before.unknown) {
    for (std::size_t i = 0; i < document.GetElementsByTagName(name).size(); ++i)
      changes.steps.push_back({"remove", name});
  }
  for (const auto& [now, then] : before.spelt) changes.steps.push_back({"rename", now, then});
  if (before.spelt.contains("PTtoUEL"))
    changes.steps.push_back({"before", "TotalEmpNIC", "UAPtoUEL", "0.00"});
  XmlDocument copy = CopyOf(document);
  Apply(changes, copy);
  return copy;
}

XmlDocument InOurNamespace(const std::string& path, const Predecessor& before) {
  std::string text = ReadFile(path);
  for (std::size_t at = 0; (at = text.find(before.name_space, at)) != std::string::npos;
       at += before.name_space_now.size())
    text.replace(at, before.name_space.size(), before.name_space_now);
  XmlDocument schema;
  if (!schema.LoadXML(text)) throw std::runtime_error(path + ": " + schema.ParseError().reason);
  // An attribute that is declared prohibited where none was allowed says nothing, and libxml2 refuses it.
  for (const XmlNode& attribute : schema.GetElementsByTagName("xsd:attribute")) {
    if (attribute.Attribute("use") == "prohibited") attribute.ParentNode().RemoveChild(attribute);
  }
  return schema;
}

void ExpectTheVerdictsOfThePredecessor(const std::string& table, const std::string& folder) {
  const Predecessor& before = kPredecessors.at(table);
  const auto schemas = SchemasIn(folder, kPublishedFiles);
  schemas->Add(before.name_space_now, InOurNamespace(folder + "/" + before.file, before));
  std::size_t compared = 0;
  const std::vector<MutationCase> cases = CasesOf(table);
  for (const MutationCase& mutation : cases) {
    XmlDocument changed = InEarlierEdition(BaseDocument(mutation.document), before);
    try {
      Apply(Respelt(mutation, before), changed);
    } catch (const std::runtime_error&) {
      continue;  // changes an element that wasn't there in that edition
    }
    ++compared;
    ExpectTheVerdict(mutation, changed, schemas);
  }
  EXPECT_GT(compared, cases.size() * 3 / 4);
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

TEST_P(SchemaTable, OwnSchemasGiveItsVerdicts) { ExpectTheVerdictsOf(GetParam(), kOwnSchemas, kSchemaFiles); }

class PublishedSchemaTable : public testing::TestWithParam<std::string> {};

TEST_P(PublishedSchemaTable, PublishedSchemasGiveItsVerdicts) {
  const char* folder = std::getenv("ZELNOR_PUBLISHED_XSD");
  if (folder == nullptr || *folder == '\0') GTEST_SKIP() << "ZELNOR_PUBLISHED_XSD names no folder";
  if (kPredecessors.contains(GetParam())) {
    ExpectTheVerdictsOfThePredecessor(GetParam(), folder);
  } else {
    ExpectTheVerdictsOf(GetParam(), folder, kPublishedFiles);
  }
}

INSTANTIATE_TEST_SUITE_P(Tables, SchemaTable, testing::ValuesIn(TableNames()),
                         [](const auto& table) { return table.param; });
INSTANTIATE_TEST_SUITE_P(Tables, PublishedSchemaTable, testing::ValuesIn(PublishedTableNames()),
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
  document.Schemas(SchemasIn(kOwnSchemas, kSchemaFiles));
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
