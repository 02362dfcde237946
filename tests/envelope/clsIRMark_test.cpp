// The IRmark and the manifest, the envelope's records in a document's header.

#include "zelnor/envelope/clsIRMark.h"

#include "zelnor/envelope/clsManifest.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

TEST(clsIRMark, WritesItsValueAndAlwaysTheGenericType) {
  clsIRMark mark;
  mark.Create("MARK=", IR_MARK_TYPE::SAOnly);
  EXPECT_EQ(Written(mark), "<IRmark Type=\"generic\">MARK=</IRmark>");
  mark.Create("MARK=", IR_MARK_TYPE::generic);
  EXPECT_EQ(Written(mark), "<IRmark Type=\"generic\">MARK=</IRmark>");
}

TEST(clsIRMark, RefillsAnElementThatIsThere) {
  clsIRMark mark;
  mark.value("NEW=");
  EXPECT_EQ(ParentAfterWriting(mark, "<P><IRmark Type=\"SAonly\">OLD=<X/></IRmark></P>"),
            "<P><IRmark Type=\"generic\">NEW=</IRmark></P>");
}

TEST(clsIRMark, ReadsTheTypeInAnyCaseAndKeepsItForAnyOtherText) {
  clsIRMark mark;
  EXPECT_TRUE(mark.CreateFromXML(Root("<IRmark Type=\"Generic\">M</IRmark>")));
  EXPECT_EQ(mark.IRMarkType(), IR_MARK_TYPE::generic);
  EXPECT_EQ(mark.value(), "M");
  EXPECT_TRUE(mark.CreateFromXML(Root("<IRmark Type=\"special\"/>")));
  EXPECT_EQ(mark.IRMarkType(), IR_MARK_TYPE::generic);
  EXPECT_EQ(mark.value(), "");
  EXPECT_TRUE(mark.CreateFromXML(Root("<IRmark Type=\"SAonly\"/>")));
  EXPECT_EQ(mark.IRMarkType(), IR_MARK_TYPE::SAOnly);
  EXPECT_TRUE(mark.CreateFromXML(Root("<IRmark/>")));
  EXPECT_EQ(mark.IRMarkType(), IR_MARK_TYPE::SAOnly);
}

TEST(clsIRMark, ReadingClearsTheValueAlsoForAForeignNode) {
  clsIRMark mark;
  mark.Create("M", IR_MARK_TYPE::generic);
  mark.Validated(true);
  EXPECT_FALSE(mark.CreateFromXML(Root("<IRMark>N</IRMark>")));
  EXPECT_EQ(mark.value(), "");
  EXPECT_FALSE(mark.Validated());
}

TEST(clsIRMark, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  ExpectTextChangeClearsValidated(&clsIRMark::value, &clsIRMark::value);
  ExpectChangeClearsValidated(&clsIRMark::IRMarkType, &clsIRMark::IRMarkType, IR_MARK_TYPE::generic,
                              IR_MARK_TYPE::SAOnly);
  ExpectTextComesBack(&clsIRMark::value, &clsIRMark::value);
}

TEST(clsIRMark, ParsesItsOwnRootOnly) {
  clsIRMark mark;
  EXPECT_TRUE(mark.ParseFromXML("<IRmark>M</IRmark>"));
  EXPECT_FALSE(mark.ParseFromXML("<?xml version=\"1.0\"?><IRmark>N</IRmark>"));
  EXPECT_EQ(mark.value(), "M");
  EXPECT_EQ(mark.RootElementName(), "IRmark");
}

TEST(clsManifest, WritesOneReferenceForEach) {
  clsManifest manifest;
  manifest.Create("urn:a", "1.0", "A");
  manifest.AddReference("urn:b", "", "B");
  EXPECT_EQ(Written(manifest),
            "<Manifest><Contains><Reference><Namespace>urn:a</Namespace><SchemaVersion>1.0</SchemaVersion>"
            "<TopElementName>A</TopElementName></Reference><Reference><Namespace>urn:b</Namespace>"
            "<SchemaVersion></SchemaVersion><TopElementName>B</TopElementName></Reference></Contains>"
            "</Manifest>");
}

TEST(clsManifest, CreateBeginsANewCollection) {
  clsManifest manifest;
  manifest.Create("urn:a", "1.0", "A");
  manifest.Validated(true);
  manifest.Create("urn:b", "2.0", "B");
  ASSERT_EQ(manifest.References()->Count(), 1);
  EXPECT_EQ(manifest.References()->Item(1)->Namespace(), "urn:b");
  EXPECT_EQ(manifest.References()->Item(1)->SchemaVersion(), "2.0");
  EXPECT_EQ(manifest.References()->Item(1)->TopElementName(), "B");
  EXPECT_FALSE(manifest.Validated());
}

TEST(clsManifest, WithoutReferencesItsElementIsRemoved) {
  clsManifest manifest;
  EXPECT_EQ(ParentAfterWriting(manifest, "<P><Manifest><Contains/></Manifest></P>"), "<P></P>");
  EXPECT_FALSE(manifest.ToXML(Root("<P/>")));
}

TEST(clsManifest, ReadsTheReferencesInContains) {
  const auto manifest = Read<clsManifest>(
      "<Manifest><Reference/><Contains><Reference><TopElementName>A</TopElementName><Namespace>urn:a"
      "</Namespace><SchemaVersion>1</SchemaVersion></Reference><X/><Reference/></Contains></Manifest>");
  ASSERT_EQ(manifest->References()->Count(), 2);
  EXPECT_EQ(manifest->References()->Item(1)->TopElementName(), "A");
  EXPECT_EQ(manifest->References()->Item(1)->Namespace(), "urn:a");
  EXPECT_EQ(manifest->References()->Item(1)->SchemaVersion(), "1");
  EXPECT_EQ(manifest->References()->Item(2)->Namespace(), "");
}

TEST(clsManifest, IsValidatedWhenItselfAndItsReferencesAre) {
  clsManifest manifest;
  manifest.Create("urn:a", "1.0", "A");
  manifest.Validated(true);
  EXPECT_FALSE(manifest.Validated());
  manifest.References()->Item(1)->Validated(true);
  EXPECT_TRUE(manifest.Validated());
}

TEST(clsManifest, ParsesItsOwnRootOnly) {
  clsManifest manifest;
  EXPECT_TRUE(manifest.ParseFromXML("<Manifest/>"));
  EXPECT_FALSE(manifest.ParseFromXML("<Contains/>"));
  EXPECT_EQ(manifest.RootElementName(), "Manifest");
}

TEST(clsManifestReference, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  using T = clsManifestReference;
  ExpectTextChangeClearsValidated(&T::Namespace, &T::Namespace);
  ExpectTextChangeClearsValidated(&T::SchemaVersion, &T::SchemaVersion);
  ExpectTextChangeClearsValidated(&T::TopElementName, &T::TopElementName);
  ExpectTextComesBack(&T::Namespace, &T::Namespace);
  ExpectTextComesBack(&T::SchemaVersion, &T::SchemaVersion);
  ExpectTextComesBack(&T::TopElementName, &T::TopElementName);
}

TEST(clsManifestReference, ReadingClearsAllThree) {
  clsManifestReference reference;
  reference.Create("urn:a", "1", "A");
  reference.Validated(true);
  EXPECT_TRUE(reference.CreateFromXML(Root("<Reference/>")));
  EXPECT_EQ(reference.Namespace() + reference.SchemaVersion() + reference.TopElementName(), "");
  EXPECT_FALSE(reference.Validated());
  EXPECT_TRUE(reference.ParseFromXML("<Reference><Namespace>n</Namespace></Reference>"));
  EXPECT_FALSE(reference.ParseFromXML("<Manifest/>"));
  EXPECT_EQ(reference.Namespace(), "n");
}
