// The language of scenarios.

#include "zelnor/standin/scenario.h"

#include <stdexcept>

#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::standin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

// What the reader says to a text that it refuses.
std::string Refusal(const std::string& text) {
  try {
    const Scenario scenario(text);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "accepted";
}

std::string Next(Scenario& scenario, const std::string& kind = "submission") {
  const std::optional<Action> action = scenario.Take(kind);
  return action ? action->name : "none";
}

TEST(ScenarioText, AnEmptyTextHasNoActions) {
  EXPECT_TRUE(Scenario("").Empty());
  EXPECT_TRUE(Scenario("\n  \n# error number=1\n\r\n").Empty());
}

TEST(ScenarioText, AnActionHasArgumentsAndOptions) {
  Scenario scenario("status 500 xml  location=\"http://a b/#c\"  # why not\r\n");
  const Action action = scenario.Take("submission").value();
  EXPECT_EQ(action.name, "status");
  EXPECT_THAT(action.arguments, ElementsAre("500", "xml"));
  EXPECT_THAT(action.options, ElementsAre(Pair("location", "http://a b/#c")));
  EXPECT_EQ(action.line, 1);
  EXPECT_EQ(action.Option("body", "otherwise"), "otherwise");
}

TEST(ScenarioText, QuotedTextIsTakenAsItIs) {
  Scenario scenario(R"(text "a=b # \"c\" \\ \n" x2)"
                    "\ntext \"x2\"\n");
  EXPECT_EQ(scenario.Take("poll")->Argument(), "a=b # \"c\" \\ \n");
  EXPECT_EQ(scenario.Take("poll")->Argument(), "a=b # \"c\" \\ \n");
  EXPECT_EQ(scenario.Take("poll")->Argument(), "x2");
  EXPECT_TRUE(scenario.Empty());
}

TEST(ScenarioText, AnOptionMayHoldSignsAndComeAgain) {
  Scenario scenario("business-error error=\"1|business|a=b|/c[1]\" error=\"2\"\nerror text=a=b");
  EXPECT_THAT(scenario.Take("poll")->All("error"), ElementsAre("1|business|a=b|/c[1]", "2"));
  EXPECT_EQ(scenario.Take("poll")->Option("text"), "a=b");
}

TEST(ScenarioText, ActionsAreTakenInOrder) {
  Scenario scenario("empty\ngzip x2\nproper\n");
  EXPECT_EQ(Next(scenario), "empty");
  EXPECT_EQ(Next(scenario), "gzip");
  EXPECT_EQ(Next(scenario), "gzip");
  EXPECT_EQ(Next(scenario), "proper");
  EXPECT_EQ(Next(scenario), "none");
}

TEST(ScenarioText, AnActionForAKindOfRequestWaitsForIt) {
  Scenario scenario("delete: empty\npoll: gzip\nproper\n");
  EXPECT_EQ(Next(scenario, "submission"), "proper");
  EXPECT_EQ(Next(scenario, "submission"), "none");
  EXPECT_EQ(Next(scenario, "poll"), "gzip");
  EXPECT_EQ(Next(scenario, "poll"), "none");
  EXPECT_EQ(Next(scenario, "delete"), "empty");
}

TEST(ScenarioText, ARefusalIsTakenBeforeTheRequestIsKnown) {
  Scenario scenario("refuse x2\npoll: refuse\nrefuse\n");
  EXPECT_TRUE(scenario.TakeRefusal());
  EXPECT_TRUE(scenario.TakeRefusal());
  EXPECT_FALSE(scenario.TakeRefusal()) << "one for a kind of request waits until that is known";
  EXPECT_EQ(Next(scenario, "poll"), "refuse");
  EXPECT_TRUE(scenario.TakeRefusal());
  EXPECT_TRUE(scenario.Empty());
}

TEST(ScenarioText, EachActionIsKnown) {
  const test::TemporaryFolder folder;
  const std::string file = folder.Put("an=answer.xml", "<a/>");
  for (const std::string& line : std::initializer_list<std::string>{
           "proper",
           "acknowledgement",
           "acknowledgement interval=abc endpoint=none correlation=none class=X",
           "response",
           "response class=X correlation=Y",
           "response-immediate",
           "response-immediate messages=\"9000:one|9001:two\"",
           "response-other function=list",
           "deleted",
           "error number=1 type=fatal raised-by=Gateway text=t location=l",
           "business-error error=\"1|b|t|l\"",
           "error-body xml=\"<a/>\"",
           "error-noerrors",
           "qualifier value=a function=b",
           "refuse",
           "drop",
           "drop before",
           "drop header",
           "drop body",
           "stall",
           "stall before",
           "stall header",
           "stall body",
           "slow ms=10",
           "status 500",
           "status 500 body=b",
           "status 500 xml",
           "status 302 location=u",
           "unauthorized",
           "empty",
           "text t",
           "cut bytes=1",
           "other-document",
           "encoding utf-16",
           "encoding wrong",
           "encoding latin1",
           "huge mb=1",
           "gzip",
           "bad-gzip",
           "file \"" + file + "\""}) {
    EXPECT_EQ(Refusal(line), "accepted") << line;
  }
}

TEST(ScenarioText, TheGuidesExampleIsUnderstood) {
  std::ifstream file(ZELNOR_SOURCE_DIR "/docs/guide/local-gateway.md");
  const std::string guide{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::size_t begin = guide.find("# A busy gateway");
  ASSERT_NE(begin, std::string::npos);
  Scenario scenario(guide.substr(begin, guide.find("```", begin) - begin));
  EXPECT_EQ(Next(scenario, "submission"), "drop");
  EXPECT_EQ(Next(scenario, "poll"), "status");
  EXPECT_EQ(Next(scenario, "submission"), "acknowledgement");
  EXPECT_EQ(Next(scenario, "poll"), "status");
  EXPECT_EQ(scenario.Take("poll")->All("error").size(), 2U);
  EXPECT_TRUE(scenario.Empty());
}

TEST(ScenarioText, AMistakeIsToldWithItsLine) {
  EXPECT_EQ(Refusal("proper\n# why\nprober\n"), "The scenario, line 3: \"prober\" is no action.");
  EXPECT_EQ(Refusal("answer: proper"),
            "The scenario, line 1: \"answer\" is no kind of request; it is submission, poll or delete.");
  EXPECT_EQ(Refusal("poll:"), "The scenario, line 1: an action is missing.");
  EXPECT_EQ(Refusal("text \"a"), "The scenario, line 1: a quote isn't closed.");
  EXPECT_EQ(Refusal("error numbr=1"), "The scenario, line 1: \"error\" has no option \"numbr\".");
  EXPECT_EQ(Refusal("drop tail"),
            "The scenario, line 1: \"tail\" is nothing that \"drop\" knows; it knows before|header|body.");
  EXPECT_EQ(Refusal("gzip body"), "The scenario, line 1: \"body\" is one word too many for \"gzip\".");
  EXPECT_EQ(Refusal("status"), "The scenario, line 1: \"status\" needs NUMBER.");
  EXPECT_EQ(Refusal("status 50"),
            "The scenario, line 1: \"50\" is no HTTP status; it is a number from 200 to 599.");
  EXPECT_EQ(Refusal("slow ms=soon"), "The scenario, line 1: ms is a number up to 86400000.");
  EXPECT_EQ(Refusal("huge mb=1025"), "The scenario, line 1: mb is a number up to 1024.");
  EXPECT_EQ(Refusal("proper x1000000"),
            "The scenario, line 1: \"x1000000\" is too often; the most is x99999.");
  EXPECT_EQ(Refusal("proper\nempty x0"), "The scenario, line 2: \"x0\" is never; the least is x1.");
  for (const std::string number : {"abc", "", "1e3", "-", "1234567890", "\" 1\""}) {
    EXPECT_THAT(Refusal("proper\nerror number=" + number),
                testing::MatchesRegex("The scenario, line 2: \".*\" is no error's number; .*"))
        << number;
  }
  EXPECT_EQ(Refusal("error number=-9999"), "accepted");
  EXPECT_THAT(Refusal("business-error error=\"7780|business|a\" error=\"text|business|b\""),
              HasSubstr("line 1: \"text\" is no error's number"));
  EXPECT_EQ(Refusal("error number=1 number=2"), "The scenario, line 1: \"number\" is there twice.");
  EXPECT_THAT(Refusal("file /not/there"), HasSubstr("the file \"/not/there\" can't be read"));
  EXPECT_THAT(Refusal("file /tmp"), HasSubstr("the file \"/tmp\" can't be read"));
}

}  // namespace
}  // namespace zelnor::standin
