// The manual page: it tells of the commands and options that the program has, no less and no more.

#include "zelnor/platform/files.h"

#include <map>

#include "cli/help.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

using testing::Contains;

/// What a macro that sets its words next to one another, in types by turns, makes of them: a blank stays
/// where it is quoted or escaped.
String SetByTurns(const String& words) {
  String set;
  bool quoted = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == '"') {
      quoted = !quoted;
    } else if (words.compare(i, 2, "\\ ") == 0) {
      set += words[++i];
    } else if (words[i] != ' ' || quoted) {
      set += words[i];
    }
  }
  return set;
}

/// The page's lines as they are read, without types. The macros of its structure stand.
std::vector<String> ManualPage() {
  static const re2::RE2 kOneType(R"(^\.(B|I) )");
  static const re2::RE2 kTypesByTurns(R"(^\.(BR|RB|BI|IB|IR|RI) )");
  std::vector<String> lines = Split(ReadFile(ZELNOR_SOURCE_DIR "/man/zelnor.1"), '\n');
  for (String& line : lines) {
    re2::RE2::GlobalReplace(&line, R"(\\f[A-Z])", "");
    re2::RE2::GlobalReplace(&line, R"(\\\[[a-z]q\])", "");
    re2::RE2::GlobalReplace(&line, R"(\\-)", "-");
    if (re2::RE2::Replace(&line, kTypesByTurns, "")) {
      line = SetByTurns(line);
    } else if (re2::RE2::Replace(&line, kOneType, "")) {
      std::erase(line, '"');
    }
  }
  return lines;
}

/// The text of a section ("COMMANDS") or of a part of one ("Options of save"), line by line.
std::vector<String> Section(const String& name) {
  std::vector<String> lines;
  bool inside = false;
  for (const String& line : ManualPage()) {
    if (line.starts_with(".SH ") || line.starts_with(".SS ")) {
      inside = line.substr(4) == name;
    } else if (inside) {
      lines.push_back(line);
    }
  }
  return lines;
}

String Joined(const std::vector<String>& lines) {
  String text;
  for (const String& line : lines) text += line + " ";
  return text;
}

std::set<String> OptionsIn(const String& text) {
  static const re2::RE2 kOption(R"((?:^|[^-A-Za-z0-9])(--?[a-z][a-z-]*))");
  std::set<String> found;
  String name;
  for (re2::StringPiece rest(text); re2::RE2::FindAndConsume(&rest, kOption, &name);) found.insert(name);
  return found;
}

/// The blocks of the synopsis, each by the commands that it is for.
std::map<String, String> Synopsis() {
  static const re2::RE2 kCommand(R"(^\[?options\]? ((?:[a-z]+ ?)+)(\|[a-z]+)?)");
  std::map<String, String> blocks;
  String block;
  for (const String& line : Section("SYNOPSIS")) {
    if (line.starts_with(".SY")) {
      block.clear();
    } else if (line.starts_with(".YS")) {
      String command, other;
      if (!re2::RE2::PartialMatch(block, kCommand, &command, &other)) {
        ADD_FAILURE() << "no command in " << block;
        continue;
      }
      while (command.ends_with(' ')) command.pop_back();
      blocks[command] = block;
      if (!other.empty()) blocks[command.substr(0, command.rfind(' ') + 1) + other.substr(1)] = block;
    } else {
      block += (block.empty() ? "" : " ") + line;
    }
  }
  return blocks;
}

/// The sections in which the options of a command are told.
String OptionSectionsOf(const String& command) {
  String text = Joined(Section("Options of " + command));
  if (command == "send" || command == "poll") text += Joined(Section("Gateway options of send and poll"));
  return text;
}

TEST(ManualPage, IsUnderstoodByTheseTests) {
  EXPECT_EQ(OptionsIn("[--out FILE] -o|--plain well-known --a-b"),
            (std::set<String>{"--out", "-o", "--plain", "--a-b"}));
  EXPECT_THAT(Synopsis(), Contains(testing::Key("log open")));
  EXPECT_THAT(Section("Options of report"), Contains("--format text|json|csv|junit").Times(0));
  EXPECT_THAT(Section("Options of validate"), Contains("--format text|json|csv|junit"));
}

TEST(ManualPage, HasEachCommandInItsSynopsis) {
  std::set<String> commands, in_page;
  for (const Help& help : AllHelp()) {
    if (help.commands.empty()) commands.insert(help.command);
  }
  for (const auto& [command, block] : Synopsis()) in_page.insert(command);
  EXPECT_EQ(in_page, commands);
}

TEST(ManualPage, HasEachOptionInItsSynopsis) {
  const std::map<String, String> synopsis = Synopsis();
  const std::set<String> common = CommonOptionNames();
  for (const Help& help : AllHelp()) {
    const auto block = synopsis.find(help.command);
    if (block == synopsis.end()) continue;  // told by HasEachCommandInItsSynopsis
    String text = block->second;
    if (text.find("gateway options") != String::npos) {
      text += " " + Joined(Section("Gateway options of send and poll"));
    }
    const std::set<String> in_page = OptionsIn(text);
    for (const Help::Option& option : help.options) {
      if (common.contains(option.names.front())) continue;
      EXPECT_TRUE(std::any_of(option.names.begin(), option.names.end(),
                              [&](const String& name) { return in_page.contains(name); }))
          << help.command << " " << option.names.back();
    }
    const std::set<String> names = help.Names();
    for (const String& name : in_page) {
      EXPECT_TRUE(names.contains(name)) << help.command << " has no " << name;
    }
  }
}

TEST(ManualPage, TellsEachOptionWithItsValues) {
  const std::set<String> common = CommonOptionNames();
  EXPECT_EQ(OptionsIn(Joined(Section("OPTIONS"))), HelpOf("").Names());
  for (const Help& help : AllHelp()) {
    if (help.command.empty()) continue;
    const String text = OptionSectionsOf(help.command);
    const std::set<String> told = OptionsIn(text);
    for (const Help::Option& option : help.options) {
      for (const String& name : option.names) {
        if (!common.contains(name)) {
          EXPECT_TRUE(told.contains(name)) << help.command << " " << name;
        }
      }
      for (const String& choice : option.choices) {
        EXPECT_THAT(text, testing::HasSubstr(choice)) << help.command << " " << option.names.back();
      }
    }
    const std::set<String> names = help.Names();
    for (const String& name : told) {
      EXPECT_TRUE(names.contains(name) || common.contains(name)) << help.command << " has no " << name;
    }
  }
}

TEST(ManualPage, TellsWhatEachCommandDoes) {
  const std::vector<String> lines = Section("COMMANDS");
  for (const Help& help : AllHelp()) {
    if (!help.commands.empty()) continue;
    bool told = false;
    for (std::size_t i = 0; i + 2 < lines.size(); ++i) {
      told = told || (lines[i] == ".TP" && (lines[i + 1] + " ").starts_with(help.command + " ") &&
                      !lines[i + 2].starts_with('.'));
    }
    EXPECT_TRUE(told) << help.command;
  }
}

TEST(ManualPage, HasTheExitStatusesAndTheVersionOfTheProgram) {
  static const re2::RE2 kStatus(R"((?:Exit status: |, |,\n)(\d+) [a-z])");
  std::vector<String> statuses;
  const String help = OutputOf("'" ZELNOR_PROGRAM "' --help");
  String number;
  for (re2::StringPiece rest(help); re2::RE2::FindAndConsume(&rest, kStatus, &number);)
    statuses.push_back(number);
  EXPECT_GE(statuses.size(), 9U);
  std::vector<String> in_page;
  for (const String& line : Section("EXIT STATUS")) {
    if (re2::RE2::FullMatch(line, R"(\d+)")) in_page.push_back(line);
  }
  EXPECT_EQ(in_page, statuses);
  EXPECT_THAT(ManualPage().front(),
              testing::HasSubstr("\"" + OutputOf("'" ZELNOR_PROGRAM "' --version") + "\""));
}

}  // namespace
}  // namespace zelnor::test
