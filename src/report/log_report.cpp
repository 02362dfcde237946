#include "zelnor/report/log_report.h"

#include "zelnor/platform/failure.h"
#include "zelnor/report/log_style_sheet.h"
#include "zelnor/report/style_sheet.h"

#include <algorithm>
#include <cstdlib>

#include <fmt/format.h>

namespace zelnor::report {
namespace {

const char* NameOf(Order order) {
  switch (order) {
    case Order::kEmployee:
      return "employee";
    case Order::kField:
      return "field";
    case Order::kSeverity:
      return "severity";
    default:
      return "";
  }
}

String AttributeOf(const XmlNode& node, std::string_view name) { return node.Attribute(name).value_or(""); }

long SecondsOf(const XmlNode& node) { return std::strtol(AttributeOf(node, "seconds").c_str(), nullptr, 10); }

Finding FindingOf(const XmlNode& node) {
  return {AttributeOf(node, "from") == "hmrc",
          AttributeOf(node, "employee"),
          AttributeOf(node, "field"),
          AttributeOf(node, "value"),
          AttributeOf(node, "severity"),
          AttributeOf(node, "code"),
          node.Text()};
}

Message MessageOf(const XmlNode& node) {
  return {AttributeOf(node, "to") == "true", AttributeOf(node, "time"), SecondsOf(node),
          AttributeOf(node, "url"), node.Text()};
}

void TakeFact(LogFacts& facts, const String& name, const String& value) {
  const std::map<String, String*> fields = {{"outcome", &facts.outcome},
                                            {"headline", &facts.headline},
                                            {"advice", &facts.advice},
                                            {"type", &facts.type},
                                            {"company", &facts.company},
                                            {"paye_ref", &facts.paye_ref},
                                            {"operator", &facts.op},
                                            {"mode", &facts.mode},
                                            {"year", &facts.year},
                                            {"periods", &facts.periods},
                                            {"correlation_id", &facts.correlation_id},
                                            {"base64", &facts.base64},
                                            {"base32", &facts.base32},
                                            {"receipt", &facts.receipt},
                                            {"began", &facts.began},
                                            {"took", &facts.took}};
  if (name == "test") facts.test = value == "true";
  if (name == "local") facts.local = value == "true";
  if (const auto field = fields.find(name); field != fields.end()) *field->second = value;
}

// What a group of errors is headed by.
const String& HeadOf(const Finding& finding, Order order) {
  if (order == Order::kField) return finding.field;
  return order == Order::kSeverity ? finding.severity : finding.employee;
}

String Line(const char* label, const String& value) {
  return value.empty() ? String() : fmt::format("{:<16}{}\n", label, value);
}

// The errors under their heads, each head where its first error stands.
String FindingsAsText(std::vector<Finding> findings, Order order) {
  std::vector<String> heads;
  for (const Finding& finding : findings) {
    if (std::find(heads.begin(), heads.end(), HeadOf(finding, order)) == heads.end())
      heads.push_back(HeadOf(finding, order));
  }
  std::stable_sort(findings.begin(), findings.end(), [&](const Finding& a, const Finding& b) {
    const auto rank = [&](const Finding& finding) {
      return std::find(heads.begin(), heads.end(), HeadOf(finding, order)) - heads.begin();
    };
    return rank(a) < rank(b);
  });
  String text;
  const String* head = nullptr;
  for (const Finding& finding : findings) {
    if (head == nullptr || *head != HeadOf(finding, order)) {
      head = &HeadOf(finding, order);
      text += "  " + *head + "\n";
    }
    const String value = finding.value.empty() ? String() : " (\"" + finding.value + "\")";
    const String field = order == Order::kField ? finding.employee : finding.field;
    text += fmt::format("    {} {}{}: {}{}\n", finding.severity, finding.code,
                        field.empty() ? "" : ", " + field, finding.text, value);
  }
  return text;
}

String SectionOfFindings(const LogFacts& facts, bool from_hmrc, const char* title, Order order) {
  std::vector<Finding> findings;
  std::copy_if(facts.findings.begin(), facts.findings.end(), std::back_inserter(findings),
               [&](const Finding& finding) { return finding.from_hmrc == from_hmrc; });
  if (findings.empty()) return {};
  String text = fmt::format("\n{} ({})\n", title, findings.size());
  return text + FindingsAsText(std::move(findings), order);
}

}  // namespace

bool IsLog(const XmlDocument& document) {
  const XmlNode root = document.DocumentElement();
  return root && root.NodeName() == "Log";
}

String LogAsHtml(const XmlDocument& log, Order order) {
  return HtmlOf(log, kLogStyleSheet, {{"sort", NameOf(order)}});
}

LogFacts FactsOfLog(const XmlDocument& log) {
  const XmlDocument document = DocumentOf(log, kLogStyleSheet, {{"facts", "yes"}});
  LogFacts facts;
  for (const XmlNode& node : document.DocumentElement().ChildNodes()) {
    const std::string_view name = node.BaseName();
    if (name == "fact") TakeFact(facts, AttributeOf(node, "name"), node.Text());
    if (name == "error") facts.findings.push_back(FindingOf(node));
    if (name == "step") facts.steps.push_back({AttributeOf(node, "time"), SecondsOf(node), node.Text()});
    if (name == "message") facts.messages.push_back(MessageOf(node));
  }
  return facts;
}

String InGroups(const String& base32) {
  String text;
  for (std::size_t at = 0; at < base32.size(); at += 4) text += (at == 0 ? "" : " ") + base32.substr(at, 4);
  return text;
}

String FactsAsText(const LogFacts& facts, Order order) {
  String text = facts.headline + "\n";
  if (!facts.advice.empty()) text += facts.advice + "\n";
  text += "\n";
  text += Line("Company", facts.company) + Line("PAYE reference", facts.paye_ref) +
          Line("Made by", facts.op) + Line("Kind", facts.type);
  text += Line("Mode", facts.mode + (facts.test ? " (a test)" : ""));
  text += Line("Tax year", facts.year) + Line("Periods", facts.periods);
  text += Line("Correlation ID", facts.correlation_id);
  text += Line("IRmark", InGroups(facts.base32)) + Line("", facts.base64);
  const String whose = facts.local ? "The local gateway's" : "HMRC's";
  if (facts.receipt == "same") text += Line("", whose + " receipt bears the same mark.");
  if (facts.receipt == "other") text += Line("", whose + " receipt bears ANOTHER mark.");
  text += Line("Began", facts.began) + Line("Took", facts.took);
  text +=
      SectionOfFindings(facts, true, facts.local ? "What the local gateway found" : "What HMRC found", order);
  text += SectionOfFindings(facts, false, "What the check before sending found", order);
  if (!facts.messages.empty()) text += "\nMessages\n";
  for (const Message& message : facts.messages) {
    text += fmt::format("  {}  {} {}\n", message.time, message.to_hmrc ? "->" : "<-", message.words);
  }
  if (!facts.steps.empty()) text += "\nWhat happened when\n";
  for (const Step& step : facts.steps) {
    const String after = step.seconds > 0 ? fmt::format("+{} s", step.seconds) : String();
    text += fmt::format("  {}  {:>7}  {}\n", step.time.size() > 11 ? step.time.substr(11) : step.time, after,
                        step.text);
  }
  return text;
}

}  // namespace zelnor::report
