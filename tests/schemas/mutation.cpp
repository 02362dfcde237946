#include "schemas/mutation.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace zelnor::test {
namespace {

constexpr const char* kSubmissionNamespace =
    "http://www.govtalk.gov.uk/taxation/PAYE/RTI/FullPaymentSubmission/25-26/1";

[[noreturn]] void Refuse(const std::string& where, const std::string& why) {
  throw std::runtime_error(where + ": " + why);
}

// A word of a line; a bare ";" parts two steps, a quoted one doesn't.
struct Word {
  std::string text;
  bool quoted = false;
};

Word QuotedWord(const std::string& line, std::size_t& at, const std::string& where) {
  Word word{"", true};
  while (++at < line.size() && line[at] != '"') {
    if (line[at] != '\\') {
      word.text += line[at];
      continue;
    }
    if (++at == line.size()) break;
    word.text += line[at] == 'n' ? '\n' : line[at] == 't' ? '\t' : line[at];
  }
  if (at == line.size()) Refuse(where, "a quotation mark is missing");
  ++at;
  return word;
}

std::vector<Word> WordsOf(const std::string& line, const std::string& where) {
  std::vector<Word> words;
  for (std::size_t at = 0; at < line.size();) {
    if (line[at] == ' ') {
      ++at;
    } else if (line[at] == '"') {
      words.push_back(QuotedWord(line, at, where));
    } else {
      const std::size_t end = std::min(line.find(' ', at), line.size());
      words.push_back({line.substr(at, end - at), false});
      at = end;
    }
  }
  return words;
}

// How many words an operation takes, itself included; and from which word on each is a case of its own.
struct Shape {
  const char* operation;
  std::size_t least;
  std::size_t most;
  std::size_t values_from;
};

constexpr std::size_t kAny = 1000;
constexpr Shape kShapes[] = {
    {"as-is", 1, 1, 0}, {"remove", 2, 2, 0}, {"duplicate", 2, 2, 0}, {"repeat", 3, 3, 0},
    {"swap", 2, 2, 0},  {"rename", 3, 3, 0}, {"text", 3, kAny, 2},   {"attribute", 4, kAny, 3},
    {"drop", 3, 3, 0},  {"append", 3, 4, 0}, {"before", 3, 4, 0},    {"foreign", 2, 2, 0},
    {"known", 2, 2, 0}, {"stray", 3, 3, 0},
};

const Shape& ShapeOf(const MutationStep& step, const std::string& where) {
  for (const Shape& shape : kShapes) {
    if (step.empty() || step[0] != shape.operation) continue;
    if (step.size() < shape.least || step.size() > shape.most) Refuse(where, "wrong number of words");
    return shape;
  }
  Refuse(where, "no such operation");
}

// One case for each value, where the only step gives several.
void AddCases(const MutationCase& mutation, std::vector<MutationCase>& cases) {
  std::size_t values_from = 0;
  for (const MutationStep& step : mutation.steps) values_from = ShapeOf(step, mutation.where).values_from;
  if (mutation.steps.size() > 1 || values_from == 0) {
    cases.push_back(mutation);
    return;
  }
  const MutationStep& step = mutation.steps.front();
  for (std::size_t value = values_from; value < step.size(); ++value) {
    MutationCase single = mutation;
    single.steps.front().resize(values_from);
    single.steps.front().push_back(step[value]);
    cases.push_back(single);
  }
}

std::string XPathOf(const std::string& address) {
  std::string xpath = "/";
  for (std::size_t at = 0; at < address.size();) {
    const std::size_t end = std::min(address.find('/', at), address.size());
    const std::string step = address.substr(at, end - at);
    const std::size_t bracket = std::min(step.find('['), step.size());
    xpath += "/*[local-name()='" + step.substr(0, bracket) + "']" + step.substr(bracket);
    at = end + 1;
  }
  return xpath;
}

XmlNode NextElement(XmlNode node) {
  do {
    node = node.NextSibling();
  } while (node && !node.IsElement());
  return node;
}

int SiblingsOfThatName(const XmlNode& element) {
  int count = 0;
  for (const XmlNode& sibling : element.ParentNode().ChildNodes()) {
    if (sibling.IsElement() && sibling.NodeName() == element.NodeName()) ++count;
  }
  return count;
}

XmlNode NewElement(const XmlNode& like, const std::string& name, const std::string& text) {
  XmlNode made = like.OwnerDocument().CreateNode(XmlNodeType::Element, name, like.NamespaceURI());
  made.Text(text);
  return made;
}

void PutBehind(const XmlNode& element, const XmlNode& node) {
  element.ParentNode().InsertBefore(node, element.NextSibling());
}

void Rename(const XmlNode& element, const std::string& name) {
  const XmlNode renamed = NewElement(element, name, "");
  for (const XmlNode& attribute : element.Attributes()) {
    const String attribute_name = attribute.NodeName();
    if (!attribute_name.starts_with("xmlns")) renamed.Attribute(attribute_name, attribute.Text());
  }
  while (element.HasChildNodes()) renamed.AppendChild(element.FirstChild());
  element.ParentNode().ReplaceChild(renamed, element);
}

void ApplyStep(const MutationStep& step, const XmlDocument& document, const std::string& where) {
  const std::string& operation = step[0];
  if (operation == "as-is") return;
  const XmlNode element = document.SelectSingleNode(XPathOf(step[1]));
  if (!element) Refuse(where, "there is no " + step[1]);
  if (operation == "remove") {
    element.ParentNode().RemoveChild(element);
  } else if (operation == "duplicate") {
    PutBehind(element, element.CloneNode(true));
  } else if (operation == "repeat") {
    for (int count = SiblingsOfThatName(element); count < std::stoi(step[2]); ++count) {
      PutBehind(element, element.CloneNode(true));
    }
  } else if (operation == "swap") {
    const XmlNode next = NextElement(element);
    if (!next) Refuse(where, "there is no element behind " + step[1]);
    element.ParentNode().InsertBefore(next, element);
  } else if (operation == "rename") {
    Rename(element, step[2]);
  } else if (operation == "text") {
    element.Text(step[2]);
  } else if (operation == "attribute") {
    element.Attribute(step[2], step[3]);
  } else if (operation == "drop") {
    if (!element.Attribute(step[2])) Refuse(where, "there is no attribute " + step[2]);
    element.RemoveAttribute(step[2]);
  } else if (operation == "append") {
    element.AppendChild(NewElement(element, step[2], step.size() > 3 ? step[3] : ""));
  } else if (operation == "before") {
    element.ParentNode().InsertBefore(NewElement(element, step[2], step.size() > 3 ? step[3] : ""), element);
  } else if (operation == "stray") {
    element.AppendChild(document.CreateTextNode(step[2]));
  } else if (operation == "known") {
    element.AppendElement("IRheader", kSubmissionNamespace);
  } else {
    element.AppendElement("extra", "urn:example:extra");
  }
}

}  // namespace

std::string MutationCase::Description() const {
  std::string text = where + ": " + document;
  for (const MutationStep& step : steps) {
    text += text.ends_with(document) ? ":" : " ;";
    for (const std::string& word : step)
      text += word.find(' ') == std::string::npos ? " " + word : " \"" + word + "\"";
  }
  return text;
}

std::vector<MutationCase> ReadMutationTable(const std::string& path) {
  std::ifstream file(path);
  if (!file) Refuse(path, "can't be read");
  std::vector<MutationCase> cases;
  std::string document;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    const std::string where = std::filesystem::path(path).filename().string() + ":" + std::to_string(number);
    const std::vector<Word> words = WordsOf(line, where);
    if (words.size() == 2 && words[0].text == "document") {
      document = words[1].text;
      continue;
    }
    const bool valid = words[0].text == "valid";
    if (words.size() < 2 || document.empty() || (!valid && words[0].text != "invalid"))
      Refuse(where, "can't be understood");
    MutationCase mutation{where, document, valid, {{}}};
    for (std::size_t i = 1; i < words.size(); ++i) {
      if (words[i].text == ";" && !words[i].quoted) {
        mutation.steps.emplace_back();
      } else {
        mutation.steps.back().push_back(words[i].text);
      }
    }
    AddCases(mutation, cases);
  }
  return cases;
}

void Apply(const MutationCase& mutation, const XmlDocument& document) {
  for (const MutationStep& step : mutation.steps) ApplyStep(step, document, mutation.where);
}

}  // namespace zelnor::test
