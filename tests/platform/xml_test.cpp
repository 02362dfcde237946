#include "zelnor/platform/xml.h"

#include "zelnor/platform/failure.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using testing::HasSubstr;

XmlDocument Parsed(std::string_view text) {
  XmlDocument doc;
  EXPECT_TRUE(doc.LoadXML(text)) << doc.ParseError().reason;
  return doc;
}

String RoundTrip(std::string_view text) { return Parsed(text).Xml(); }

Long ErrorNumber(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST(Xml, DropsTextOfWhiteSpaceAloneOnLoad) {
  EXPECT_EQ(RoundTrip("<a>\n  <b> x </b>\n  <c>  </c> \t</a>"), "<a><b> x </b><c></c></a>");
}

TEST(Xml, KeepsWhiteSpaceWhenPreserving) {
  XmlDocument doc;
  doc.PreserveWhiteSpace(true);
  ASSERT_TRUE(doc.LoadXML("<a>\n <b/> </a>"));
  EXPECT_EQ(doc.Xml(), "<a>\n <b></b> </a>");
  EXPECT_EQ(doc.DocumentElement().Text(), "\n  ");
}

TEST(Xml, KeepsWhiteSpaceUnderXmlSpace) {
  EXPECT_EQ(RoundTrip("<a xml:space=\"preserve\"> <b/> </a>"), "<a xml:space=\"preserve\"> <b></b> </a>");
  EXPECT_EQ(RoundTrip("<a> <b xml:space=\"preserve\"> </b> </a>"), "<a><b xml:space=\"preserve\"> </b></a>");
  EXPECT_EQ(RoundTrip("<a xml:space=\"preserve\"> <b xml:space=\"default\"> </b> </a>"),
            "<a xml:space=\"preserve\"> <b xml:space=\"default\"></b> </a>");
  EXPECT_EQ(RoundTrip("<a> <![CDATA[x]]> <![CDATA[ ]]></a>"), "<a><![CDATA[x]]><![CDATA[ ]]></a>");
}

TEST(Xml, WritesTheDeclarationAsItStood) {
  EXPECT_EQ(RoundTrip("<?xml version='1.0' encoding=\"UTF-8\"?>\n<a/>"),
            "<?xml version='1.0' encoding=\"UTF-8\"?><a></a>");
}

TEST(Xml, ShowsTheDeclarationAsFirstChild) {
  const XmlDocument doc = Parsed("<?xml version=\"1.0\"?><!-- note --><a/>");
  const XmlNode first = doc.Node().FirstChild();
  EXPECT_EQ(first.NodeName(), "xml");
  EXPECT_EQ(first.NodeType(), XmlNodeType::ProcessingInstruction);
  EXPECT_EQ(first.Attribute("version"), "1.0");
  EXPECT_EQ(first.NextSibling().NodeName(), "#comment");
  EXPECT_EQ(doc.DocumentElement().NodeName(), "a");
}

TEST(Xml, TrimsTextButKeepsItsInside) {
  const XmlDocument doc = Parsed("<a>\n  one\n two  </a>");
  EXPECT_EQ(doc.DocumentElement().Text(), "one\n two");
}

TEST(Xml, GathersTextOfAllDescendants) {
  EXPECT_EQ(Parsed("<a>1<b>2<!--no--><c>3</c></b><![CDATA[4]]></a>").DocumentElement().Text(), "1234");
}

TEST(Xml, EscapesWhatMustBeEscaped) {
  XmlDocument doc;
  const XmlNode a = doc.AppendChild(doc.CreateElement("a"));
  a.Attribute("q", "<\"&'>\n\t");
  a.Text("<&>\"' \xC2\xA3");
  EXPECT_EQ(doc.Xml(), "<a q=\"&lt;&quot;&amp;'>&#xA;&#x9;\">&lt;&amp;&gt;\"' \xC2\xA3</a>");
  EXPECT_EQ(RoundTrip(doc.Xml()), doc.Xml());
}

TEST(Xml, TurnsLineEndsIntoLineFeedsAndForbiddenCharactersIntoReplacements) {
  XmlDocument doc;
  const XmlNode a = doc.AppendChild(doc.CreateElement("a"));
  a.Text(
      "1\r\n2\r3\x01"
      "4\xFF"
      "5\xED\xA0\x80");
  EXPECT_EQ(a.Text(),
            "1\n2\n3\xEF\xBF\xBD"
            "4\xEF\xBF\xBD"
            "5\xEF\xBF\xBD");
}

TEST(Xml, KeepsCDataSections) { EXPECT_EQ(RoundTrip("<a><![CDATA[<x>]]></a>"), "<a><![CDATA[<x>]]></a>"); }

TEST(Xml, DeclaresANamespaceWhereItComesIntoScopeAndNotTwice) {
  XmlDocument doc;
  const XmlNode root = doc.AppendChild(doc.CreateNode(XmlNodeType::Element, "r", "urn:1"));
  root.AppendElement("same", "urn:1").AppendElement("other", "urn:2").AppendElement("inner", "urn:2");
  root.AppendElement("none", "");
  EXPECT_EQ(doc.Xml(),
            "<r xmlns=\"urn:1\"><same><other xmlns=\"urn:2\"><inner></inner></other></same><none "
            "xmlns=\"\"></none></r>");
  EXPECT_EQ(RoundTrip("<a xmlns=\"u\"><b xmlns=\"u\"/></a>"), "<a xmlns=\"u\"><b></b></a>");
}

TEST(Xml, ANodeOnItsOwnCarriesTheDeclarationsItNeeds) {
  const XmlDocument doc =
      Parsed("<p:a xmlns:p=\"urn:p\" xmlns=\"urn:d\"><p:b><c x:k=\"1\" xmlns:x=\"urn:x\"/></p:b></p:a>");
  EXPECT_EQ(doc.DocumentElement().FirstChild().Xml(),
            "<p:b xmlns:p=\"urn:p\"><c xmlns:x=\"urn:x\" xmlns=\"urn:d\" x:k=\"1\"></c></p:b>");
}

TEST(Xml, AWrittenCopyIsTheNodesTextAsItStandsThen) {
  XmlDocument doc;
  const XmlNode root = doc.AppendChild(doc.CreateElement("r"));
  const XmlDocument source = Parsed("<a xmlns=\"urn:1\"><b k=\"&quot;\">&lt;&amp;</b><![CDATA[<x>]]></a>");
  root.AppendWritten(source.DocumentElement());
  source.DocumentElement().RemoveChild(source.DocumentElement().FirstChild());
  root.AppendElement("last");
  EXPECT_EQ(doc.Xml(),
            "<r><a xmlns=\"urn:1\"><b k=\"&quot;\">&lt;&amp;</b><![CDATA[<x>]]></a><last></last></r>");
  EXPECT_TRUE(root.FirstChild().IsWritten());
  EXPECT_FALSE(root.LastChild().IsWritten());
  EXPECT_EQ(root.CloneNode(true).Xml(), root.Xml());
  root.RemoveChild(root.FirstChild());
  EXPECT_EQ(doc.Xml(), "<r><last></last></r>");
}

TEST(Xml, AWrittenCopyOfALargeNodeIsWhole) {
  XmlDocument doc;
  const XmlNode source = doc.AppendChild(doc.CreateElement("r"));
  for (int i = 0; i < 50000; ++i) source.AppendElement("e").Text(std::to_string(i));
  const XmlDocument copy;
  const XmlNode holder = copy.AppendChild(copy.CreateElement("h"));
  holder.AppendWritten(source);
  EXPECT_EQ(copy.Xml(), "<h>" + source.Xml() + "</h>");
}

TEST(Xml, SettingXmlnsChangesTheDeclarationAndWhatChildrenInheritButNotTheElementsNamespace) {
  XmlDocument doc;
  const XmlNode root = doc.AppendChild(doc.CreateElement("r"));
  root.Attribute("xmlns", "urn:1");
  EXPECT_EQ(root.NamespaceURI(), "");
  EXPECT_EQ(root.Attribute("xmlns"), "urn:1");
  EXPECT_EQ(root.AttributeNode("xmlns").Text(), "urn:1");
  EXPECT_EQ(root.ChildNamespace(), "urn:1");
  EXPECT_EQ(root.AppendElement("c").NamespaceURI(), "urn:1");
  EXPECT_EQ(doc.Xml(), "<r xmlns=\"urn:1\"><c></c></r>");
  root.Attribute("xmlns", "urn:2");
  EXPECT_EQ(doc.Xml(), "<r xmlns=\"urn:2\"><c xmlns=\"urn:1\"></c></r>");
  root.RemoveAttribute("xmlns");
  EXPECT_EQ(doc.Xml(), "<r><c xmlns=\"urn:1\"></c></r>");
}

TEST(Xml, NamesNodes) {
  const XmlDocument doc =
      Parsed("<p:a xmlns:p=\"urn:p\" p:k=\"v\" l=\"w\">t<!--c--><![CDATA[d]]><?pi x?></p:a>");
  const XmlNode a = doc.DocumentElement();
  EXPECT_EQ(a.NodeName(), "p:a");
  EXPECT_EQ(a.BaseName(), "a");
  EXPECT_EQ(a.Prefix(), "p");
  EXPECT_EQ(a.NamespaceURI(), "urn:p");
  std::vector<String> names;
  for (const XmlNode& child : a.ChildNodes())
    names.push_back(child.NodeName() + "/" + String(child.BaseName()));
  EXPECT_THAT(names, testing::ElementsAre("#text/", "#comment/", "#cdata-section/", "pi/pi"));
  names.clear();
  for (const XmlNode& attribute : a.Attributes())
    names.push_back(attribute.NodeName() + "=" + attribute.Text());
  EXPECT_THAT(names, testing::ElementsAre("xmlns:p=urn:p", "p:k=v", "l=w"));
  EXPECT_EQ(doc.Node().NodeName(), "#document");
  EXPECT_EQ(doc.Node().BaseName(), "");
}

TEST(Xml, MovesNodesBetweenDocuments) {
  XmlDocument from = Parsed("<a xmlns=\"urn:a\"><b k=\"1\"><c>long enough to be kept apart</c></b></a>");
  XmlDocument to = Parsed("<z/>");
  const XmlNode b = from.DocumentElement().FirstChild();
  to.DocumentElement().AppendChild(b);
  EXPECT_EQ(from.Xml(), "<a xmlns=\"urn:a\"></a>");
  from = nullptr;
  EXPECT_EQ(b.OwnerDocument(), to);
  EXPECT_EQ(to.Xml(), "<z><b xmlns=\"urn:a\" k=\"1\"><c>long enough to be kept apart</c></b></z>");
}

TEST(Xml, NodesKeepTheirDocumentAlive) {
  XmlNode inner;
  {
    const XmlDocument doc = Parsed("<a xmlns=\"u\"><b><c>text</c></b></a>");
    inner = doc.SelectSingleNode("//*[local-name()='c']");
  }
  EXPECT_EQ(inner.Text(), "text");
  EXPECT_EQ(inner.ParentNode().ParentNode().NodeName(), "a");
  EXPECT_EQ(inner.OwnerDocument().Xml(), "<a xmlns=\"u\"><b><c>text</c></b></a>");
}

TEST(Xml, RemovedNodesLiveAsLongAsTheirHandles) {
  const XmlDocument doc = Parsed("<a xmlns=\"u\"><b><c>text</c></b></a>");
  XmlNode b = doc.DocumentElement().FirstChild();
  XmlNode c = b.FirstChild();
  doc.DocumentElement().RemoveChild(b);
  EXPECT_EQ(doc.Xml(), "<a xmlns=\"u\"></a>");
  EXPECT_FALSE(b.ParentNode());
  b.RemoveChild(c);
  b = nullptr;
  EXPECT_EQ(c.Xml(), "<c xmlns=\"u\">text</c>");
}

TEST(Xml, LoadingReplacesTheContentForAllHandles) {
  const XmlDocument doc = Parsed("<a><b/></a>");
  const XmlDocument same = doc;
  const XmlNode old = doc.DocumentElement();
  ASSERT_TRUE(doc.LoadXML("<n/>"));
  EXPECT_EQ(same.Xml(), "<n></n>");
  EXPECT_EQ(old.Xml(), "<a><b></b></a>");
  EXPECT_FALSE(doc.LoadXML("<broken"));
  EXPECT_FALSE(same.DocumentElement());
}

TEST(Xml, InsertsReplacesAndRemoves) {
  const XmlDocument doc = Parsed("<a><b/><d/></a>");
  const XmlNode a = doc.DocumentElement();
  a.InsertBefore(doc.CreateElement("c"), a.LastChild());
  EXPECT_EQ(doc.Xml(), "<a><b></b><c></c><d></d></a>");
  a.ReplaceChild(doc.CreateTextNode("t"), a.FirstChild());
  EXPECT_EQ(doc.Xml(), "<a>t<c></c><d></d></a>");
  const XmlNode fragment = doc.CreateDocumentFragment();
  fragment.AppendChild(doc.CreateElement("x"));
  fragment.AppendChild(doc.CreateElement("y"));
  a.InsertBefore(fragment, a.FirstChild());
  EXPECT_EQ(doc.Xml(), "<a><x></x><y></y>t<c></c><d></d></a>");
  EXPECT_FALSE(fragment.HasChildNodes());
}

TEST(Xml, RefusesWhatADocumentCannotHold) {
  const XmlDocument doc = Parsed("<a><b/></a>");
  const XmlNode a = doc.DocumentElement();
  const XmlNode b = a.FirstChild();
  EXPECT_EQ(ErrorNumber([&] { doc.AppendChild(doc.CreateElement("second")); }), 5);
  EXPECT_EQ(ErrorNumber([&] { b.AppendChild(a); }), 5);
  EXPECT_EQ(ErrorNumber([&] { b.RemoveChild(a); }), 5);
  EXPECT_EQ(ErrorNumber([&] { doc.CreateElement("1bad"); }), 5);
  EXPECT_EQ(ErrorNumber([&] { a.AppendElement("bad name"); }), 5);
  EXPECT_EQ(ErrorNumber([&] { a.AppendWritten({}); }), 91);
  EXPECT_EQ(ErrorNumber([&] { doc.Node().AppendWritten(b); }), 5);
  EXPECT_EQ(ErrorNumber([&] { a.SelectNodes("//["); }), 5);
  EXPECT_EQ(ErrorNumber([&] { XmlNode().Text(); }), 91);
  EXPECT_EQ(ErrorNumber([&] { XmlDocument(nullptr).Xml(); }), 91);
  EXPECT_EQ(doc.Xml(), "<a><b></b></a>");
}

TEST(Xml, ClonesDeeplyAndAcrossDocuments) {
  const XmlDocument doc = Parsed("<a xmlns=\"u\" k=\"1\"><b>t<c/>u</b></a>");
  const XmlNode shallow = doc.DocumentElement().CloneNode(false);
  EXPECT_EQ(shallow.Xml(), "<a xmlns=\"u\" k=\"1\"></a>");
  const XmlDocument other;
  other.AppendChild(other.ImportNode(doc.DocumentElement(), true));
  EXPECT_EQ(other.Xml(), doc.Xml());
  EXPECT_EQ(doc.Node().CloneNode(true).Xml(), doc.Xml());
}

TEST(Xml, SelectsByXPath) {
  const XmlDocument doc = Parsed("<a xmlns=\"u\"><b k=\"1\"/><b k=\"2\"/></a>");
  EXPECT_EQ(doc.SelectNodes("//b").size(), 0U);
  doc.SelectionNamespaces("xmlns:n=\"u\"");
  ASSERT_EQ(doc.SelectNodes("//n:b").size(), 2U);
  EXPECT_EQ(doc.SelectSingleNode("/n:a/n:b[@k='2']/@k").Text(), "2");
  EXPECT_FALSE(doc.SelectSingleNode("//n:zzz"));
  EXPECT_EQ(doc.GetElementsByTagName("b").size(), 2U);
  const XmlDocument plain = Parsed("<Config><Settings><Key Version='1'>x</Key></Settings></Config>");
  EXPECT_EQ(plain.SelectSingleNode("Config/Settings/Key[@Version='1']").Text(), "x");
}

TEST(Xml, PathsNameTheElement) {
  const XmlDocument doc = Parsed("<a><b/><c/><b><d/></b></a>");
  EXPECT_EQ(doc.SelectSingleNode("/a/b[2]/d").Path(), "/a/b[2]/d");
  EXPECT_EQ(doc.SelectSingleNode("/a/b[1]").Path(), "/a/b[1]");
  EXPECT_EQ(doc.SelectSingleNode("/a/c").Path(), "/a/c");
}

TEST(Xml, ProcessingInstructionsShowPseudoAttributes) {
  const XmlDocument doc = Parsed("<a/>");
  const XmlNode sheet = doc.CreateProcessingInstruction("xml-stylesheet", "type=\"text/xsl\" href=\"a.xsl\"");
  doc.Node().InsertBefore(sheet, doc.DocumentElement());
  EXPECT_EQ(sheet.Attribute("href"), "a.xsl");
  EXPECT_FALSE(sheet.Attribute("title"));
  sheet.Attribute("href", "b & c.xsl");
  EXPECT_EQ(sheet.Attribute("href"), "b & c.xsl");
  EXPECT_EQ(doc.Xml(), "<?xml-stylesheet type=\"text/xsl\" href=\"b &amp; c.xsl\"?><a></a>");
  sheet.RemoveAttribute("href");
  sheet.Attribute("href", "d");
  EXPECT_EQ(sheet.Xml(), "<?xml-stylesheet type=\"text/xsl\" href=\"d\"?>");
}

struct Refused {
  const char* name;
  String text;
  Long line;
};

class XmlRefuses : public testing::TestWithParam<Refused> {};

TEST_P(XmlRefuses, WithCodeReasonAndPlace) {
  XmlDocument doc;
  EXPECT_FALSE(doc.LoadXML(GetParam().text));
  const XmlParseError& error = doc.ParseError();
  EXPECT_NE(error.errorCode, 0);
  EXPECT_THAT(error.reason, testing::EndsWith("\n"));
  EXPECT_GT(error.reason.size(), 5U);
  EXPECT_EQ(error.line, GetParam().line);
  EXPECT_LE(error.srcText.size(), 1024U);
  EXPECT_FALSE(doc.DocumentElement());
  EXPECT_TRUE(doc.LoadXML("<a/>"));
  EXPECT_EQ(doc.ParseError().errorCode, 0);
  EXPECT_EQ(doc.ParseError().reason, "");
}

INSTANTIATE_TEST_SUITE_P(
    Xml, XmlRefuses,
    testing::Values(Refused{"empty", "", 1}, Refused{"notXml", "payroll", 1},
                    Refused{"cutShort", "<a>\n<b>x</b>", 2}, Refused{"mismatch", "<a>\n\n<b></a>", 3},
                    Refused{"unboundPrefix", "<p:a/>", 1}, Refused{"twoRoots", "<a/><b/>", 1},
                    Refused{"badUtf8", "<a>\xC3\x28</a>", 1},
                    Refused{"controlCharacter", String("<a>\x01</a>"), 1},
                    Refused{"undefinedEntity", "<a>&nope;</a>", 1},
                    Refused{"externalEntity",
                            "<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>\n<a>&x;</a>", 1},
                    Refused{"tooDeep",
                            [] {
                              String text;
                              for (int i = 0; i < 200000; ++i) text += "<a>";
                              return text;
                            }(),
                            1}),
    [](const auto& info) { return String(info.param.name); });

TEST(Xml, RefusesEntityExpansionWithoutBound) {
  String text = "<!DOCTYPE a [<!ENTITY e0 \"0123456789\">";
  for (int i = 1; i < 12; ++i) {
    text += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int k = 0; k < 10; ++k) text += "&e" + std::to_string(i - 1) + ";";
    text += "\">";
  }
  text += "]><a>&e11;</a>";
  XmlDocument doc;
  EXPECT_FALSE(doc.LoadXML(text));
  EXPECT_THAT(doc.ParseError().reason, HasSubstr("ntity"));
}

TEST(Xml, ExpandsAPlainInternalEntity) {
  const XmlDocument doc =
      Parsed("<!DOCTYPE a [<!ENTITY e \"<b xmlns='u'>x</b>\">]><a xmlns=\"v\">&e;&e;</a>");
  EXPECT_EQ(doc.DocumentElement().Xml(), "<a xmlns=\"v\"><b xmlns=\"u\">x</b><b xmlns=\"u\">x</b></a>");
}

TEST(Xml, IgnoresAnExternalSubset) {
  const XmlDocument doc = Parsed("<!DOCTYPE a SYSTEM \"http://127.0.0.1:1/none.dtd\"><a>x</a>");
  EXPECT_EQ(doc.DocumentElement().Text(), "x");
}

TEST(Xml, ReadsTwoThousandLevels) {
  String text;
  for (int i = 0; i < kMaxXmlDepth; ++i) text += "<a>";
  for (int i = 0; i < kMaxXmlDepth; ++i) text += "</a>";
  const XmlDocument doc = Parsed(text);
  EXPECT_EQ(doc.Xml(), text);
  EXPECT_EQ(doc.Node().CloneNode(true).Xml(), text);
}

TEST(Xml, TextIgnoresADeclaredEncodingAndBytesHonourIt) {
  const XmlDocument doc;
  ASSERT_TRUE(doc.LoadXML("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xC2\xA3</a>"));
  EXPECT_EQ(doc.DocumentElement().Text(), "\xC2\xA3");
  ASSERT_TRUE(doc.LoadBytes("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xA3</a>"));
  EXPECT_EQ(doc.DocumentElement().Text(), "\xC2\xA3");
  ASSERT_TRUE(doc.LoadBytes("\xEF\xBB\xBF<a>1</a>"));
  EXPECT_EQ(doc.Xml(), "<a>1</a>");
}

TEST(Xml, SavesExactlyTheTextInTheDeclaredEncoding) {
  const auto path = std::filesystem::temp_directory_path() / "zelnor xml test.xml";
  const auto bytes = [&] {
    std::ifstream in(path, std::ios::binary);
    return String(std::istreambuf_iterator<char>(in), {});
  };
  XmlDocument doc = Parsed("<a>\xC2\xA3</a>");
  doc.Save(path.string());
  EXPECT_EQ(bytes(), "<a>\xC2\xA3</a>");
  XmlDocument read;
  ASSERT_TRUE(read.Load(path.string()));
  EXPECT_EQ(read.Xml(), doc.Xml());
  doc = Parsed("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><a>\xC2\xA3\xE2\x82\xAC</a>");
  doc.Save(path.string());
  EXPECT_EQ(bytes(), "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><a>\xA3&#8364;</a>");
  ASSERT_TRUE(read.Load(path.string()));
  EXPECT_EQ(read.DocumentElement().Text(), "\xC2\xA3\xE2\x82\xAC");
  std::filesystem::remove(path);
  EXPECT_FALSE(read.Load(path.string()));
  EXPECT_THAT(read.ParseError().reason, HasSubstr("could not be opened"));
  EXPECT_EQ(read.ParseError().url, path.string());
  EXPECT_FALSE(read.Load("/tmp"));
  EXPECT_THAT(read.ParseError().reason, HasSubstr("folder"));
}

TEST(Xml, WritesWithoutASubtreeLeftOut) {
  const XmlDocument doc = Parsed("<a><b/><c>1</c><d/></a>");
  String text;
  doc.Node().WriteXml([&](std::string_view piece) { text.append(piece); }, doc.SelectSingleNode("/a/c"));
  EXPECT_EQ(text, "<a><b></b><d></d></a>");
}

TEST(Xml, WritesANodeAsALoadWouldHaveIt) {
  XmlDocument doc;
  doc.PreserveWhiteSpace(true);
  ASSERT_TRUE(doc.LoadXML("<a>\n <b> </b><c xml:space=\"preserve\"> </c> x </a>"));
  String text;
  doc.Node().WriteXml([&](std::string_view piece) { text.append(piece); }, nullptr, true);
  EXPECT_EQ(text, "<a><b></b><c xml:space=\"preserve\"> </c> x </a>");
}

TEST(Xml, RewritesTextWithAndWithoutDeclaration) {
  EXPECT_EQ(RewriteXml("<?xml version=\"1.0\" encoding=\"latin1\"?><a> <b/>\r\n</a>", true),
            "<a> <b></b>\n</a>");
  EXPECT_EQ(RewriteXml("<a/>", false),
            "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\n<a></a>");
  EXPECT_EQ(ErrorNumber([] { RewriteXml("<a>", true); }), 440);
}

std::shared_ptr<XmlSchemaCollection> Schemas() {
  auto schemas = std::make_shared<XmlSchemaCollection>();
  schemas->Add("urn:out",
               Parsed("<s:schema xmlns:s=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:out\" "
                      "xmlns:i=\"urn:in\" elementFormDefault=\"qualified\">"
                      "<s:import namespace=\"urn:in\" schemaLocation=\"http://127.0.0.1:1/never.xsd\"/>"
                      "<s:element name=\"out\"><s:complexType><s:sequence>"
                      "<s:element ref=\"i:in\" maxOccurs=\"9\"/></s:sequence></s:complexType></s:element>"
                      "</s:schema>"));
  schemas->Add("urn:in",
               Parsed("<s:schema xmlns:s=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:in\">"
                      "<s:element name=\"in\" type=\"s:int\"/></s:schema>"));
  return schemas;
}

TEST(XmlSchema, ValidatesThroughImportsFromTheCollection) {
  const XmlDocument doc;
  doc.Schemas(Schemas());
  ASSERT_TRUE(doc.LoadXML("<out xmlns=\"urn:out\"><in xmlns=\"urn:in\">7</in></out>"));
  EXPECT_TRUE(doc.Validate()) << doc.ParseError().reason;
  EXPECT_EQ(doc.ParseError().errorCode, 0);
}

TEST(XmlSchema, ReportsTheFirstErrorWithItsPath) {
  const XmlDocument doc;
  doc.Schemas(Schemas());
  ASSERT_TRUE(
      doc.LoadXML("<out xmlns=\"urn:out\"><in xmlns=\"urn:in\">7</in><in xmlns=\"urn:in\">x</in>"
                  "<in xmlns=\"urn:in\">y</in></out>"));
  EXPECT_FALSE(doc.Validate());
  const XmlParseError& error = doc.ParseError();
  EXPECT_NE(error.errorCode, 0);
  EXPECT_THAT(error.reason, HasSubstr("'x'"));
  EXPECT_THAT(error.reason, testing::EndsWith("\n"));
  EXPECT_EQ(error.srcText, "/out/in[2]");
  EXPECT_EQ(error.line, 0);
  EXPECT_EQ(error.url, "");
}

TEST(XmlSchema, AnUnusableSchemaFailsTheValidation) {
  auto schemas = std::make_shared<XmlSchemaCollection>();
  schemas->Add("urn:x",
               Parsed("<s:schema xmlns:s=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:x\">"
                      "<s:element name=\"a\" type=\"s:nonsense\"/></s:schema>"));
  const XmlDocument doc;
  doc.Schemas(schemas);
  ASSERT_TRUE(doc.LoadXML("<a xmlns=\"urn:x\"/>"));
  EXPECT_FALSE(doc.Validate());
  EXPECT_THAT(doc.ParseError().reason, HasSubstr("schema"));
}

}  // namespace
}  // namespace zelnor
