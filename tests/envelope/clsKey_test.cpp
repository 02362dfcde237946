#include "zelnor/envelope/clsKey.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

TEST(clsKey, CreateTakesTheValueBeforeTheType) {
  clsKey key;
  key.Validated(true);
  key.Create("527", "TaxOfficeNumber");
  EXPECT_EQ(key.KeyValue(), "527");
  EXPECT_EQ(key.KeyType(), "TaxOfficeNumber");
  EXPECT_FALSE(key.Validated());
}

TEST(clsKey, AppendsANewElementAtEachWrite) {
  clsKey key;
  key.Create("527", "TaxOfficeNumber");
  EXPECT_EQ(ParentAfterWriting(key, "<Keys><Key Type=\"A\">1</Key></Keys>"),
            "<Keys><Key Type=\"A\">1</Key><Key Type=\"TaxOfficeNumber\">527</Key></Keys>");
}

TEST(clsKey, ReadsTextAndTypeAndClearsBothFirst) {
  clsKey key;
  EXPECT_TRUE(key.CreateFromXML(Root("<Key Type=\"TaxOfficeNumber\"> 527 </Key>")));
  EXPECT_EQ(key.KeyValue(), "527");
  EXPECT_EQ(key.KeyType(), "TaxOfficeNumber");
  EXPECT_TRUE(key.CreateFromXML(Root("<Key>528</Key>")));
  EXPECT_EQ(key.KeyValue(), "528");
  EXPECT_EQ(key.KeyType(), "");
  EXPECT_FALSE(key.CreateFromXML(Root("<key>529</key>")));
  EXPECT_EQ(key.KeyValue(), "");
}

TEST(clsKey, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  ExpectTextChangeClearsValidated(&clsKey::KeyValue, &clsKey::KeyValue);
  ExpectTextChangeClearsValidated(&clsKey::KeyType, &clsKey::KeyType);
  ExpectTextComesBack(&clsKey::KeyValue, &clsKey::KeyValue);
}

TEST(clsKey, ParsesTextWithoutDeclarationOnly) {
  clsKey key;
  EXPECT_TRUE(key.ParseFromXML("<Key>1</Key>"));
  EXPECT_FALSE(key.ParseFromXML("<?xml version=\"1.0\"?><Key>2</Key>"));
  EXPECT_EQ(key.KeyValue(), "1");
  EXPECT_EQ(key.RootElementName(), "Key");
}
