#include "zelnor/common/modPublicEnums.h"

#include "zelnor/platform/formats.h"

#include <cmath>
#include <filesystem>
#include <limits>

#include "common_fixture.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using modPublicEnums = InProgramFolder;

String Moment(Date date) { return Format(date, "yyyy-mm-dd hh:nn:ss"); }

String BoxOf(const String& member, Long number) {
  return "Error in ZELNOR.dll::modPublicEnums: " + member + ": Error " + std::to_string(number) + " - ";
}

}  // namespace

TEST_F(modPublicEnums, PrettyPrintXMLWritesADeclarationOnlyWhenAskedFor) {
  EXPECT_EQ(PrettyPrintXML("<a><b>1</b></a>", true), "<a><b>1</b></a>");
  EXPECT_THAT(PrettyPrintXML("<a><b>1</b></a>", false),
              AllOf(StartsWith("<?xml version=\"1.0\" encoding=\"utf-8\""), EndsWith("?>\n<a><b>1</b></a>")));
  EXPECT_EQ(PrettyPrintXML("<?xml version=\"1.0\"?><a></a>", true), "<a></a>");
}

TEST_F(modPublicEnums, PrettyPrintXMLAddsNoIndentationAndKeepsWhatIsThere) {
  EXPECT_EQ(PrettyPrintXML("<a>\n  <b> 1 </b>\n</a>", true), "<a>\n  <b> 1 </b>\n</a>");
}

TEST_F(modPublicEnums, PrettyPrintXMLWritesEmptyElementsAsPairs) {
  EXPECT_EQ(PrettyPrintXML("<a><b/><c></c></a>", true), "<a><b></b><c></c></a>");
}

TEST_F(modPublicEnums, PrettyPrintXMLLeavesNoCarriageReturn) {
  for (const bool omit : {false, true}) {
    const String printed = PrettyPrintXML("<?xml version=\"1.0\"?>\r\n<a>\r\n<b>x\r\ny</b>\r</a>\r\n", omit);
    EXPECT_EQ(printed.find('\r'), String::npos);
    EXPECT_THAT(printed, HasSubstr("<b>x\ny</b>"));
  }
}

TEST_F(modPublicEnums, PrettyPrintXMLReportsWhatIsNotWellFormed) {
  EXPECT_EQ(PrettyPrintXML("<a><b></a>", true), "");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function PrettyPrintXML", 440))));
}

TEST_F(modPublicEnums, ReplaceInlineEmptyXMLElementsMakesPairs) {
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("<a><b/></a>"), "<a><b></b></a>");
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("<a/>"), "<a></a>");
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("<a><b/>x<p:c/></a>"), "<a><b></b>x<p:c></p:c></a>");
}

TEST_F(modPublicEnums, ReplaceInlineEmptyXMLElementsRepeatsTheWholeInsideOfTheTag) {
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("<a><b /></a>"), "<a><b ></b ></a>");
}

TEST_F(modPublicEnums, ReplaceInlineEmptyXMLElementsLeavesOtherTextAlone) {
  for (const String text : {"", "no tags", "<a><b>1 / 2 > 3</b></a>"})
    EXPECT_EQ(ReplaceInlineEmptyXMLElements(text), text);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, ReplaceInlineEmptyXMLElementsReportsAnEndWithoutABeginning) {
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("a/>"), "");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function ReplaceInlineEmptyXMLElements", 5))));
}

TEST_F(modPublicEnums, ReplaceInlineEmptyXMLElementsEndsOnAnyText) {
  EXPECT_EQ(ReplaceInlineEmptyXMLElements("</>"), "<></>");
}

TEST_F(modPublicEnums, MakeSafeElementNameKeepsLettersDigitsAndUnderscoresInOrder) {
  EXPECT_EQ(MakeSafeElementName("FullPayment-2014_v1.2.xsd"), "FullPayment2014_v12xsd");
  EXPECT_EQ(MakeSafeElementName("\\xsd\\a b/c:d"), "xsdabcd");
  EXPECT_EQ(MakeSafeElementName("AZaz09_"), "AZaz09_");
  EXPECT_EQ(MakeSafeElementName("@[`{/:Zo\xC3\xAB"), "Zo");
  EXPECT_EQ(MakeSafeElementName(""), "");
}

TEST_F(modPublicEnums, SetAttributeMakesOrReplacesAndGivesTheAttribute) {
  const XmlNode node = Root("<a x=\"1\"/>");
  EXPECT_EQ(SetAttribute(node, "x", "2").Text(), "2");
  const XmlNode made = SetAttribute(node, "y", "a \"b\" & <c>");
  EXPECT_EQ(made.NodeName(), "y");
  EXPECT_EQ(made.NodeType(), XmlNodeType::Attribute);
  EXPECT_EQ(node.Xml(), "<a x=\"2\" y=\"a &quot;b&quot; &amp; &lt;c>\"></a>");
}

TEST_F(modPublicEnums, SetAttributeReportsABadNameAndNoNode) {
  EXPECT_FALSE(SetAttribute(Root("<a/>"), "two words", "1"));
  EXPECT_FALSE(SetAttribute(nullptr, "x", "1"));
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function SetAttribute", 5)),
                                   StartsWith(BoxOf("Function SetAttribute", 91))));
}

TEST_F(modPublicEnums, RemoveAttributeRemovesIfThere) {
  const XmlNode node = Root("<a x=\"1\" y=\"2\"/>");
  RemoveAttribute(node, "x");
  RemoveAttribute(node, "z");
  EXPECT_EQ(node.Xml(), "<a y=\"2\"></a>");
  EXPECT_THAT(Boxes(), IsEmpty());
  RemoveAttribute(nullptr, "x");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function RemoveAttribute", 91))));
}

TEST_F(modPublicEnums, FileExistsIsTrueForAPlainFile) {
  const String file = folder_.Put("a.xml", "x");
  std::filesystem::create_directory(folder_.At("folder"));
  EXPECT_TRUE(FileExists(file));
  EXPECT_TRUE(FileExists(folder_.Path() + "\\a.xml"));
  EXPECT_FALSE(FileExists(folder_.At("b.xml")));
  EXPECT_FALSE(FileExists(folder_.At("folder")));
  EXPECT_FALSE(FileExists(folder_.At("folder/a.xml")));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists("\\\\server\\share\\a.xml"));
  EXPECT_FALSE(FileExists(String("a\0b", 3)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, GetPathOnlyCutsBehindTheLastSeparator) {
  EXPECT_EQ(GetPathOnly("C:\\a\\b.xml"), "C:\\a");
  EXPECT_EQ(GetPathOnly("/a/b.xml"), "/a");
  EXPECT_EQ(GetPathOnly("/a\\b/c"), "/a\\b");
  EXPECT_EQ(GetPathOnly("a\\"), "a");
  EXPECT_EQ(GetPathOnly("\\a"), "");
  EXPECT_EQ(GetPathOnly(""), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, GetPathOnlyReportsAPathWithoutSeparator) {
  EXPECT_EQ(GetPathOnly("a.xml"), "");
  EXPECT_THAT(Boxes(), ElementsAre(BoxOf("Function GetPathOnly", 5) + "Invalid procedure call or argument"));
}

TEST_F(modPublicEnums, GetFileNameIsWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(GetFileName("C:\\a\\b.xml"), "b.xml");
  EXPECT_EQ(GetFileName("/a/b.xml"), "b.xml");
  EXPECT_EQ(GetFileName("b.xml"), "b.xml");
  EXPECT_EQ(GetFileName("a\\"), "");
  EXPECT_EQ(GetFileName(""), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, CreateFolderMakesAllFoldersAboveTheFile) {
  const String path = folder_.Path() + "\\xml\\logs\\2017\\Log.xml";
  EXPECT_EQ(CreateFolder(path), path);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.At("xml/logs/2017")));
  EXPECT_FALSE(std::filesystem::exists(folder_.At("xml/logs/2017/Log.xml")));
  EXPECT_EQ(CreateFolder(path), path);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, CreateFolderTakesADoubledSeparatorForOne) {
  const String path = folder_.Path() + "\\xml\\\\logs\\\\Log.xml";
  EXPECT_EQ(CreateFolder(path), path);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.At("xml/logs")));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, CreateFolderOnANetworkShareEndsWithoutABox) {
  EXPECT_EQ(CreateFolder("\\\\server\\share\\xml\\a.xml"), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, CreateFolderShowsThePathBehindItsFailure) {
  const String path = folder_.Put("file", "x") + "/a.xml";
  EXPECT_EQ(CreateFolder(path), "");
  EXPECT_THAT(Boxes(), ElementsAre(AllOf(StartsWith("Error in ZELNOR.dll::modPublicEnums: Function "
                                                    "CreateFolder: Error "),
                                         EndsWith("\r\n\r\n" + path))));
}

TEST_F(modPublicEnums, GetSingularElementMakesTheElementOnce) {
  const XmlNode parent = Root("<a><b/></a>");
  const XmlNode made = GetSingularElement("c", parent);
  EXPECT_EQ(GetSingularElement("c", parent), made);
  EXPECT_EQ(parent.Xml(), "<a><b></b><c></c></a>");
}

TEST_F(modPublicEnums, GetSingularElementFindsTheFirstByItsExactBaseName) {
  const XmlNode parent = Root("<a xmlns:p=\"urn:p\"><B/><p:b>1</p:b><b>2</b></a>");
  EXPECT_EQ(GetSingularElement("b", parent).Text(), "1");
  EXPECT_EQ(ChildNames(parent), (std::vector<String>{"B", "b", "b"}));
}

TEST_F(modPublicEnums, GetSingularElementLooksAtChildrenOnly) {
  const XmlNode parent = Root("<a><b><c/></b></a>");
  GetSingularElement("c", parent);
  EXPECT_EQ(parent.Xml(), "<a><b><c></c></b><c></c></a>");
}

TEST_F(modPublicEnums, GetSingularElementTakesTheNamespaceOfItsParent) {
  EXPECT_EQ(GetSingularElement("b", Root("<a xmlns=\"urn:a\"/>")).NamespaceURI(), "urn:a");
  EXPECT_EQ(GetSingularElement("b", Root("<p:a xmlns:p=\"urn:p\"/>")).NamespaceURI(), "urn:p");
  EXPECT_EQ(GetSingularElement("b", Root("<p:a xmlns:p=\"urn:p\" xmlns=\"urn:a\"/>")).NamespaceURI(),
            "urn:a");
  EXPECT_EQ(GetSingularElement("b", Root("<a/>")).NamespaceURI(), "");

  const XmlNode child_without_declaration = Root("<a xmlns=\"urn:a\"><c/></a>").FirstChild();
  EXPECT_EQ(GetSingularElement("b", child_without_declaration).NamespaceURI(), "urn:a");
  const XmlNode child_without_namespace = Root("<a xmlns=\"urn:a\"><c xmlns=\"\"/></a>").FirstChild();
  EXPECT_EQ(GetSingularElement("b", child_without_namespace).NamespaceURI(), "");
}

TEST_F(modPublicEnums, GetSingularElementPrefersTheNamespaceThatItIsGiven) {
  EXPECT_EQ(GetSingularElement("b", Root("<a xmlns=\"urn:a\"/>"), "urn:b").NamespaceURI(), "urn:b");
  const XmlNode parent = Root("<a><b/></a>");
  EXPECT_EQ(GetSingularElement("b", parent, "urn:b").NamespaceURI(), "");  // found by its base name alone
}

TEST_F(modPublicEnums, GetSingularElementGivesNothingForNoParent) {
  EXPECT_FALSE(GetSingularElement("b", nullptr));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, GetSingularElementMakesARootUnderADocument) {
  const XmlDocument document;
  const XmlNode made = GetSingularElement("a", document.Node());
  EXPECT_EQ(document.DocumentElement(), made);
  EXPECT_EQ(document.Xml(), "<a></a>");
}

TEST_F(modPublicEnums, GetSingularElementReportsABadName) {
  EXPECT_FALSE(GetSingularElement("two words", Root("<a/>")));
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function GetSingularElement", 5))));
}

TEST_F(modPublicEnums, GetSingularElementFromDocumentFindsTheFirstOfTheWholeDocument) {
  const XmlDocument document;
  ASSERT_TRUE(document.LoadXML("<a><b><c>1</c></b><c>2</c></a>"));
  EXPECT_EQ(GetSingularElementFromDocument("c", document).Text(), "1");
  EXPECT_EQ(GetSingularElementFromDocument("a", document), document.DocumentElement());
}

TEST_F(modPublicEnums, GetSingularElementFromDocumentMakesTheRootOfAnEmptyDocument) {
  const XmlDocument plain;
  EXPECT_EQ(GetSingularElementFromDocument("a", plain).Xml(), "<a></a>");
  EXPECT_EQ(plain.Xml(), "<a></a>");
  const XmlDocument in_namespace;
  EXPECT_EQ(GetSingularElementFromDocument("a", in_namespace, "urn:a").NamespaceURI(), "urn:a");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, GetSingularElementFromDocumentReportsASecondRoot) {
  const XmlDocument document;
  ASSERT_TRUE(document.LoadXML("<a/>"));
  EXPECT_FALSE(GetSingularElementFromDocument("b", document));
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Function GetSingularElementFromDocument", 5))));
  EXPECT_EQ(document.Xml(), "<a></a>");
}

TEST_F(modPublicEnums, GetXMLBranchNamespaceIsThatOfTheNearestWithOne) {
  EXPECT_EQ(GetXMLBranchNamespace(Root("<a xmlns=\"urn:a\"/>")), "urn:a");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<p:a xmlns:p=\"urn:p\"/>")), "urn:p");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<p:a xmlns:p=\"urn:p\" xmlns=\"urn:a\"/>")), "urn:a");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<a><b/></a>").FirstChild()), "");

  const XmlNode parent = Root("<a/>");
  parent.Attribute("xmlns", "urn:a");
  EXPECT_EQ(GetXMLBranchNamespace(parent.AppendElement("b", "").AppendElement("c", "")), "urn:a");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<a xmlns=\"urn:a\"><b xmlns=\"\"/></a>").FirstChild()), "");
}

TEST_F(modPublicEnums, GetXMLBranchNamespaceIsEmptyForWhatIsNoElement) {
  EXPECT_EQ(GetXMLBranchNamespace(nullptr), "");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<a xmlns=\"urn:a\">text</a>").FirstChild()), "");
  EXPECT_EQ(GetXMLBranchNamespace(Root("<a xmlns=\"urn:a\"/>").ParentNode()), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, RemoveChildNodesRemovesAllOfABaseName) {
  const XmlNode node = Root("<a xmlns:p=\"urn:p\"><b/><b/>text<c><b/></c><p:b/><B/><b/></a>");
  RemoveChildNodes(node, "b");
  EXPECT_EQ(node.Xml(), "<a xmlns:p=\"urn:p\">text<c><b></b></c><B></B></a>");
  RemoveChildNodes(node, "b");
  EXPECT_THAT(Boxes(), IsEmpty());
  RemoveChildNodes(nullptr, "b");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Sub RemoveChildNodes", 91))));
}

TEST_F(modPublicEnums, RemoveAllChildNodesLeavesTextCommentsInstructionsAndAttributes) {
  const XmlNode node =
      Root("<a xmlns=\"urn:a\" x=\"1\">one<b><c/></b>two<!--three--><d/><?four five?><e/></a>");
  RemoveAllChildNodes(node);
  EXPECT_EQ(node.Xml(), "<a xmlns=\"urn:a\" x=\"1\">onetwo<!--three--><?four five?></a>");
  EXPECT_THAT(Boxes(), IsEmpty());
  RemoveAllChildNodes(nullptr);
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith(BoxOf("Sub RemoveAllChildNodes", 91))));
}

TEST_F(modPublicEnums, IsInRangeIncludesBothBounds) {
  EXPECT_TRUE(IsInRange(1, 1, 2));
  EXPECT_TRUE(IsInRange(2, 1, 2));
  EXPECT_TRUE(IsInRange(1.5, 1, 2));
  EXPECT_FALSE(IsInRange(0.999, 1, 2));
  EXPECT_FALSE(IsInRange(2.001, 1, 2));
  EXPECT_FALSE(IsInRange(1.5, 2, 1));
  EXPECT_FALSE(IsInRange(std::numeric_limits<double>::quiet_NaN(), 1, 2));
}

TEST_F(modPublicEnums, DateFromXMLReadsADay) {
  EXPECT_EQ(DateFromXML("2017-04-05"), Date::FromParts(2017, 4, 5));
  EXPECT_EQ(DateFromXML("1899-12-29"), Date::FromParts(1899, 12, 29));
  EXPECT_EQ(DateFromXML("2017/04/05"), Date::FromParts(2017, 4, 5));  // only the places count
  EXPECT_EQ(DateFromXML("2017-02-30"), Date::FromParts(2017, 3, 2));
}

TEST_F(modPublicEnums, DateFromXMLReadsAMomentWithoutItsMilliseconds) {
  EXPECT_EQ(Moment(DateFromXML("2017-04-05T10:11:12")), "2017-04-05 10:11:12");
  EXPECT_EQ(Moment(DateFromXML("2017-04-05T10:11:12.987")), "2017-04-05 10:11:12");
  EXPECT_EQ(DateFromXML("2017-04-05T10:11:12.987"), DateFromXML("2017-04-05T10:11:12"));
  EXPECT_EQ(DateFromXML("2017-04-05T00:00:00"), Date::FromParts(2017, 4, 5));
  EXPECT_EQ(Moment(DateFromXML("2017-04-05T23:59:59")), "2017-04-05 23:59:59");
  EXPECT_EQ(Moment(DateFromXML("1850-01-01T12:00:00")), "1850-01-01 12:00:00");
}

TEST_F(modPublicEnums, DateFromXMLCarriesATimeBeyondTheDayOn) {
  EXPECT_EQ(DateFromXML("2017-12-31T24:00:00"), Date::FromParts(2018, 1, 1));
  EXPECT_EQ(Moment(DateFromXML("2017-12-31T25:30:00")), "2018-01-01 01:30:00");
}

TEST_F(modPublicEnums, DateFromXMLGivesNoDateForOtherLengths) {
  for (const String text : {"", "20170405", "2017-04-5", "2017-04-05 ", "2017-04-05Z", "2017-04-05T10:11",
                            "2017-04-05T10:11:12Z", "2017-04-05T10:11:12.98", "2017-04-05T10:11:12+01:00"})
    EXPECT_TRUE(DateFromXML(text).IsZero()) << text;
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(modPublicEnums, DateFromXMLReportsAPartThatIsNoNumber) {
  for (const String text : {"abcd-04-05", "2017-xx-05", "2017-04-yy", "2017-04-05Tzz:11:12",
                            "2017-04-05T10:zz:12", "2017-04-05T10:11:zz.123"}) {
    ClearBoxes();
    EXPECT_TRUE(DateFromXML(text).IsZero()) << text;
    EXPECT_THAT(Boxes(), ElementsAre(BoxOf("Sub DateFromXML", 13) + "Type mismatch")) << text;
  }
}

TEST_F(modPublicEnums, DateFromXMLReportsAMomentWithoutItsT) {
  EXPECT_TRUE(DateFromXML("2017-04-05 10:11:12").IsZero());
  EXPECT_THAT(Boxes(), ElementsAre(BoxOf("Sub DateFromXML", 9) + "Subscript out of range"));
}
