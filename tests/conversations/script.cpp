#include "conversations/script.h"

#include <fstream>
#include <stdexcept>

namespace zelnor::test {
namespace {

std::string Trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t\r");
  return begin == std::string::npos ? std::string()
                                    : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::pair<std::string, std::string> Split(const std::string& text) {
  const std::size_t blank = text.find(' ');
  return {text.substr(0, blank), blank == std::string::npos ? std::string() : Trimmed(text.substr(blank))};
}

}  // namespace

std::vector<std::string> Script::All(const std::string& name) const {
  std::vector<std::string> values;
  for (const ScriptLine& each : settings) {
    const auto [key, value] = Split(each.text);
    if (key == name) values.push_back(value);
  }
  return values;
}

bool Script::Has(const std::string& name) const { return !All(name).empty(); }

std::string Script::Setting(const std::string& name, const std::string& otherwise) const {
  const std::vector<std::string> values = All(name);
  return values.empty() ? otherwise : values.back();
}

Script ReadScript(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + " can't be read");
  Script script;
  bool columns = false;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    const std::string text = Trimmed(line);
    if (text.empty() || text.front() == '#') continue;
    if (text == "---") {
      columns = true;
      continue;
    }
    if (!columns) {
      script.settings.push_back({text, number});
      continue;
    }
    const std::size_t bar = line.find('|');
    if (bar == std::string::npos) {
      throw std::runtime_error(path + ":" + std::to_string(number) + ": a line of two columns needs a \"|\"");
    }
    // Within the left column a bar may be written as "\|", for errors of the department.
    std::string left;
    std::size_t at = 0;
    for (; at < line.size() && line[at] != '|'; ++at) {
      if (line[at] == '\\' && at + 1 < line.size() && line[at + 1] == '|') ++at;
      left += line[at];
    }
    script.scenario += Trimmed(left) + "\n";
    const std::string right = at < line.size() ? Trimmed(line.substr(at + 1)) : std::string();
    if (!right.empty()) script.expectations.push_back({right, number});
  }
  if (script.expectations.empty()) throw std::runtime_error(path + " expects nothing");
  return script;
}

bool Matches(const std::string& pattern, const std::string& text) {
  std::size_t at = 0;
  std::size_t in = 0;
  std::size_t star = std::string::npos;
  std::size_t resume = 0;
  while (in < text.size()) {
    if (at < pattern.size() && pattern[at] == '*') {
      star = at++;
      resume = in;
    } else if (at < pattern.size() && pattern[at] == text[in]) {
      ++at;
      ++in;
    } else if (star != std::string::npos) {
      at = star + 1;
      in = ++resume;
    } else {
      return false;
    }
  }
  while (at < pattern.size() && pattern[at] == '*') ++at;
  return at == pattern.size();
}

}  // namespace zelnor::test
