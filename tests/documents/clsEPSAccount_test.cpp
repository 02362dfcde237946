#include "zelnor/documents/clsEPSAccount.h"

#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ChildNames;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;

TEST(clsEPSAccount, WritesThreeElementsAlwaysAndTheReferenceWhenThere) {
  clsEPSAccount account;
  EXPECT_EQ(Written(account),
            "<Account><AccountHoldersName></AccountHoldersName><AccountNo></AccountNo><SortCode></SortCode>"
            "</Account>");
  account.Create("A N Employer", "12345678", "123456", "R/1");
  EXPECT_EQ(Written(account),
            "<Account><AccountHoldersName>A N Employer</AccountHoldersName><AccountNo>12345678</AccountNo>"
            "<SortCode>123456</SortCode><BuildingSocRef>R/1</BuildingSocRef></Account>");
}

TEST(clsEPSAccount, AlwaysWritesANewElement) {
  const XmlNode root = Root("<Parent/>");
  clsEPSAccount account;
  account.ToXML(root);
  account.ToXML(root);
  EXPECT_THAT(ChildNames(root), ElementsAre("Account", "Account"));
}

TEST(clsEPSAccount, TakesTheNamespaceOfItsParent) {
  clsEPSAccount account;
  const XmlNode root = XmlDocument().Node().AppendElement("P", "urn:own");
  EXPECT_EQ(account.ToXML(root).NamespaceURI(), "urn:own");
  root.Attribute("xmlns", "urn:attribute");
  EXPECT_EQ(account.ToXML(root).NamespaceURI(), "urn:attribute");
  EXPECT_EQ(account.ToXML(Root("<Parent/>")).NamespaceURI(), "");
}

TEST(clsEPSAccount, ReadsItsElements) {
  clsEPSAccount account;
  ASSERT_TRUE(
      ReadInto(account,
               "<Account><SortCode>123456</SortCode><BuildingSocRef>R/1</BuildingSocRef><Other/>"
               "<AccountNo>12345678</AccountNo><AccountHoldersName>A N</AccountHoldersName></Account>"));
  EXPECT_EQ(account.AccountName(), "A N");
  EXPECT_EQ(account.AccountNo(), "12345678");
  EXPECT_EQ(account.SortCode(), "123456");
  EXPECT_EQ(account.RollNo(), "R/1");
}

TEST(clsEPSAccount, ReadingClearsWhatTheElementLacks) {
  clsEPSAccount account;
  account.Create("a", "b", "c", "d");
  ASSERT_TRUE(ReadInto(account, "<Account/>"));
  EXPECT_EQ(account.AccountName() + account.AccountNo() + account.SortCode() + account.RollNo(), "");
}

TEST(clsEPSAccount, RefusesANodeOfAnotherName) {
  clsEPSAccount account;
  EXPECT_FALSE(ReadInto(account, "<account><SortCode>1</SortCode></account>"));
  EXPECT_EQ(account.SortCode(), "");
}

TEST(clsEPSAccount, ParsesTextWithADeclarationToo) {
  clsEPSAccount account;
  EXPECT_TRUE(
      account.ParseFromXML("<?xml version=\"1.0\"?><!-- c --><Account><SortCode>1</SortCode></Account>"));
  EXPECT_EQ(account.SortCode(), "1");
  EXPECT_TRUE(account.ParseFromXML("<Account><SortCode>2</SortCode></Account>"));
  EXPECT_FALSE(account.ParseFromXML("<Account>"));
  EXPECT_FALSE(account.ParseFromXML("<Other/>"));
  EXPECT_EQ(account.SortCode(), "2");
}

TEST(clsEPSAccount, HandsItsFailuresOnWithABracketedSource) {
  WithRecordingHost host;
  clsEPSAccount account;
  const auto source_of = [](const auto& body) {
    try {
      body();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), 91);
      EXPECT_EQ(error.Description(), "Object variable or With block variable not set");
      return error.Source();
    }
    return String("(none raised)");
  };
  EXPECT_EQ(source_of([&] { account.CreateFromXML({}); }), "[ZELNOR.dll::clsEPSAccount]: CreateFromXML");
  EXPECT_EQ(source_of([&] { account.ToXML({}); }), "[ZELNOR.dll::clsEPSAccount]: ToXML");
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsEPSAccount, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  clsEPSAccount account;
  const auto check = [&](void (clsEPSAccount::*set)(String)) {
    (account.*set)("x");
    account.Validated(true);
    (account.*set)("x");
    EXPECT_TRUE(account.Validated());
    (account.*set)("y");
    EXPECT_FALSE(account.Validated());
  };
  check(&clsEPSAccount::AccountName);
  check(&clsEPSAccount::AccountNo);
  check(&clsEPSAccount::SortCode);
  check(&clsEPSAccount::RollNo);
  account.Validated(true);
  account.Create("a", "b", "c");
  EXPECT_FALSE(account.Validated());
  EXPECT_EQ(account.RollNo(), "");
  account.Validated(true);
  EXPECT_TRUE(ReadInto(account, "<Account/>"));
  EXPECT_FALSE(account.Validated());
}

TEST(clsEPSAccount, AnyTextComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsEPSAccount first;
    first.Create(text, text + "1", text + "2", text + "3");
    clsEPSAccount second;
    ASSERT_TRUE(ReadInto(second, Written(first)));
    EXPECT_EQ(second.AccountName(), text);
    EXPECT_EQ(second.AccountNo(), text + "1");
    EXPECT_EQ(second.SortCode(), text + "2");
    EXPECT_EQ(second.RollNo(), text + "3");
  }
}

}  // namespace
}  // namespace zelnor
