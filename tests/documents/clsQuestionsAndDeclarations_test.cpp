#include "zelnor/documents/clsQuestionsAndDeclarations.h"

#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ChildNames;
using test::ChildText;
using test::ReadInto;
using test::Root;
using test::Written;

struct Answer {
  const char* element;
  bool (clsQuestionsAndDeclarations::*get)() const;
  void (clsQuestionsAndDeclarations::*set)(bool);
};

using Answers = clsQuestionsAndDeclarations;

// In the order in which they are written and in which Create takes them.
const Answer kAnswers[] = {
    {"FreeOfTaxPaymentsMadeToEmployee", &Answers::TaxFreePaymentsMadeToEmployee,
     &Answers::TaxFreePaymentsMadeToEmployee},
    {"ExpensesVouchersOrBenefitsFromOthers", &Answers::ExpensesVouchersOrBenefitsFromOthers,
     &Answers::ExpensesVouchersOrBenefitsFromOthers},
    {"PersonEmployedOutsideUKWorkedFor30DaysOrMore", &Answers::PersonEmployedOutsideUKWorkedFor30DaysOrMore,
     &Answers::PersonEmployedOutsideUKWorkedFor30DaysOrMore},
    {"PayToSomeoneElse", &Answers::PayToSomeoneElse, &Answers::PayToSomeoneElse},
    {"P11DFormsDue", &Answers::P11DFormsDue, &Answers::P11DFormsDue},
    {"ServiceCompany", &Answers::ServiceCompany, &Answers::ServiceCompany}};

TEST(clsQuestionsAndDeclarations, WritesAllAnswersInOrder) {
  Answers record;
  EXPECT_EQ(Written(record),
            "<QuestionsAndDeclarations><FreeOfTaxPaymentsMadeToEmployee>no</FreeOfTaxPaymentsMadeToEmployee>"
            "<ExpensesVouchersOrBenefitsFromOthers>no</ExpensesVouchersOrBenefitsFromOthers>"
            "<PersonEmployedOutsideUKWorkedFor30DaysOrMore>no</PersonEmployedOutsideUKWorkedFor30DaysOrMore>"
            "<PayToSomeoneElse>no</PayToSomeoneElse><P11DFormsDue>no</P11DFormsDue>"
            "<ServiceCompany>no</ServiceCompany></QuestionsAndDeclarations>");
}

TEST(clsQuestionsAndDeclarations, WritesAndReadsEachAnswerInItsOwnElement) {
  for (const Answer& answer : kAnswers) {
    Answers record;
    (record.*answer.set)(true);
    const XmlNode written = record.ToXML(Root("<Parent/>"));
    Answers read;
    ASSERT_TRUE(read.CreateFromXML(written));
    for (const Answer& other : kAnswers) {
      const bool same = other.get == answer.get;
      EXPECT_EQ(ChildText(written, other.element), same ? "yes" : "no")
          << answer.element << " " << other.element;
      EXPECT_EQ((read.*other.get)(), same) << answer.element << " " << other.element;
    }
  }
}

TEST(clsQuestionsAndDeclarations, CreateTakesTheAnswersInOrder) {
  for (std::size_t set = 0; set < std::size(kAnswers); ++set) {
    Answers record;
    record.Validated(true);
    record.Create(set == 0, set == 1, set == 2, set == 3, set == 4, set == 5);
    EXPECT_FALSE(record.Validated());
    for (std::size_t i = 0; i < std::size(kAnswers); ++i) EXPECT_EQ((record.*kAnswers[i].get)(), i == set);
  }
}

TEST(clsQuestionsAndDeclarations, ReadsYesInAnyCaseAndAnythingElseAsNo) {
  const auto read = [](const String& text) {
    Answers record;
    record.ServiceCompany(true);
    EXPECT_TRUE(ReadInto(record, "<QuestionsAndDeclarations><ServiceCompany>" + text +
                                     "</ServiceCompany></QuestionsAndDeclarations>"));
    return record.ServiceCompany();
  };
  EXPECT_TRUE(read("yes"));
  EXPECT_TRUE(read("Yes"));
  EXPECT_TRUE(read(" YES "));
  EXPECT_FALSE(read("no"));
  EXPECT_FALSE(read("true"));
  EXPECT_FALSE(read(""));
}

TEST(clsQuestionsAndDeclarations, ReadingKeepsAnswersThatTheElementLacks) {
  Answers record;
  record.Create(true, true, true, true, true, true);
  record.Validated(true);
  ASSERT_TRUE(ReadInto(
      record, "<QuestionsAndDeclarations><P11DFormsDue>no</P11DFormsDue></QuestionsAndDeclarations>"));
  for (const Answer& answer : kAnswers) {
    EXPECT_EQ((record.*answer.get)(), answer.element != String("P11DFormsDue")) << answer.element;
  }
  EXPECT_FALSE(record.Validated());
}

TEST(clsQuestionsAndDeclarations, WritesIntoTheElementThereAndKeepsTheRest) {
  const XmlNode root = Root(
      "<P><QuestionsAndDeclarations><Other/><ServiceCompany>no</ServiceCompany></QuestionsAndDeclarations></"
      "P>");
  Answers record;
  record.ServiceCompany(true);
  const XmlNode written = record.ToXML(root);
  EXPECT_EQ(ChildNames(root).size(), 1U);
  EXPECT_EQ(ChildNames(written).size(), 7U);
  EXPECT_EQ(written.FirstChild().BaseName(), "Other");
  EXPECT_EQ(ChildText(written, "ServiceCompany"), "yes");
}

TEST(clsQuestionsAndDeclarations, RefusesOtherNamesAndDeclarations) {
  Answers record;
  EXPECT_EQ(record.RootElementName(), "QuestionsAndDeclarations");
  EXPECT_FALSE(ReadInto(record, "<Questions><ServiceCompany>yes</ServiceCompany></Questions>"));
  const String text =
      "<QuestionsAndDeclarations><ServiceCompany>yes</ServiceCompany></QuestionsAndDeclarations>";
  EXPECT_FALSE(record.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(record.ParseFromXML("<QuestionsAndDeclarations>"));
  EXPECT_FALSE(record.ServiceCompany());
  EXPECT_TRUE(record.ParseFromXML(text));
  EXPECT_TRUE(record.ServiceCompany());
}

TEST(clsQuestionsAndDeclarations, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  for (const Answer& answer : kAnswers) {
    Answers record;
    record.Validated(true);
    (record.*answer.set)(false);
    EXPECT_TRUE(record.Validated()) << answer.element;
    (record.*answer.set)(true);
    EXPECT_FALSE(record.Validated()) << answer.element;
  }
}

}  // namespace
}  // namespace zelnor
