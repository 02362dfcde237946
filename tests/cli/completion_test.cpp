// The shells' completions: they offer what the program's help tells, no less and no more.

#include "cli/help.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

String Quoted(const String& text) { return "'" + text + "'"; }

/// What bash offers at the end of these words, the last of which is begun.
std::vector<String> BashOffers(const std::vector<String>& words, const String& folder = "/") {
  String script =
      "cd " + Quoted(folder) + "; source " ZELNOR_SOURCE_DIR "/completions/zelnor.bash; COMP_WORDS=(zelnor";
  for (const String& word : words) script += " " + Quoted(word);
  script += "); COMP_CWORD=" + std::to_string(words.size()) + "; _zelnor; printf '%s\\n' \"${COMPREPLY[@]}\"";
  const TemporaryFolder scripts;
  std::vector<String> offers = Split(OutputOf("bash " + Quoted(scripts.Put("offers.bash", script))), '\n');
  std::erase(offers, "");
  return offers;
}

std::vector<String> Begun(const String& command, const std::vector<String>& more) {
  std::vector<String> words = Split(command, ' ');
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

TEST(HelpOfTheProgram, IsUnderstoodByTheseTests) {
  const Help program = HelpOf("");
  EXPECT_THAT(program.commands, Contains("show"));
  EXPECT_THAT(program.Names(), Contains("--home"));
  const Help report = HelpOf("report");
  EXPECT_EQ(report.Names(), (std::set<String>{"-h", "--help", "-o", "--out", "--format", "--sort"}));
  EXPECT_EQ(report.options[2].choices, (std::vector<String>{"html", "text", "json"}));
  EXPECT_TRUE(report.options[1].takes_value);
  EXPECT_FALSE(report.options[0].takes_value);
  EXPECT_FALSE(HelpOf("save").options[3].takes_value);  // --compress
  EXPECT_THAT(HelpOf("log").commands, testing::ElementsAre("list", "show", "open", "prune"));
  EXPECT_GE(AllHelp().size(), 16U);
}

TEST(BashCompletion, OffersEachCommand) {
  for (const Help& help : AllHelp()) {
    if (help.commands.empty()) continue;
    EXPECT_THAT(BashOffers(Begun(help.command, {""})), UnorderedElementsAreArray(help.commands))
        << help.command;
  }
}

TEST(BashCompletion, OffersEachOption) {
  for (const Help& help : AllHelp()) {
    std::set<String> names = help.Names();
    names.merge(CommonOptionNames());
    EXPECT_THAT(BashOffers(Begun(help.command, {"-"})), UnorderedElementsAreArray(names)) << help.command;
  }
}

TEST(BashCompletion, OffersTheValuesThatAnOptionTakesAndNothingElseAfterIt) {
  const TemporaryFolder empty;
  for (const Help& help : AllHelp()) {
    for (const Help::Option& option : help.options) {
      for (const String& name : option.names) {
        const std::vector<String> offers = BashOffers(Begun(help.command, {name, ""}), empty.Path());
        if (!option.choices.empty()) {
          EXPECT_THAT(offers, UnorderedElementsAreArray(option.choices)) << help.command << " " << name;
        }
        if (option.takes_value) {
          for (const String& command : help.commands) {
            EXPECT_THAT(offers, testing::Not(Contains(command))) << help.command << " " << name;
          }
          EXPECT_THAT(BashOffers(Begun(help.command, {name, "--"}), empty.Path()), IsEmpty())
              << help.command << " " << name;
        }
      }
    }
  }
}

TEST(BashCompletion, ContinuesAWordThatIsBegun) {
  EXPECT_THAT(BashOffers({"va"}), testing::ElementsAre("validate"));
  EXPECT_THAT(BashOffers({"validate", "--ma"}), testing::ElementsAre("--max-errors"));
  EXPECT_THAT(BashOffers({"--json", "log", "p"}), testing::ElementsAre("prune"));
  EXPECT_THAT(BashOffers({"send", "--mode", "DevF"}), testing::ElementsAre("DevFileLive", "DevFileTest"));
  EXPECT_THAT(BashOffers({"validate", "--format", "=", "j"}), testing::ElementsAre("json", "junit"));
  EXPECT_THAT(BashOffers({"validate", "--format", "="}), testing::SizeIs(4));
  EXPECT_THAT(BashOffers({"validate", "--stages", "company,e"}),
              testing::ElementsAre("company,envelope", "company,employees"));
  EXPECT_THAT(BashOffers({"poll", "--class", "HMRC-PAYE-RTI-E"}), testing::SizeIs(3));
  EXPECT_THAT(BashOffers({"new", "e"}), testing::ElementsAre("eps", "eas", "eyu"));
}

TEST(BashCompletion, AnOptionsValueIsNoCommandAndNoArgument) {
  const TemporaryFolder folder;
  folder.Put("fps.xml", "");
  EXPECT_THAT(BashOffers({"--home", "show", "n"}), testing::ElementsAre("new"));
  EXPECT_THAT(BashOffers({"--home", "=", "show", "n"}), testing::ElementsAre("new"));
  EXPECT_THAT(BashOffers({"validate", "--today", "2025-10-07", "f"}, folder.Path()),
              testing::ElementsAre("fps.xml"));
  EXPECT_THAT(BashOffers({"gateway", "--tls", "fps.xml", "f"}, folder.Path()),
              testing::ElementsAre("fps.xml"));
  EXPECT_THAT(BashOffers({"gateway", "--tls", "fps.xml", "fps.xml", "f"}, folder.Path()), IsEmpty());
}

TEST(BashCompletion, OffersFilesAsLongAsACommandTakesThem) {
  const TemporaryFolder folder;
  folder.Put("fps.xml", "");
  for (const char* command : {"show", "irmark", "save", "validate", "send", "support", "report"}) {
    EXPECT_THAT(BashOffers({command, "f"}, folder.Path()), testing::ElementsAre("fps.xml")) << command;
  }
  EXPECT_THAT(BashOffers({"show", "fps.xml", "f"}, folder.Path()), IsEmpty());
  EXPECT_THAT(BashOffers({"save", "fps.xml", "f"}, folder.Path()), testing::ElementsAre("fps.xml"));
  EXPECT_THAT(BashOffers({"save", "fps.xml", "out.xml", "f"}, folder.Path()), IsEmpty());
  EXPECT_THAT(BashOffers({"log", "list", ""}, folder.Path()), IsEmpty());
}

TEST(BashCompletion, OffersTheLogsOfTheProgramsFolder) {
  const TemporaryFolder folder;
  folder.Put("home/xml/logs/Log_2026_11_21_072725.xml", "");
  std::filesystem::create_directory(folder.At("empty"));
  for (const std::vector<String>& command :
       {std::vector<String>{"report"}, {"log", "show"}, {"log", "open"}}) {
    std::vector<String> words = {"--home", folder.At("home")};
    words.insert(words.end(), command.begin(), command.end());
    words.emplace_back("");
    EXPECT_THAT(BashOffers(words, folder.At("empty")), testing::ElementsAre("Log_2026_11_21_072725"));
  }
}

/// What zsh is told of the arguments of a command: its own functions, which would offer them, are replaced by
/// such as print what they are given.
std::vector<String> ZshSpecifications(const String& command) {
  String script = "path_to_go=(" + command +
                  ")\n"
                  "_arguments() {\n"
                  "  if [[ $1 != -C ]]; then print -rl -- \"$@\"; return; fi\n"
                  "  if (( $#path_to_go )); then\n"
                  "    state=argument; line=($path_to_go[1]); shift path_to_go\n"
                  "  else\n"
                  "    print -rl -- \"$@\"; state=command\n"
                  "  fi\n"
                  "  return 1\n"
                  "}\n"
                  "_describe() { print -rl -- \"${(P@)2}\" }\n"
                  "source " ZELNOR_SOURCE_DIR "/completions/_zelnor\n";
  const TemporaryFolder scripts;
  return Split(OutputOf("zsh -f " + Quoted(scripts.Put("specifications.zsh", script))), '\n');
}

TEST(ZshCompletion, KnowsEachCommandAndEachOption) {
  static const re2::RE2 kOption(R"((?:\([^)]*\))?(--?[a-z-]+)\[.*)");
  static const re2::RE2 kCommand("([a-z]+):.*");
  for (const Help& help : AllHelp()) {
    std::set<String> names;
    std::vector<String> commands;
    for (const String& specification : ZshSpecifications(help.command)) {
      String name;
      if (re2::RE2::FullMatch(specification, kOption, &name)) names.insert(name);
      if (re2::RE2::FullMatch(specification, kCommand, &name)) commands.push_back(name);
    }
    std::set<String> expected = help.Names();
    expected.merge(CommonOptionNames());
    EXPECT_EQ(names, expected) << help.command;
    EXPECT_EQ(commands, help.commands) << help.command;
  }
}

TEST(ZshCompletion, KnowsTheValuesOfEachOptionThatTakesButAFew) {
  for (const Help& help : AllHelp()) {
    const std::vector<String> specifications = ZshSpecifications(help.command);
    for (const Help::Option& option : help.options) {
      if (option.choices.empty()) continue;
      String list;
      for (const String& choice : option.choices) list += (list.empty() ? "" : " ") + choice;
      EXPECT_THAT(specifications, Contains(testing::AllOf(testing::HasSubstr(option.names[0] + "["),
                                                          testing::EndsWith(":(" + list + ")"))))
          << help.command;
    }
  }
}

}  // namespace
}  // namespace zelnor::test
