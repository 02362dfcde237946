#include "zelnor/platform/regex.h"

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

struct RegexCase {
  const char* pattern;
  const char* text;
  bool matches;
};

TEST(Regex, FindsAMatchAnywhereUnlessAnchored) {
  const RegexCase cases[] = {
      {"E3[0-9]{6}[A-Z]", "xxE3123456Ayy", true},
      {"^E3[0-9]{6}[A-Z]", "xE3123456A", false},
      {"[0-9]{0,32}", "", true},
      {"^[0-9]{3}$", "123", true},
      {"^[0-9]{3}$", "1234", false},
      {"^[0-9]{3}$", "123\n", false},
      {"^[0-9]{3}$", "123\n456", false},
      {"^(BR)|(0T)$", "BRX", true},
      {"^(BR)|(0T)$", "X0T", true},
      {"^(BR)|(0T)$", "XBRX", false},
      {"^[^a]{1}$", "\n", true},
      {"^[A-Z\\-' \\(\\)\\*,\\./\"=!%&;<>+:\\?]+$", "O'BRIEN-(A) *,./\"=!%&;<>+:?", true},
      {"^[A-Za-z]{1,1}[A-Za-z \\-',]{0,34}$", "a-b, c", true},
      {"^[A-Za-z]{1,1}[A-Za-z \\-',]{0,34}$", "-a", false},
      {"^[a-z]+$", "ABC", false}};
  for (const RegexCase& each : cases) {
    EXPECT_EQ(Regex(each.pattern).Test(each.text), each.matches) << each.pattern << " on " << each.text;
  }
}

TEST(Regex, KnowsEveryWhiteSpace) {
  const RegexCase cases[] = {{"^[0-9\\(\\)\\-\\s]{1,35}$", "(01234) 567-890", true},
                             {"^[0-9\\(\\)\\-\\s]{1,35}$", "01234x567890", false},
                             {"^\\s$", "\t", true},
                             {"^\\s$", "\v", true},
                             {"^\\s$", "\f", true},
                             {"^\\s$", "\u00A0", true},
                             {"^\\s$", "\u2003", true},
                             {"^\\s$", "\uFEFF", true},
                             {"^\\s$", "a", false},
                             {"^\\s$", "", false},
                             {"^\\S$", "a", true},
                             {"^\\S$", "\u00A0", false},
                             {"^\\\\s$", "\\s", true},
                             {"^[\\\\s]$", "s", true},
                             {"^[\\]\\s]$", " ", true},
                             {"^\\[\\s$", "[ ", true}};
  for (const RegexCase& each : cases) {
    EXPECT_EQ(Regex(each.pattern).Test(each.text), each.matches) << each.pattern << " on " << each.text;
  }
}

TEST(Regex, CountsCharactersAndNotBytes) {
  EXPECT_TRUE(Regex("^.{2}$").Test("\u00E9\u20AC"));
  EXPECT_TRUE(Regex("^[\u2018']$").Test("\u2018"));
  EXPECT_FALSE(Regex("^[\u2018']$").Test("\u2019"));
}

TEST(Regex, IgnoresCaseWhereAsked) {
  EXPECT_TRUE(Regex("^[a-z]\u00E9$", true).Test("B\u00C9"));
  EXPECT_FALSE(Regex("^[a-z]\u00E9$", false).Test("B\u00C9"));
}

// The long s and the sign of Kelvin are no letters of the alphabet in another case.
TEST(Regex, TakesNoForeignSignForALetterOfTheAlphabet) {
  EXPECT_FALSE(Regex("^[a-z]+$", true).Test("\u017Fmith"));
  EXPECT_FALSE(Regex("^[a-z]+$", true).Test("\u212Aelvin"));
  EXPECT_TRUE(Regex("^.mith$", true).Test("\u017FMITH"));
}

TEST(Regex, RefusesAPatternThatCannotBeCompiled) {
  for (const char* pattern : {"[", "(", "a{2,1}", "*", "\\", "a{1,100000}", "(?=a)", "\xFF", "[z-a]"}) {
    EXPECT_EQ(ErrorNumberOf([&] { (void)Regex(pattern); }), 5) << pattern;
  }
}

TEST(Regex, RefusesAPatternThatTakesTooMuchMemory) {
  EXPECT_EQ(ErrorNumberOf([] { (void)Regex("((\\p{L}{100}){10}){1,9}x(\\p{L}{1000})"); }), 5);
}

TEST(Regex, TakesLinearTimeOnTextThatNearlyMatches) {
  const String text(200000, 'a');
  EXPECT_FALSE(Regex("^(a+)+$").Test(text + "b"));
}

TEST(Regex, CopiesShareThePattern) {
  const Regex original("^a$");
  const Regex copy = original;
  EXPECT_TRUE(copy.Test("a"));
}

}  // namespace
}  // namespace zelnor
