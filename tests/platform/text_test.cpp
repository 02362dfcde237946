#include "zelnor/platform/text.h"

#include "platform/error_number.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

// U+1F600 takes two code units, U+00E9 and U+20AC one each.
const String kMixed = "a\u00E9\U0001F600\u20ACz";

TEST(Length, CountsCodeUnits) {
  EXPECT_EQ(Length(""), 0U);
  EXPECT_EQ(Length("abc"), 3U);
  EXPECT_EQ(Length("exactly eight and more bytes"), 28U);
  EXPECT_EQ(Length("\u00E9"), 1U);
  EXPECT_EQ(Length("\u20AC"), 1U);
  EXPECT_EQ(Length("\U0001F600"), 2U);
  EXPECT_EQ(Length(kMixed), 6U);
  EXPECT_EQ(Length("ascii in front \u20AC and ascii behind it"), 36U);
}

TEST(Length, CountsBytesThatAreNoUtf8OneByOne) {
  EXPECT_EQ(Length("a\xFFz"), 3U);
  EXPECT_EQ(Length("\xE2\x82"), 2U);          // cut off
  EXPECT_EQ(Length("\xC0\x80"), 2U);          // overlong
  EXPECT_EQ(Length("\xED\xA0\x80"), 3U);      // a surrogate
  EXPECT_EQ(Length("\xF4\x90\x80\x80"), 4U);  // above U+10FFFF
}

TEST(Left, CutsCodeUnits) {
  EXPECT_EQ(Left("abcdef", 3), "abc");
  EXPECT_EQ(Left("abc", 3), "abc");
  EXPECT_EQ(Left("abc", 4), "abc");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(Left("", 5), "");
  EXPECT_EQ(Left(kMixed, 2), "a\u00E9");
  EXPECT_EQ(Left(kMixed, 4), "a\u00E9\U0001F600");
  EXPECT_EQ(Left(kMixed, 5), "a\u00E9\U0001F600\u20AC");
  EXPECT_EQ(ErrorNumberOf([] { (void)Left("abc", -1); }), 5);
}

TEST(Left, KeepsASurrogatePairWholeInTheFirstPart) {
  EXPECT_EQ(Left(kMixed, 3), "a\u00E9\U0001F600");
  EXPECT_EQ(Mid(kMixed, 4), "\u20ACz");
  EXPECT_EQ(Right(kMixed, 3), "\u20ACz");
}

TEST(Right, CutsCodeUnits) {
  EXPECT_EQ(Right("abcdef", 3), "def");
  EXPECT_EQ(Right("abc", 3), "abc");
  EXPECT_EQ(Right("abc", 9), "abc");
  EXPECT_EQ(Right("abc", 0), "");
  EXPECT_EQ(Right(kMixed, 1), "z");
  EXPECT_EQ(Right(kMixed, 2), "\u20ACz");
  EXPECT_EQ(Right(kMixed, 4), "\U0001F600\u20ACz");
  EXPECT_EQ(Right(kMixed, 6), kMixed);
  EXPECT_EQ(Right(kMixed, 7), kMixed);
  EXPECT_EQ(ErrorNumberOf([] { (void)Right("abc", -1); }), 5);
}

TEST(Mid, CutsFromAPosition) {
  EXPECT_EQ(Mid("abcdef", 2), "bcdef");
  EXPECT_EQ(Mid("abcdef", 7), "");
  EXPECT_EQ(Mid("abcdef", 99), "");
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Mid("abcdef", 5, 9), "ef");
  EXPECT_EQ(Mid("abcdef", 9, 1), "");
  EXPECT_EQ(Mid("abcdef", 1, 0), "");
  EXPECT_EQ(Mid(kMixed, 2, 1), "\u00E9");
  EXPECT_EQ(Mid(kMixed, 3, 2), "\U0001F600");
  EXPECT_EQ(Mid(kMixed, 3, 1), "\U0001F600");
  EXPECT_EQ(Mid(kMixed, 4, 1), "");
  EXPECT_EQ(Mid(kMixed, 4, 2), "\u20AC");
  EXPECT_EQ(Mid(kMixed, 5, 1), "\u20AC");
  EXPECT_EQ(ErrorNumberOf([] { (void)Mid("abc", 0); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Mid("abc", 0, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { (void)Mid("abc", 1, -1); }), 5);
}

TEST(Find, GivesThePositionInCodeUnits) {
  EXPECT_EQ(Find("abcabc", "c"), 3U);
  EXPECT_EQ(Find("abcabc", "c", 4), 6U);
  EXPECT_EQ(Find("abcabc", "c", 7), 0U);
  EXPECT_EQ(Find("abcabc", "x"), 0U);
  EXPECT_EQ(Find("abc", "C"), 0U);
  EXPECT_EQ(Find(kMixed, "z"), 6U);
  EXPECT_EQ(Find(kMixed, "\u20AC"), 5U);
  EXPECT_EQ(Find(kMixed, "\u20AC", 5), 5U);
  EXPECT_EQ(Find(kMixed, "\u20AC", 6), 0U);
  EXPECT_EQ(Find("abc", "", 2), 2U);
  EXPECT_EQ(Find("", ""), 0U);
  EXPECT_EQ(ErrorNumberOf([] { (void)Find("abc", "c", 0); }), 5);
}

TEST(Replace, ReplacesEveryOccurrenceInOnePass) {
  EXPECT_EQ(Replace("a.b.c", ".", "::"), "a::b::c");
  EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");
  EXPECT_EQ(Replace("abc", "b", ""), "ac");
  EXPECT_EQ(Replace("abc", "x", "y"), "abc");
  EXPECT_EQ(Replace("abc", "", "y"), "abc");
  EXPECT_EQ(Replace("", "x", "y"), "");
  EXPECT_EQ(Replace("x\u20ACx", "\u20AC", "E"), "xEx");
}

TEST(Trim, RemovesBlanksAloneAtBothEnds) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim(" \u00A0a\u00A0 "), "\u00A0a\u00A0");
}

TEST(TrimXmlSpace, RemovesTheWhiteSpaceOfXml) {
  EXPECT_EQ(TrimXmlSpace(" \t\r\na b\n "), "a b");
  EXPECT_EQ(TrimXmlSpace(" \n"), "");
  EXPECT_EQ(TrimXmlSpace("\fa\u00A0"), "\fa\u00A0");
}

TEST(Case, FollowsTheSimpleMappings) {
  EXPECT_EQ(UpperCase("abcXYZ019-[]{}@`"), "ABCXYZ019-[]{}@`");
  EXPECT_EQ(LowerCase("abcXYZ019-[]{}@`"), "abcxyz019-[]{}@`");
  EXPECT_EQ(UpperCase("\u00E9\u00FF\u0161"), "\u00C9\u0178\u0160");
  EXPECT_EQ(LowerCase("\u00C9\u0178\u0160\u0416"), "\u00E9\u00FF\u0161\u0436");
  EXPECT_EQ(UpperCase("stra\u00DFe"), "STRA\u00DFE");
  EXPECT_EQ(LowerCase("\u1E9E"), "\u00DF");
  EXPECT_EQ(LowerCase("\u0130"), "i");
  EXPECT_EQ(UpperCase("\U00010428"), "\U00010400");
  EXPECT_EQ(UpperCase("a\xFFz"), "A\xFFZ");
}

TEST(EqualIgnoringCase, ComparesLetters) {
  EXPECT_TRUE(EqualIgnoringCase("NINO", "nino"));
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_TRUE(EqualIgnoringCase("Ren\u00C9e", "rEn\u00E9E"));
  EXPECT_TRUE(EqualIgnoringCase("\u212A", "k"));  // the Kelvin sign, of another size
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringCase("ab", "a"));
  EXPECT_FALSE(EqualIgnoringCase("[", "{"));
  EXPECT_FALSE(EqualIgnoringCase("e", "\u00E9"));
}

TEST(Ends, AreCompared) {
  EXPECT_TRUE(StartsWith("abc", "ab"));
  EXPECT_TRUE(StartsWith("abc", ""));
  EXPECT_FALSE(StartsWith("abc", "AB"));
  EXPECT_FALSE(StartsWith("a", "ab"));
  EXPECT_TRUE(EndsWith("abc", "bc"));
  EXPECT_FALSE(EndsWith("abc", "b"));
}

TEST(Utf16, GoesThereAndBack) {
  EXPECT_EQ(ToUtf16(kMixed), u"a\u00E9\U0001F600\u20ACz");
  EXPECT_EQ(FromUtf16(u"a\u00E9\U0001F600\u20ACz"), kMixed);
  EXPECT_EQ(ToUtf16("a\xFF\xE2\x82z"), u"a\uFFFD\uFFFD\uFFFDz");
  const char16_t lone[] = {u'a', 0xD83D, u'b', 0xDE00, 0xD83D};
  EXPECT_EQ(FromUtf16({lone, 5}), "a\uFFFDb\uFFFD\uFFFD");
}

TEST(Ansi, GoesThereAndBackForEveryByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  const String text = FromAnsi(bytes);
  EXPECT_TRUE(IsUtf8(text));
  EXPECT_EQ(Length(text), 256U);
  EXPECT_EQ(ToAnsi(text), bytes);
}

TEST(Ansi, KnowsTheUpperRowAndTheUndefinedBytes) {
  EXPECT_EQ(FromAnsi("\x80\x85\x92\x9F"), "\u20AC\u2026\u2019\u0178");
  EXPECT_EQ(FromAnsi("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(FromAnsi("\xA3\xFF"), "\u00A3\u00FF");
}

TEST(Ansi, WritesAQuestionMarkForACharacterOutsideThePage) {
  EXPECT_EQ(ToAnsi("a\u0100\U0001F600b"), "a??b");
  EXPECT_EQ(ToAnsi("\u0080"), "?");  // this byte is the euro sign's
  EXPECT_EQ(ToAnsi("\xFF"), "?");
}

TEST(IsUtf8, RefusesWhatIsNotWellFormed) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("plain ascii text"));
  EXPECT_TRUE(IsUtf8(kMixed));
  EXPECT_TRUE(IsUtf8("\uFFFD"));
  EXPECT_TRUE(IsUtf8("\U0010FFFF"));
  for (const char* broken :
       {"\xFF", "abc\x80", "\xC3", "\xC0\x80", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
        "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xE2\x28\xA1"}) {
    EXPECT_FALSE(IsUtf8(broken)) << broken;
  }
}

}  // namespace
}  // namespace zelnor
