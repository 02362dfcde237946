// Runs the cases of tests/rules/, and holds them against the codes of the rule book.

#include "zelnor/platform/conversions.h"

#include <filesystem>
#include <regex>
#include <set>

#include "support/recording_host.h"
#include "validation/rule_files.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

namespace fs = std::filesystem;

struct RuleCase {
  String file;
  Json all;   // the file
  Json self;  // the case

  String Name() const { return self.at("name").get<String>(); }

  /// A member of the case, else of its file, else the default.
  template <class T>
  T Get(const char* name, T otherwise) const {
    if (self.contains(name)) return self.at(name).get<T>();
    if (all.contains(name)) return all.at(name).get<T>();
    return otherwise;
  }
};

void PrintTo(const RuleCase& rule_case, std::ostream* out) {
  *out << rule_case.file << " " << rule_case.Name();
}

std::vector<RuleCase> AllCases() {
  std::vector<RuleCase> cases;
  for (RuleFile& file : RuleFiles()) {
    const Json each_case = file.content.at("cases");
    file.content.erase("cases");
    for (const Json& self : each_case) cases.push_back({file.name, file.content, self});
  }
  return cases;
}

const std::vector<RuleCase>& Cases() {
  static const std::vector<RuleCase> cases = AllCases();
  return cases;
}

XmlNode FirstOf(const XmlDocument& doc, const Json& path) {
  const XmlNode node = doc.SelectSingleNode(path.get<String>());
  if (!node) throw std::runtime_error("the base has no " + path.get<String>());
  return node;
}

XmlNode Parsed(const XmlDocument& doc, const Json& xml) {
  XmlDocument parsed;
  if (!parsed.LoadXML(xml.get<String>())) throw std::runtime_error("no XML: " + xml.get<String>());
  return doc.ImportNode(parsed.DocumentElement(), true);
}

void Apply(const XmlDocument& doc, const Json& edit) {
  if (edit.contains("set")) {
    FirstOf(doc, edit.at("set")).Text(edit.at("to").get<String>());
  } else if (edit.contains("remove")) {
    FirstOf(doc, edit.at("remove"));  // a path that fits nothing is a mistake
    for (const XmlNode& node : doc.SelectNodes(edit.at("remove").get<String>())) {
      node.ParentNode().RemoveChild(node);
    }
  } else if (edit.contains("copy")) {
    const XmlNode node = FirstOf(doc, edit.at("copy"));
    node.ParentNode().InsertBefore(node.CloneNode(true), node.NextSibling());
  } else if (edit.contains("add") && edit.contains("to")) {
    FirstOf(doc, edit.at("to")).AppendChild(Parsed(doc, edit.at("add")));
  } else if (edit.contains("add")) {
    const XmlNode before = FirstOf(doc, edit.at("before"));
    before.ParentNode().InsertBefore(Parsed(doc, edit.at("add")), before);
  } else {
    throw std::runtime_error("unknown edit " + edit.dump());
  }
}

Scene SceneOf(const RuleCase& rule_case) {
  XmlDocument doc;
  const String base = rule_case.Get<String>("base", "");
  if (!doc.LoadXML(Content(kRules / "base" / (base + ".xml")))) {
    throw std::runtime_error("base " + base + ": " + doc.ParseError().reason);
  }
  const Json edits = rule_case.self.value("edit", Json::array());
  for (const Json& edit : edits) Apply(doc, edit);
  Scene scene;
  scene.arguments = rule_case.Get<Json>("arguments", Json::object());
  bool read = false;
  const String text = doc.DocumentElement().Xml();
  if (doc.DocumentElement().BaseName() == "GovTalkMessage") {
    scene.message = std::make_shared<clsGovTalkMessage>();
    read = scene.message->ParseFromXML(text);
    if (read) scene.submission = scene.message->SubmissionDocument();
  } else {
    scene.submission = std::make_shared<clsSubmission>();
    read = scene.submission->ParseFromXML(text);
  }
  if (!read) throw std::runtime_error("the document is not read");
  const Json prepare = rule_case.Get<Json>("prepare", Json::object());
  for (const auto& [name, value] : prepare.items()) {
    if (!Preparations().contains(name)) throw std::runtime_error("unknown preparation " + name);
    Preparations()[name](scene, value);
  }
  return scene;
}

/// A record as a case writes it.
Json Written(const ErrorRecord& record) {
  Json result = {{"code", record.Code()},       {"source", record.Source()},
                 {"title", record.Title()},     {"message", record.Description()},
                 {"field", record.FieldName()}, {"value", record.FieldValue()},
                 {"status", record.Status()}};
  if (record.InnerExceptions()->Count() > 0) {
    result["inner"] = Json::array();
    for (const Ref<ErrorRecord>& inner : *record.InnerExceptions())
      result["inner"].push_back(Written(*inner));
  }
  return result;
}

/// The records that a case expects, filled up from the actual ones where the case leaves something open.
Json FilledUp(Json expected, const Json& actual) {
  for (std::size_t i = 0; i < expected.size() && i < actual.size(); ++i) {
    Json filled;
    for (const auto& [name, value] : actual[i].items()) {
      const bool open = name == "title" || name == "field" || name == "value" || name == "status";
      if (expected[i].contains(name)) {
        filled[name] = name == "inner" ? FilledUp(expected[i][name], value) : expected[i][name];
      } else if (open) {
        filled[name] = value;
      } else if (name == "message" && expected[i].contains("message_begins")) {
        const String begin = expected[i]["message_begins"].get<String>();
        filled[name] = value.get<String>().starts_with(begin) ? value : Json(begin + "...");
      }
    }
    // What the case says and the record lacks, or says under a name that no record has.
    for (const auto& [name, value] : expected[i].items()) {
      if (!actual[i].contains(name) && name != "message_begins") filled[name] = value;
    }
    expected[i] = filled;
  }
  return expected;
}

class RuleBook : public testing::TestWithParam<RuleCase> {
 protected:
  ~RuleBook() override { Process() = {}; }

  WithRecordingHost host;
};

TEST_P(RuleBook, HoldsItsCase) {
  const RuleCase& rule_case = GetParam();
  Process() = {};
  host->now = ToDate(rule_case.Get<String>("today", "2025-06-20"));
  Scene scene = SceneOf(rule_case);
  const String operation = rule_case.Get<String>("operation", "");
  ASSERT_TRUE(RuleOperations().contains(operation)) << operation;
  const Ref<Validator> validator = RuleOperations()[operation].new_validator();
  validator->MaxErrors(rule_case.Get<Long>("max_errors", 0));

  bool passes = false;
  for (int run = rule_case.Get<int>("runs", 1); run > 0; --run) {
    passes = RuleOperations()[operation].run(*validator, scene);
  }

  const Json expected = rule_case.self.value("errors", Json::array());
  Json actual = Json::array();
  for (const Ref<ErrorRecord>& record : *validator->Errors()) actual.push_back(Written(*record));
  EXPECT_EQ(FilledUp(expected, actual).dump(2), actual.dump(2));
  EXPECT_EQ(passes, rule_case.Get<bool>("passes", expected.empty()));
  Json boxes = Json::array();
  for (const auto& message : host->messages) boxes.push_back(message.text);
  EXPECT_EQ(rule_case.self.value("boxes", Json::array()).dump(2), boxes.dump(2));
}

INSTANTIATE_TEST_SUITE_P(Cases, RuleBook, testing::ValuesIn(Cases()),
                         [](const testing::TestParamInfo<RuleCase>& info) {
                           return info.param.file + "_" + info.param.Name();
                         });

TEST(RuleBookTest, CasesHaveKnownMembersOnly) {
  const std::set<String> known = {"name",    "base",      "operation",  "today", "edit",
                                  "prepare", "arguments", "max_errors", "runs",  "passes",
                                  "errors",  "boxes",     "why"};
  for (const RuleCase& each : Cases()) {
    for (const Json& members : {each.all, each.self}) {
      for (const auto& [name, value] : members.items()) {
        EXPECT_TRUE(known.contains(name)) << each.file << " " << each.Name() << ": " << name;
      }
    }
  }
}

/// Adds what identifies a row: its code and how its message begins, up to what a value would change.
void CollectRows(const Json& errors, std::map<String, std::set<String>>& rows) {
  for (const Json& error : errors) {
    const String message =
        error.contains("message") ? error["message"].get<String>() : error.value("message_begins", "");
    rows[error.at("code").get<String>()].insert(error.value("title", "") + "|" + message);
    if (error.contains("inner")) CollectRows(error["inner"], rows);
  }
}

/// How often each code stands in the validators, as a literal of its own.
std::map<String, int> CodesOfTheRuleBook() {
  static const std::regex literal(R"re("((?:[EF][0-9]+|EPS[A-Z]+[0-9]+)(?:\.[0-9]+)+[a-c]?|FAIL_[A-Z]+)")re");
  std::map<String, int> codes;
  for (const fs::directory_entry& entry :
       fs::directory_iterator(fs::path(ZELNOR_SOURCE_DIR) / "src/validation")) {
    if (entry.path().extension() != ".cpp") continue;
    const String content = Content(entry.path());
    for (std::sregex_iterator match(content.begin(), content.end(), literal), end; match != end; ++match) {
      ++codes[(*match)[1].str()];
    }
  }
  return codes;
}

// A code that stands at several rows wants as many different texts. tests/rules/exempt.json says of a code
// how many of its rows need none, and why.
TEST(RuleBookTest, EveryRowHasACaseThatFiresIt) {
  std::map<String, std::set<String>> rows;
  for (const RuleCase& each : Cases()) CollectRows(each.self.value("errors", Json::array()), rows);
  const Json exempt = Json::parse(Content(kExempt));
  const std::map<String, int> codes = CodesOfTheRuleBook();
  ASSERT_FALSE(codes.empty());
  for (const auto& [code, count] : codes) {
    const int excused = exempt.contains(code) ? exempt.at(code).at("rows").get<int>() : 0;
    const auto fired = static_cast<int>(rows[code].size());
    EXPECT_GE(fired + excused, count) << code << " stands at " << count << " rows; cases fire " << fired;
  }
  for (const auto& [code, reason] : exempt.items()) {
    EXPECT_TRUE(codes.contains(code)) << code << " needs no exemption";
  }
}

}  // namespace
}  // namespace zelnor::test
