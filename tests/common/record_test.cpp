#include "zelnor/common/record.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

/// A record of two fields.
class Sample : public Record {
 public:
  void Name(const String& value) { Change(name_, value); }
  const String& Name() const { return name_; }
  bool CreateFromXML(const XmlNode& node) {
    if (node.NodeName() != "Sample") return false;
    name_ = node.Text();
    return true;
  }

 private:
  String name_;
};

const Date kDay = Date::FromParts(2014, 4, 6);

/// Writes every row with something in it.
void WriteFull(Element& out) {
  out.Text("Text", "a & b");
  out.Money("Money", Currency::FromPence(123456));
  out.Day("Day", kDay);
  out.Number("Number", -7);
  out.YesNo("YesNo", true);
  out.OptionalText("OptionalText", "x");
  out.OptionalMoney("OptionalMoney", Currency::FromPence(-1));
  out.OptionalDay("OptionalDay", kDay);
  out.OptionalNumber("OptionalNumber", 12);
  out.Yes("Yes", true);
  out.TextIf(true, "TextIf", "");
}

/// Writes every row with nothing in it.
void WriteEmpty(Element& out) {
  out.Text("Text", "");
  out.Money("Money", Currency());
  out.Day("Day", Date());
  out.Number("Number", 0);
  out.YesNo("YesNo", false);
  out.OptionalText("OptionalText", "");
  out.OptionalMoney("OptionalMoney", Currency());
  out.OptionalDay("OptionalDay", Date());
  out.OptionalNumber("OptionalNumber", 0);
  out.Yes("Yes", false);
  out.TextIf(false, "TextIf", "x");
}

constexpr const char* kFull =
    "<R><Text>a &amp; "
    "b</Text><Money>1234.56</Money><Day>2014-04-06</Day><Number>-7</Number><YesNo>yes</YesNo>"
    "<OptionalText>x</OptionalText><OptionalMoney>-0.01</OptionalMoney><OptionalDay>2014-04-06</OptionalDay>"
    "<OptionalNumber>12</OptionalNumber><Yes>yes</Yes><TextIf></TextIf></R>";
constexpr const char* kEmpty =
    "<R><Text></Text><Money>0.00</Money><Day>1899-12-30</Day><Number>0</Number><YesNo>no</YesNo></R>";

}  // namespace

TEST(Record, BeginsUnvalidated) {
  Sample sample;
  EXPECT_FALSE(sample.Validated());
  sample.Validated(true);
  EXPECT_TRUE(sample.Validated());
}

TEST(Record, OnlyADifferentValueClearsTheFlag) {
  Sample sample;
  sample.Name("one");
  sample.Validated(true);
  sample.Name("one");
  EXPECT_TRUE(sample.Validated());
  sample.Name("other");
  EXPECT_FALSE(sample.Validated());
  EXPECT_EQ(sample.Name(), "other");
}

TEST(ClearValidated, ReachesAChildAndEveryMember) {
  const auto one = std::make_shared<Sample>();
  one->Validated(true);
  ClearValidated(one);
  EXPECT_FALSE(one->Validated());

  const CollectionRef<Sample> several = MakeCollection<Sample>();
  for (int i = 0; i < 3; ++i) {
    several->Add(std::make_shared<Sample>());
    several->Item(i + 1)->Validated(true);
  }
  ClearValidated(several);
  for (const Ref<Sample>& each : *several) EXPECT_FALSE(each->Validated());
}

TEST(ClearValidated, TakesNoObject) {
  ClearValidated(Ref<Sample>());
  ClearValidated(CollectionRef<Sample>());
}

TEST(AbsentOrValidated, IsTrueWithoutAChild) {
  EXPECT_TRUE(AbsentOrValidated(Ref<Sample>()));
  EXPECT_TRUE(AbsentOrValidated(CollectionRef<Sample>()));
  EXPECT_TRUE(AbsentOrValidated(MakeCollection<Sample>()));
}

TEST(AbsentOrValidated, AsksEveryMember) {
  const CollectionRef<Sample> several = MakeCollection<Sample>();
  several->Add(std::make_shared<Sample>());
  several->Add(std::make_shared<Sample>());
  several->Item(1)->Validated(true);
  EXPECT_FALSE(AbsentOrValidated(several));
  EXPECT_FALSE(AbsentOrValidated(several->Item(2)));
  several->Item(2)->Validated(true);
  EXPECT_TRUE(AbsentOrValidated(several));
}

TEST(MadeWhenAbsent, MakesOnce) {
  Ref<Sample> child;
  const Ref<Sample> made = MadeWhenAbsent(child);
  ASSERT_TRUE(made);
  EXPECT_EQ(child, made);
  EXPECT_EQ(MadeWhenAbsent(child), made);
}

TEST(NewFromXML, FillsANewRecord) { EXPECT_EQ(NewFromXML<Sample>(Root("<Sample>a</Sample>"))->Name(), "a"); }

TEST(NewFromXML, GivesAFreshRecordForANodeThatItRefuses) {
  const Ref<Sample> record = NewFromXML<Sample>(Root("<Other>a</Other>"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Name(), "");
}

TEST(FirstNodeNamed, IsTheDocumentElementOfAPlainText) {
  EXPECT_EQ(FirstNodeNamed("<a>1</a>", "a").Text(), "1");
  EXPECT_EQ(FirstNodeNamed(" \n<a>1</a>", "a").Text(), "1");
}

TEST(FirstNodeNamed, IsNothingBehindADeclarationOrAComment) {
  EXPECT_FALSE(FirstNodeNamed("<?xml version=\"1.0\"?><a>1</a>", "a"));
  EXPECT_FALSE(FirstNodeNamed("<!--x--><a>1</a>", "a"));
}

TEST(FirstNodeNamed, IsNothingForAnotherNameOrBadTextAndShowsNoBox) {
  const WithRecordingHost host;
  EXPECT_FALSE(FirstNodeNamed("<b/>", "a"));
  EXPECT_FALSE(FirstNodeNamed("<A/>", "a"));
  EXPECT_FALSE(FirstNodeNamed("<p:a xmlns:p=\"urn:p\"/>", "a"));
  EXPECT_FALSE(FirstNodeNamed("<a>", "a"));
  EXPECT_FALSE(FirstNodeNamed("", "a"));
  EXPECT_TRUE(host->messages.empty());
}

TEST(DocumentElementNamed, LooksBehindADeclarationAndComments) {
  EXPECT_EQ(DocumentElementNamed("<a>1</a>", "a").Text(), "1");
  EXPECT_EQ(DocumentElementNamed("<?xml version=\"1.0\"?><!--x--><a>1</a>", "a").Text(), "1");
}

TEST(DocumentElementNamed, IsNothingForAnotherNameOrBadTextAndShowsNoBox) {
  const WithRecordingHost host;
  EXPECT_FALSE(DocumentElementNamed("<b><a/></b>", "a"));
  EXPECT_FALSE(DocumentElementNamed("<p:a xmlns:p=\"urn:p\"/>", "a"));
  EXPECT_FALSE(DocumentElementNamed("<a>", "a"));
  EXPECT_FALSE(DocumentElementNamed("", "a"));
  EXPECT_TRUE(host->messages.empty());
}

TEST(IsYes, IgnoresCaseAndNothingElse) {
  for (const String text : {"yes", "YES", "Yes", "yEs"}) EXPECT_TRUE(IsYes(text)) << text;
  for (const String text : {"", "no", "y", "true", " yes", "1"}) EXPECT_FALSE(IsYes(text)) << text;
}

TEST(BoolToYesNo, IsYesForOneOnly) {
  EXPECT_EQ(BoolToYesNo(1), "yes");
  for (const Long other : {0, -1, 2, 100}) EXPECT_EQ(BoolToYesNo(other), "no") << other;
}

TEST(FormatDateOrDefault, WritesDatesFromTheFirstOfJanuary1901) {
  EXPECT_EQ(FormatDateOrDefault(Date::FromParts(1901, 1, 1), "yyyy-mm-dd", "x"), "1901-01-01");
  EXPECT_EQ(FormatDateOrDefault(Date::FromParts(2014, 4, 6), "dd/mm/yyyy", "x"), "06/04/2014");
}

TEST(FormatDateOrDefault, GivesTheDefaultForEarlierOnes) {
  EXPECT_EQ(FormatDateOrDefault(Date::FromParts(1900, 12, 31), "yyyy-mm-dd", "x"), "x");
  EXPECT_EQ(FormatDateOrDefault(Date::FromParts(1900, 12, 31).WithTimeOf(Date::FromTime(23, 59, 59)),
                                "yyyy-mm-dd", "x"),
            "x");
  EXPECT_EQ(FormatDateOrDefault(Date(), "yyyy-mm-dd", "none"), "none");
  EXPECT_EQ(FormatDateOrDefault(Date(), "yyyy-mm-dd", ""), "");
}

TEST(PadRight, FillsUpToTheWidth) {
  EXPECT_EQ(PadRight("ab", 5, " "), "ab   ");
  EXPECT_EQ(PadRight("", 3, "*"), "***");
  EXPECT_EQ(PadRight("ab", 4, "xyz"), "abxx");
}

TEST(PadRight, LeavesALongerTextAlone) {
  EXPECT_EQ(PadRight("abc", 3, "*"), "abc");
  EXPECT_EQ(PadRight("abcd", 3, "*"), "abcd");
  EXPECT_EQ(PadRight("ab", 0, "*"), "ab");
  EXPECT_EQ(PadRight("ab", -1, "*"), "ab");
}

TEST(PadRight, CountsCharactersAndNotBytes) {
  EXPECT_EQ(PadRight("\xC2\xA3"
                     "1",
                     4, "\xC2\xB7"),
            "\xC2\xA3"
            "1\xC2\xB7\xC2\xB7");
}

TEST(Element, SingleIsMadeOnceAndWrittenInPlace) {
  const XmlNode parent = Root("<P/>");
  Element::Single("R", parent).Text("A", "1");
  Element again = Element::Single("R", parent);
  again.Text("B", "2");
  again.Text("A", "3");
  EXPECT_EQ(parent.Xml(), "<P><R><A>3</A><B>2</B></R></P>");
}

TEST(Element, EmptiedIsMadeOnceAndRidOfItsElements) {
  const XmlNode parent = Root("<P><Before/><R x=\"1\"><Old/>text</R><After/></P>");
  Element::Emptied("R", parent).Text("A", "1");
  EXPECT_EQ(parent.Xml(), "<P><Before></Before><R x=\"1\">text<A>1</A></R><After></After></P>");
  const XmlNode bare = Root("<P/>");
  Element::Emptied("R", bare).Text("A", "1");
  EXPECT_EQ(bare.Xml(), "<P><R><A>1</A></R></P>");
}

TEST(Element, AppendedIsAlwaysNew) {
  const XmlNode parent = Root("<P><R/></P>");
  Element::Appended("R", parent).Text("A", "1");
  Element::Appended("R", parent).Text("A", "2");
  EXPECT_EQ(parent.Xml(), "<P><R></R><R><A>1</A></R><R><A>2</A></R></P>");
}

TEST(Element, ReusedIsTheNodeRidOfItsElements) {
  const XmlNode node = Root("<R><Old/></R>");
  Element out = Element::Reused(node);
  out.Text("A", "1");
  EXPECT_EQ(out.Node(), node);
  EXPECT_EQ(node.Xml(), "<R><A>1</A></R>");
}

TEST(Element, TakesTheNamespaceThatChildrenOfTheParentTake) {
  const XmlNode parent = Root("<P xmlns=\"urn:p\"/>");
  Element out = Element::Single("R", parent);
  out.Text("A", "1");
  EXPECT_EQ(out.Node().NamespaceURI(), "urn:p");
  EXPECT_EQ(parent.Xml(), "<P xmlns=\"urn:p\"><R><A>1</A></R></P>");
}

TEST(Element, WritesEveryRowOnAFreshElement) {
  Element full = Element::Single("R", Root("<P/>"));
  WriteFull(full);
  EXPECT_EQ(full.Node().Xml(), kFull);
  Element empty = Element::Single("R", Root("<P/>"));
  WriteEmpty(empty);
  EXPECT_EQ(empty.Node().Xml(), kEmpty);
}

TEST(Element, RewritesEveryRowOnAUsedElement) {
  const XmlNode parent = Root("<P/>");
  Element first = Element::Single("R", parent);
  WriteFull(first);
  Element same = Element::Single("R", parent);
  WriteFull(same);
  EXPECT_EQ(same.Node().Xml(), kFull);
  Element emptied = Element::Single("R", parent);
  WriteEmpty(emptied);
  EXPECT_EQ(emptied.Node().Xml(), kEmpty);
}

TEST(Element, RemovesEveryElementOfANameThatHasNothingToWrite) {
  const XmlNode parent = Root("<P><R><Yes>yes</Yes><Keep/><Yes>yes</Yes></R></P>");
  Element out = Element::Single("R", parent);
  out.Yes("Yes", false);
  EXPECT_EQ(parent.Xml(), "<P><R><Keep></Keep></R></P>");
}

TEST(Element, ZeroDatesAloneCountAsNoDate) {
  Element out = Element::Single("R", Root("<P/>"));
  out.OptionalDay("A", Date::FromParts(1899, 12, 31));
  out.OptionalDay("B", Date::FromParts(1900, 1, 1));
  EXPECT_EQ(out.Node().Xml(), "<R><A>1899-12-31</A><B>1900-01-01</B></R>");
}

TEST(Element, MoneyThatRoundsToNothingIsStillWritten) {
  Element out = Element::Single("R", Root("<P/>"));
  out.OptionalMoney("A", Currency::FromUnits(1));
  out.Money("B", Currency::FromUnits(-1));
  EXPECT_EQ(out.Node().Xml(), "<R><A>0.00</A><B>0.00</B></R>");
}

TEST(Element, AppendRepeatsAName) {
  Element out = Element::Single("R", Root("<P/>"));
  out.Append("Line", "1");
  out.Append("Line", "2");
  EXPECT_EQ(out.Node().Xml(), "<R><Line>1</Line><Line>2</Line></R>");
}

TEST(Element, ChildIsFoundOrMade) {
  const XmlNode parent = Root("<P><R><Used>1</Used></R></P>");
  Element used = Element::Single("R", parent);
  EXPECT_EQ(used.Child("Used").Text(), "1");
  used.Child("New").Text("2");
  EXPECT_EQ(parent.Xml(), "<P><R><Used>1</Used><New>2</New></R></P>");
}

TEST(Element, WritesAttributes) {
  Element out = Element::Single("R", Root("<P/>"));
  out.Attribute("a", "1");
  out.Attribute("a", "2");
  out.AttributeYesNo("b", true);
  out.AttributeYesNo("c", false);
  EXPECT_EQ(out.Node().Xml(), "<R a=\"2\" b=\"yes\" c=\"no\"></R>");
}
