// Holds docs/guide/rules.md, the table of codes, against the cases of tests/rules/ and the advice beside the
// guide. With ZELNOR_WRITE_GUIDE set it writes the page anew.

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "validation/rule_files.h"
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

namespace fs = std::filesystem;
using std::string;

const fs::path kGuide = fs::path(ZELNOR_SOURCE_DIR) / "docs/guide";

/// Texts by the beginning of a code.
class ByPrefix {
 public:
  void Add(const string& prefix, const string& text) { texts_[prefix] = text; }

  /// The entry of the longest prefix that ends where a part of the code ends; nothing for none.
  const std::pair<const string, string>* Find(const string& code) const {
    const std::pair<const string, string>* best = nullptr;
    for (const auto& entry : texts_) {
      const string& prefix = entry.first;
      if (!code.starts_with(prefix)) continue;
      const bool ends =
          code.size() == prefix.size() || !std::isdigit(prefix.back()) || !std::isdigit(code[prefix.size()]);
      if (ends && (best == nullptr || prefix.size() > best->first.size())) best = &entry;
    }
    return best;
  }

  std::vector<string> Prefixes() const {
    std::vector<string> all;
    for (const auto& [prefix, text] : texts_) all.push_back(prefix);
    return all;
  }

 private:
  std::map<string, string> texts_;
};

struct Advice {
  std::vector<string> groups;  // in the file's order
  ByPrefix headings;
  ByPrefix texts;
};

Advice ReadAdvice() {
  Advice advice;
  std::istringstream lines(Content(kGuide / "rules-advice.txt"));
  for (string line; std::getline(lines, line);) {
    if (line.empty() || line.front() == '#') continue;
    const std::size_t blank = line.find(' ');
    const string text = line.substr(blank + 1);
    if (line.front() == '[') {
      const string group = line.substr(1, blank - 2);
      advice.groups.push_back(group);
      advice.headings.Add(group, text);
    } else {
      advice.texts.Add(line.substr(0, blank), text);
    }
  }
  return advice;
}

/// The numbers and words of a code, so that E4.9 stands before E4.10.
std::vector<std::pair<long, string>> SortKey(const string& code) {
  std::vector<std::pair<long, string>> key;
  for (std::size_t at = 0; at < code.size();) {
    std::size_t end = at;
    const bool number = std::isdigit(static_cast<unsigned char>(code[at])) != 0;
    while (end < code.size() && (std::isdigit(static_cast<unsigned char>(code[end])) != 0) == number) ++end;
    const string part = code.substr(at, end - at);
    key.emplace_back(number ? std::stol(part) : -1, number ? "" : part);
    at = end;
  }
  return key;
}

struct ByCode {
  bool operator()(const string& a, const string& b) const { return SortKey(a) < SortKey(b); }
};

/// What each code says: its texts in the order of the cases, each with its fields.
using Rows = std::map<string, std::vector<std::pair<string, std::set<string>>>, ByCode>;

void Collect(const Json& errors, Rows& rows) {
  for (const Json& error : errors) {
    if (error.contains("inner")) Collect(error["inner"], rows);
    const string title = error.value("title", "");
    const string message = error.value("message", "");
    if (message.empty() || title == "Processing Error" || title == "Unknown Error") continue;
    if (message.starts_with("An error occurred while attempting to validate")) continue;
    auto& texts = rows[error.at("code").get<string>()];
    auto found =
        std::find_if(texts.begin(), texts.end(), [&](const auto& row) { return row.first == message; });
    if (found == texts.end()) found = texts.insert(texts.end(), {message, {}});
    if (const string field = error.value("field", ""); !field.empty()) found->second.insert(field);
  }
}

Rows RowsOfTheRuleBook() {
  Rows rows;
  for (const RuleFile& file : RuleFiles()) {
    for (const Json& each : file.content.at("cases")) Collect(each.value("errors", Json::array()), rows);
  }
  return rows;
}

/// A text in a cell: one line, nothing in it that Markdown takes for its own.
string Cell(const string& text) {
  string result;
  for (const char c : text) {
    if (c == '|' || c == '<' || c == '*' || c == '[' || c == '_') result += '\\';
    result += c == '\n' || c == '\r' ? ' ' : c;
  }
  return result;
}

/// Texts of one code that differ in their values alone are told once.
string Shape(const string& text) {
  string shape;
  for (const char c : text.substr(0, 60)) {
    if (std::isdigit(static_cast<unsigned char>(c)) == 0) shape += c;
  }
  return shape;
}

string Page(const Rows& rows, const Advice& advice) {
  std::ostringstream page;
  page << "<!-- Made by GuideTest of rules-advice.txt and the cases in tests/rules/; don't edit. -->\n"
          "# The codes of the rule book\n\n"
          "Each rule has a code, by which `zelnor validate`, the report and the error records name it. A "
          "code that ends in "
          "`.0` with the title \"Processing Error\" or \"Unknown Error\" means that the rule itself could "
          "not run: a record is "
          "missing or holds what can't be read, and the text says what went wrong. Values in the texts below "
          "are examples.\n";
  for (const string& group : advice.groups) {
    bool begun = false;
    for (const auto& [code, texts] : rows) {
      const auto* heading = advice.headings.Find(code);
      if (heading == nullptr || heading->first != group) continue;
      if (!begun)
        page << "\n## " << heading->second
             << "\n\n| Code | Field | It says | What to do |\n|---|---|---|---|\n";
      begun = true;
      std::set<string> told;
      for (const auto& [text, fields] : texts) {
        if (!told.insert(Shape(text)).second) continue;
        string names;
        for (const string& field : fields) names += (names.empty() ? "" : ", ") + field;
        page << "| " << Cell(code) << " | " << Cell(names) << " | " << Cell(text) << " | "
             << advice.texts.Find(code)->second << " |\n";
      }
    }
  }
  return page.str();
}

TEST(GuideTest, EveryCodeHasAHeadingAndAnAdvice) {
  const Advice advice = ReadAdvice();
  for (const auto& [code, texts] : RowsOfTheRuleBook()) {
    EXPECT_NE(advice.headings.Find(code), nullptr) << code;
    EXPECT_NE(advice.texts.Find(code), nullptr) << code;
  }
}

TEST(GuideTest, EveryAdviceHasACode) {
  const Advice advice = ReadAdvice();
  std::set<string> used;
  for (const auto& [code, texts] : RowsOfTheRuleBook()) {
    if (const auto* text = advice.texts.Find(code)) used.insert(text->first);
  }
  for (const string& prefix : advice.texts.Prefixes()) EXPECT_TRUE(used.contains(prefix)) << prefix;
}

TEST(GuideTest, TheTableOfCodesIsThatOfTheRuleBook) {
  const string page = Page(RowsOfTheRuleBook(), ReadAdvice());
  if (std::getenv("ZELNOR_WRITE_GUIDE") != nullptr) {
    std::ofstream(kGuide / "rules.md", std::ios::binary) << page;
  }
  EXPECT_EQ(Content(kGuide / "rules.md"), page) << "ZELNOR_WRITE_GUIDE=1 writes the page anew";
}

}  // namespace
}  // namespace zelnor::test
