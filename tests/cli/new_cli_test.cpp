// `zelnor new` as a user runs it.

#include "zelnor/platform/text.h"

#include "cli/cli_fixture.h"

namespace zelnor::test {
namespace {

using testing::HasSubstr;

class NewCliTest : public CliTest, public testing::WithParamInterface<const char*> {};

TEST_P(NewCliTest, ADocumentToStartFromIsValidAndCommented) {
  const String type = GetParam();
  const String path = folder_.At(type + ".xml");
  ASSERT_EQ(Run("new " + type + " -o " + Quoted(path)).status, 0);
  EXPECT_THAT(folder_.Get(path), HasSubstr("<!-- Your PAYE reference"));
  const Outcome valid = Run("validate --today 2025-10-07 " + Quoted(path));
  EXPECT_EQ(valid.status, 0) << valid.out;
  const Outcome packed = Run("validate --today 2025-10-07 --compress " + Quoted(path));
  EXPECT_EQ(packed.status, 0) << packed.out;
  const Outcome shown = Run("--json show " + Quoted(path));
  EXPECT_EQ(nlohmann::json::parse(shown.out)["type"], UpperCase(type));
}

TEST_P(NewCliTest, ADocumentToStartFromIsValidOnAnyDayOfItsYear) {
  const String type = GetParam();
  const String path = folder_.At(type + ".xml");
  ASSERT_EQ(Run("new " + type + " -o " + Quoted(path)).status, 0);
  for (const char* today :
       {"", "--today 2025-04-06", "--today 2025-06-15", "--today 2025-12-31", "--today 2026-01-01",
        "--today 2026-03-05", "--today 2026-04-05", "--today 2026-04-06", "--today 2027-02-28"}) {
    const Outcome run = Run("validate " + String(today) + " " + Quoted(path));
    EXPECT_EQ(run.status, 0) << today << run.out << run.err;
  }
}

TEST_F(CliTest, ThePartOfANewSummaryThatIsValidInItsMonthsOnlySaysWhen) {
  String document = Run("new eps").out;
  EXPECT_THAT(document, HasSubstr("from 6 August to 19 October"));
  const std::size_t begin = document.find("        <RecoverableAmountsYTD>");
  const std::size_t end = document.find("        -->", begin);
  ASSERT_NE(end, String::npos);
  document.replace(end, 11, "");
  document.insert(begin - 1, " -->");
  const String input = Input(document);
  EXPECT_EQ(Run("validate --today 2025-08-06 " + input).status, 0);
  EXPECT_EQ(Run("validate --today 2025-10-19 " + input).status, 0);
  EXPECT_EQ(Run("validate --today 2025-08-05 " + input).status, 11);
  EXPECT_EQ(Run("validate --today 2025-10-20 " + input).status, 11);
}

INSTANTIATE_TEST_SUITE_P(Types, NewCliTest, testing::Values("fps", "eps", "eas", "eyu", "nvr"),
                         [](const auto& type) { return String(type.param); });

TEST_F(CliTest, NewWritesToStandardOutputInAnyCaseOfItsType) {
  const Outcome run = Run("new EPS");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("<EmployerPaymentSummary>"));
}

TEST_F(CliTest, NewOverwritesNothing) {
  const String path = folder_.Put("mine.xml", "mine");
  const Outcome run = Run("new fps -o " + Quoted(path));
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(folder_.Get("mine.xml"), "mine");
  EXPECT_EQ(Run("new p45").status, 2);
}

}  // namespace
}  // namespace zelnor::test
