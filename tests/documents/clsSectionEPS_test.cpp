#include "zelnor/documents/clsSectionEPS.h"

#include "zelnor/documents/clsApprenticeshipLevy.h"
#include "zelnor/documents/clsEPSAccount.h"
#include "zelnor/documents/clsEmployerReferences.h"
#include "zelnor/documents/clsFinalSubmission.h"
#include "zelnor/documents/clsPaymentForPeriod.h"

#include <functional>

#include "support/recording_host.h"
#include "support/records.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ChildNames;
using test::ChildText;
using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;
using testing::ElementsAre;
using testing::Not;

const Date kJune6 = Date::FromParts(2025, 6, 6);
const Date kJuly5 = Date::FromParts(2025, 7, 5);

/// A section with every element.
void Fill(clsSectionEPS& eps) {
  eps.Employer_References()->Create("123", "AB456", "123PA00045678");
  eps.TaxYear("25-26");
  eps.NoPaymentForPeriod(true);
  eps.SetNoPaymentDates(kJune6, kJuly5);
  eps.DateInactiveFrom(Date::FromParts(2025, 8, 6));
  eps.DateInactiveTo(Date::FromParts(2026, 4, 5));
  eps.EmploymentAllowanceIndicator(true);
  eps.Agri(true);
  eps.FisheriesAqua(true);
  eps.RoadTrans(true);
  eps.Indust(true);
  eps.NA(true);
  eps.PaymentForPeriod()->TaxMonth("3");
  eps.ApprenticeshipLevy()->Create(3, 100, 15000);
  eps.Account()->Create("A N Employer", "12345678", "123456");
  eps.Final_Submission()->FinalForYear(true);
}

TEST(clsSectionEPS, HasItsConstants) {
  const clsSectionEPS eps;
  EXPECT_EQ(eps.RootElementName(), "EmployerPaymentSummary");
  EXPECT_EQ(eps.Class(), "HMRC-PAYE-RTI-EPS");
  EXPECT_EQ(eps.DefaultSchema(), "\\xsd\\EmployerPaymentSummary-2026-v1-0.xsd");
}

TEST(clsSectionEPS, BeginsWithReferencesAndNothingElse) {
  clsSectionEPS eps;
  EXPECT_TRUE(eps.Employer_References());
  EXPECT_EQ(eps.TaxYear(), "");
  EXPECT_EQ(eps.PeriodIdentifier(), 0);
  EXPECT_FALSE(eps.NoPaymentForPeriod());
  EXPECT_TRUE(eps.NoPaymentFrom().IsZero());
  EXPECT_TRUE(eps.NoPaymentTo().IsZero());
  EXPECT_TRUE(eps.DateInactiveFrom().IsZero());
  EXPECT_TRUE(eps.DateInactiveTo().IsZero());
  EXPECT_FALSE(eps.HasPeriodOfInactivity());
  EXPECT_FALSE(eps.HasPaymentForPeriod());
  EXPECT_FALSE(eps.HasAccount());
  EXPECT_FALSE(eps.HasEmpAllowanceIndicator());
  EXPECT_FALSE(eps.EmploymentAllowanceIndicator());
  EXPECT_FALSE(eps.HasApprenticeshipLevy());
  EXPECT_FALSE(eps.HasFinalSubmission());
  EXPECT_TRUE(eps.IncludeYtds());
  EXPECT_FALSE(eps.Agri() || eps.FisheriesAqua() || eps.RoadTrans() || eps.Indust() || eps.NA());
  EXPECT_TRUE(eps.Aid().IsZero());
  EXPECT_FALSE(eps.Validated());
}

TEST(clsSectionEPS, WritesItsElementsInOrder) {
  clsSectionEPS eps;
  Fill(eps);
  const XmlNode written = eps.ToXML(Root("<Parent/>"));
  EXPECT_EQ(written.NodeName(), "EmployerPaymentSummary");
  EXPECT_THAT(ChildNames(written),
              ElementsAre("EmpRefs", "NoPaymentForPeriod", "NoPaymentDates", "PeriodOfInactivity",
                          "EmpAllceInd", "DeMinimisStateAid", "RecoverableAmountsYTD", "ApprenticeshipLevy",
                          "Account", "RelatedTaxYear", "FinalSubmission"));
  EXPECT_EQ(written.FindChild("EmpRefs").FindChild("OfficeNo").Text(), "123");
  EXPECT_EQ(ChildText(written, "NoPaymentForPeriod"), "yes");
  EXPECT_EQ(written.FindChild("NoPaymentDates").Xml(),
            "<NoPaymentDates><From>2025-06-06</From><To>2025-07-05</To></NoPaymentDates>");
  EXPECT_EQ(written.FindChild("PeriodOfInactivity").Xml(),
            "<PeriodOfInactivity><From>2025-08-06</From><To>2026-04-05</To></PeriodOfInactivity>");
  EXPECT_EQ(ChildText(written, "EmpAllceInd"), "yes");
  EXPECT_EQ(written.FindChild("DeMinimisStateAid").Xml(),
            "<DeMinimisStateAid><Agri>yes</Agri><FisheriesAqua>yes</FisheriesAqua><RoadTrans>yes</RoadTrans>"
            "<Indust>yes</Indust><NA>yes</NA></DeMinimisStateAid>");
  EXPECT_EQ(written.FindChild("RecoverableAmountsYTD").FindChild("TaxMonth").Text(), "3");
  EXPECT_EQ(written.FindChild("ApprenticeshipLevy").FindChild("LevyDueYTD").Text(), "100.00");
  EXPECT_EQ(written.FindChild("Account").FindChild("SortCode").Text(), "123456");
  EXPECT_EQ(ChildText(written, "RelatedTaxYear"), "25-26");
  EXPECT_EQ(written.FindChild("FinalSubmission").FindChild("ForYear").Text(), "yes");
}

TEST(clsSectionEPS, WritesTheLeastWithReferencesAmountsAndTaxYear) {
  clsSectionEPS eps;
  EXPECT_THAT(ChildNames(eps.ToXML(Root("<Parent/>"))),
              ElementsAre("EmpRefs", "RecoverableAmountsYTD", "RelatedTaxYear"));
}

TEST(clsSectionEPS, RemovesWhatIsNoLongerThereFromTheElementThere) {
  clsSectionEPS full;
  Fill(full);
  const XmlNode root = Root("<Parent/>");
  full.ToXML(root);
  clsSectionEPS eps;
  eps.NoPaymentForPeriod(true);
  eps.IncludeYtds(false);
  eps.NA(true);
  const XmlNode written = eps.ToXML(root);
  EXPECT_EQ(ChildNames(root).size(), 1U);
  EXPECT_THAT(ChildNames(written), ElementsAre("EmpRefs", "NoPaymentForPeriod", "NoPaymentDates",
                                               "DeMinimisStateAid", "RelatedTaxYear"));
  EXPECT_EQ(written.FindChild("DeMinimisStateAid").Xml(),
            "<DeMinimisStateAid><NA>yes</NA></DeMinimisStateAid>");
  eps.NoPaymentForPeriod(false);
  eps.NA(false);
  EXPECT_THAT(ChildNames(eps.ToXML(root)), ElementsAre("EmpRefs", "RelatedTaxYear", "RecoverableAmountsYTD"));
}

TEST(clsSectionEPS, WritesTheAccountOnceHoweverOften) {
  clsSectionEPS eps;
  Fill(eps);
  const XmlNode root = Root("<Parent/>");
  eps.ToXML(root);
  const std::vector<String> names = ChildNames(eps.ToXML(root));
  EXPECT_EQ(std::count(names.begin(), names.end(), "Account"), 1);
  EXPECT_EQ(names.size(), 11U);
}

TEST(clsSectionEPS, CreateWithoutPaymentMeansNoPaymentForPeriod) {
  clsSectionEPS eps;
  eps.Create(std::make_shared<clsEmployerReferences>(), "25-26", nullptr, nullptr, false);
  EXPECT_TRUE(eps.NoPaymentForPeriod());
  EXPECT_FALSE(eps.HasPaymentForPeriod());
  EXPECT_THAT(ChildNames(eps.ToXML(Root("<Parent/>"))),
              ElementsAre("EmpRefs", "NoPaymentForPeriod", "NoPaymentDates", "RelatedTaxYear"));

  eps.IncludeYtds(true);
  const XmlNode amounts = eps.ToXML(Root("<Parent/>")).FindChild("RecoverableAmountsYTD");
  ASSERT_TRUE(amounts);
  EXPECT_EQ(ChildNames(amounts).size(), 13U);
  for (const XmlNode& amount : amounts.ChildNodes()) EXPECT_EQ(amount.Text(), "0.00");
  EXPECT_TRUE(eps.HasPaymentForPeriod());
}

TEST(clsSectionEPS, CreateStoresItsArguments) {
  const auto references = std::make_shared<clsEmployerReferences>();
  const auto payment = std::make_shared<clsPaymentForPeriod>();
  const auto final_submission = std::make_shared<clsFinalSubmission>();
  const auto levy = std::make_shared<clsApprenticeshipLevy>();
  clsSectionEPS eps;
  eps.NoPaymentForPeriod(true);
  eps.Validated(true);
  eps.Create(references, "25-26", payment, final_submission, false, levy);
  EXPECT_EQ(eps.Employer_References(), references);
  EXPECT_EQ(eps.TaxYear(), "25-26");
  EXPECT_EQ(eps.PaymentForPeriod(), payment);
  EXPECT_EQ(eps.Final_Submission(), final_submission);
  EXPECT_EQ(eps.ApprenticeshipLevy(), levy);
  EXPECT_FALSE(eps.IncludeYtds());
  EXPECT_FALSE(eps.NoPaymentForPeriod());
  for (Record* child :
       std::vector<Record*>{references.get(), payment.get(), final_submission.get(), levy.get()}) {
    child->Validated(true);
  }
  EXPECT_FALSE(eps.Validated());
}

TEST(clsSectionEPS, RefusesNoPaymentDatesWithoutNoPaymentForPeriod) {
  WithRecordingHost host;
  clsSectionEPS eps;
  const auto refused = [&](const std::function<void()>& body) {
    try {
      body();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), -234572);
      EXPECT_EQ(error.Description(), "You cannot have No Payment dates if No Payment For Period is unset.");
      return error.Source();
    }
    return String("(none raised)");
  };
  EXPECT_EQ(refused([&] { eps.NoPaymentFrom(kJune6); }), "ZELNOR.clsSectionEPS.NoPaymentFrom");
  EXPECT_EQ(refused([&] { eps.NoPaymentTo(kJuly5); }), "ZELNOR.clsSectionEPS.NoPaymentTo");
  EXPECT_EQ(refused([&] { eps.SetNoPaymentDates(kJune6, kJuly5); }),
            "ZELNOR.clsSectionEPS.SetNoPaymentDates");
  EXPECT_TRUE(eps.NoPaymentFrom().IsZero());
  EXPECT_TRUE(eps.NoPaymentTo().IsZero());
  EXPECT_TRUE(host->messages.empty());

  eps.NoPaymentForPeriod(true);
  eps.NoPaymentFrom(kJune6);
  eps.NoPaymentTo(kJuly5);
  EXPECT_EQ(eps.NoPaymentFrom(), kJune6);
  EXPECT_EQ(eps.NoPaymentTo(), kJuly5);
}

TEST(clsSectionEPS, WritesAnUnsetDateOfInactivityAsTheZeroDate) {
  clsSectionEPS eps;
  eps.DateInactiveFrom(kJune6);
  EXPECT_TRUE(eps.HasPeriodOfInactivity());
  EXPECT_EQ(eps.ToXML(Root("<Parent/>")).FindChild("PeriodOfInactivity").Xml(),
            "<PeriodOfInactivity><From>2025-06-06</From><To>1899-12-30</To></PeriodOfInactivity>");
  eps.DateInactiveFrom({});
  eps.DateInactiveTo(kJuly5);
  EXPECT_TRUE(eps.HasPeriodOfInactivity());
  EXPECT_EQ(eps.ToXML(Root("<Parent/>")).FindChild("PeriodOfInactivity").Xml(),
            "<PeriodOfInactivity><From>1899-12-30</From><To>2025-07-05</To></PeriodOfInactivity>");
}

TEST(clsSectionEPS, WritesTheAllowanceIndicatorOnlyOnceItIsGiven) {
  clsSectionEPS eps;
  EXPECT_EQ(ChildText(eps.ToXML(Root("<Parent/>")), "EmpAllceInd"), "(absent)");
  eps.EmploymentAllowanceIndicator(false);
  EXPECT_TRUE(eps.HasEmpAllowanceIndicator());
  EXPECT_EQ(ChildText(eps.ToXML(Root("<Parent/>")), "EmpAllceInd"), "no");
  eps.EmploymentAllowanceIndicator(true);
  EXPECT_EQ(ChildText(eps.ToXML(Root("<Parent/>")), "EmpAllceInd"), "yes");
  eps.ClearEmploymentAllowanceIndicator();
  EXPECT_FALSE(eps.HasEmpAllowanceIndicator());
  EXPECT_TRUE(eps.EmploymentAllowanceIndicator());
  EXPECT_EQ(ChildText(eps.ToXML(Root("<Parent/>")), "EmpAllceInd"), "(absent)");
}

TEST(clsSectionEPS, WritesOnlyTheSectorsOfStateAidThatAreSet) {
  struct Sector {
    const char* element;
    void (clsSectionEPS::*set)(bool);
    bool (clsSectionEPS::*get)() const;
  };
  for (const Sector& sector :
       {Sector{"Agri", &clsSectionEPS::Agri, &clsSectionEPS::Agri},
        Sector{"FisheriesAqua", &clsSectionEPS::FisheriesAqua, &clsSectionEPS::FisheriesAqua},
        Sector{"RoadTrans", &clsSectionEPS::RoadTrans, &clsSectionEPS::RoadTrans},
        Sector{"Indust", &clsSectionEPS::Indust, &clsSectionEPS::Indust},
        Sector{"NA", &clsSectionEPS::NA, &clsSectionEPS::NA}}) {
    clsSectionEPS eps;
    (eps.*sector.set)(true);
    const XmlNode written = eps.ToXML(Root("<Parent/>"));
    EXPECT_THAT(ChildNames(written.FindChild("DeMinimisStateAid")), ElementsAre(sector.element));
    clsSectionEPS read;
    ASSERT_TRUE(read.CreateFromXML(written));
    EXPECT_TRUE((read.*sector.get)());
    EXPECT_EQ(read.Agri() + read.FisheriesAqua() + read.RoadTrans() + read.Indust() + read.NA(), 1);
  }
}

TEST(clsSectionEPS, NeverWritesTheAmountOfAid) {
  clsSectionEPS eps;
  const String without = Written(eps);
  eps.Aid(Currency(1000));
  EXPECT_EQ(Written(eps), without);
  eps.Agri(true);
  EXPECT_THAT(Written(eps), Not(testing::HasSubstr("Aid>1000")));
}

TEST(clsSectionEPS, RemovesAnAmountOfAidFromTheElementThere) {
  const XmlNode root = Root(
      "<P><EmployerPaymentSummary><DeMinimisStateAid><Aid>5</Aid></DeMinimisStateAid></"
      "EmployerPaymentSummary></P>");
  clsSectionEPS eps;
  eps.Agri(true);
  EXPECT_THAT(ChildNames(eps.ToXML(root).FindChild("DeMinimisStateAid")), ElementsAre("Agri"));
}

TEST(clsSectionEPS, ReadsStateAidAsTruthValuesAndTheAmount) {
  clsSectionEPS eps;
  ASSERT_TRUE(
      ReadInto(eps,
               "<EmployerPaymentSummary><DeMinimisStateAid><Agri>yes</Agri><FisheriesAqua>no</FisheriesAqua>"
               "<RoadTrans>True</RoadTrans><Indust>0</Indust><NA>1</NA><Aid>12.50</Aid></DeMinimisStateAid>"
               "</EmployerPaymentSummary>"));
  EXPECT_TRUE(eps.Agri());
  EXPECT_FALSE(eps.FisheriesAqua());
  EXPECT_TRUE(eps.RoadTrans());
  EXPECT_FALSE(eps.Indust());
  EXPECT_TRUE(eps.NA());
  EXPECT_EQ(eps.Aid(), Currency::FromPence(1250));
}

TEST(clsSectionEPS, ReportsAStateAidThatIsNoTruthValue) {
  WithRecordingHost host;
  clsSectionEPS eps;
  EXPECT_FALSE(ReadInto(eps,
                        "<EmployerPaymentSummary><RelatedTaxYear>25-26</RelatedTaxYear><DeMinimisStateAid>"
                        "<Agri>perhaps</Agri></DeMinimisStateAid></EmployerPaymentSummary>"));
  EXPECT_EQ(eps.TaxYear(), "25-26");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsSectionEPS: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsSectionEPS, ReadsWhatItWrites) {
  clsSectionEPS eps;
  Fill(eps);
  const String text = Written(eps);
  clsSectionEPS read;
  ASSERT_TRUE(ReadInto(read, text));
  EXPECT_EQ(read.Employer_References()->PayeRef(), "AB456");
  EXPECT_EQ(read.TaxYear(), "25-26");
  EXPECT_TRUE(read.NoPaymentForPeriod());
  EXPECT_EQ(read.NoPaymentFrom(), kJune6);
  EXPECT_EQ(read.NoPaymentTo(), kJuly5);
  EXPECT_EQ(read.DateInactiveFrom(), Date::FromParts(2025, 8, 6));
  EXPECT_EQ(read.DateInactiveTo(), Date::FromParts(2026, 4, 5));
  EXPECT_TRUE(read.HasEmpAllowanceIndicator());
  EXPECT_TRUE(read.EmploymentAllowanceIndicator());
  EXPECT_EQ(read.PaymentForPeriod()->TaxMonth(), "3");
  ASSERT_TRUE(read.HasApprenticeshipLevy());
  EXPECT_EQ(read.ApprenticeshipLevy()->TaxMonth(), 3);
  ASSERT_TRUE(read.HasAccount());
  EXPECT_EQ(read.Account()->AccountName(), "A N Employer");
  ASSERT_TRUE(read.HasFinalSubmission());
  EXPECT_TRUE(read.Final_Submission()->FinalForYear());
  EXPECT_EQ(Written(read), text);
}

TEST(clsSectionEPS, ReadsTheAllowanceIndicatorAsYesInAnyCase) {
  const auto indicator = [](const String& text) {
    clsSectionEPS eps;
    EXPECT_TRUE(ReadInto(
        eps, "<EmployerPaymentSummary><EmpAllceInd>" + text + "</EmpAllceInd></EmployerPaymentSummary>"));
    EXPECT_TRUE(eps.HasEmpAllowanceIndicator());
    return eps.EmploymentAllowanceIndicator();
  };
  EXPECT_TRUE(indicator("yes"));
  EXPECT_TRUE(indicator("YES"));
  EXPECT_FALSE(indicator("no"));
  EXPECT_FALSE(indicator("true"));
  EXPECT_FALSE(indicator(""));
}

TEST(clsSectionEPS, ReadsNoPaymentForPeriodByItsPresence) {
  clsSectionEPS eps;
  ASSERT_TRUE(ReadInto(
      eps, "<EmployerPaymentSummary><NoPaymentForPeriod>no</NoPaymentForPeriod></EmployerPaymentSummary>"));
  EXPECT_TRUE(eps.NoPaymentForPeriod());
}

TEST(clsSectionEPS, ReadsNoPaymentDatesEvenWithoutTheFlag) {
  clsSectionEPS eps;
  ASSERT_TRUE(ReadInto(eps,
                       "<EmployerPaymentSummary><NoPaymentDates><From>2025-06-06</From><To>2025-07-05</To>"
                       "</NoPaymentDates></EmployerPaymentSummary>"));
  EXPECT_FALSE(eps.NoPaymentForPeriod());
  EXPECT_EQ(eps.NoPaymentFrom(), kJune6);
  EXPECT_EQ(eps.NoPaymentTo(), kJuly5);
}

TEST(clsSectionEPS, ReadingDropsAmountsAndFinalSubmissionFirst) {
  clsSectionEPS eps;
  Fill(eps);
  ASSERT_TRUE(ReadInto(eps, "<EmployerPaymentSummary/>"));
  EXPECT_FALSE(eps.HasPaymentForPeriod());
  EXPECT_FALSE(eps.HasFinalSubmission());
}

TEST(clsSectionEPS, RefusesANodeOfAnotherName) {
  clsSectionEPS eps;
  EXPECT_FALSE(
      ReadInto(eps, "<FullPaymentSubmission><RelatedTaxYear>25-26</RelatedTaxYear></FullPaymentSubmission>"));
  EXPECT_EQ(eps.TaxYear(), "");
}

TEST(clsSectionEPS, ParsesTextWithoutADeclarationOnly) {
  clsSectionEPS eps;
  const String text =
      "<EmployerPaymentSummary><RelatedTaxYear>25-26</RelatedTaxYear></EmployerPaymentSummary>";
  EXPECT_FALSE(eps.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(eps.ParseFromXML("<EmployerPaymentSummary>"));
  EXPECT_EQ(eps.TaxYear(), "");
  EXPECT_TRUE(eps.ParseFromXML(text));
  EXPECT_EQ(eps.TaxYear(), "25-26");
}

TEST(clsSectionEPS, ReadingAChildMakesIt) {
  clsSectionEPS eps;
  EXPECT_TRUE(eps.PaymentForPeriod());
  EXPECT_TRUE(eps.HasPaymentForPeriod());
  EXPECT_EQ(eps.PaymentForPeriod(), eps.PaymentForPeriod());
  EXPECT_TRUE(eps.Account());
  EXPECT_TRUE(eps.HasAccount());
  EXPECT_TRUE(eps.ApprenticeshipLevy());
  EXPECT_TRUE(eps.HasApprenticeshipLevy());
  EXPECT_TRUE(eps.Final_Submission());
  EXPECT_TRUE(eps.HasFinalSubmission());
  eps.KillAccount();
  eps.KillAppLevy();
  eps.KillFinalSubmissionInfo();
  EXPECT_FALSE(eps.HasAccount());
  EXPECT_FALSE(eps.HasApprenticeshipLevy());
  EXPECT_FALSE(eps.HasFinalSubmission());
  eps.Employer_References(nullptr);
  EXPECT_TRUE(eps.Employer_References());
}

TEST(clsSectionEPS, WritingAChildClearsItsValidated) {
  clsSectionEPS eps;
  const auto payment = std::make_shared<clsPaymentForPeriod>();
  const auto account = std::make_shared<clsEPSAccount>();
  const auto levy = std::make_shared<clsApprenticeshipLevy>();
  const auto final_submission = std::make_shared<clsFinalSubmission>();
  const auto references = std::make_shared<clsEmployerReferences>();
  const std::vector<Record*> children = {payment.get(), account.get(), levy.get(), final_submission.get(),
                                         references.get()};
  for (Record* child : children) child->Validated(true);
  eps.PaymentForPeriod(payment);
  eps.Account(account);
  eps.ApprenticeshipLevy(levy);
  eps.Final_Submission(final_submission);
  eps.Employer_References(references);
  for (Record* child : children) EXPECT_FALSE(child->Validated());
  EXPECT_EQ(eps.Account(), account);
}

TEST(clsSectionEPS, IsValidatedWithEveryChildPresent) {
  clsSectionEPS eps;
  eps.Validated(true);
  EXPECT_FALSE(eps.Validated());
  eps.Employer_References()->Validated(true);
  EXPECT_TRUE(eps.Validated());
  const auto counts = [&](const auto& child) {
    EXPECT_FALSE(eps.Validated());
    child->Validated(true);
    EXPECT_TRUE(eps.Validated());
  };
  counts(eps.PaymentForPeriod());
  counts(eps.Account());
  counts(eps.ApprenticeshipLevy());
  counts(eps.Final_Submission());
}

TEST(clsSectionEPS, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  clsSectionEPS eps;
  eps.Employer_References()->Validated(true);
  eps.NoPaymentForPeriod(true);
  const auto check = [&](const char* what, const std::function<void()>& change) {
    eps.Validated(true);
    change();
    EXPECT_FALSE(eps.Validated()) << what;
    eps.Validated(true);
    change();
    EXPECT_TRUE(eps.Validated()) << what;
  };
  check("TaxYear", [&] { eps.TaxYear("25-26"); });
  check("PeriodIdentifier", [&] { eps.PeriodIdentifier(1); });
  check("NoPaymentFrom", [&] { eps.NoPaymentFrom(kJune6); });
  check("NoPaymentTo", [&] { eps.NoPaymentTo(kJuly5); });
  check("SetNoPaymentDates", [&] { eps.SetNoPaymentDates(kJuly5, kJune6); });
  check("DateInactiveFrom", [&] { eps.DateInactiveFrom(kJune6); });
  check("DateInactiveTo", [&] { eps.DateInactiveTo(kJuly5); });
  check("EmploymentAllowanceIndicator", [&] { eps.EmploymentAllowanceIndicator(false); });
  check("ClearEmploymentAllowanceIndicator", [&] { eps.ClearEmploymentAllowanceIndicator(); });
  check("IncludeYtds", [&] { eps.IncludeYtds(false); });
  check("Agri", [&] { eps.Agri(true); });
  check("FisheriesAqua", [&] { eps.FisheriesAqua(true); });
  check("RoadTrans", [&] { eps.RoadTrans(true); });
  check("Indust", [&] { eps.Indust(true); });
  check("NA", [&] { eps.NA(true); });
  check("Aid", [&] { eps.Aid(1); });
  check("NoPaymentForPeriod", [&] { eps.NoPaymentForPeriod(false); });
  eps.Validated(true);
  eps.SetRelatedTaxYear("25-26");
  EXPECT_FALSE(eps.Validated());
}

TEST(clsSectionEPS, AnyTextOfTheTaxYearComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsSectionEPS first;
    first.SetRelatedTaxYear(text);
    clsSectionEPS second;
    ASSERT_TRUE(ReadInto(second, Written(first)));
    EXPECT_EQ(second.TaxYear(), text);
  }
}

TEST(clsSectionEPS, WritesIntoTheNamespaceOfItsParent) {
  clsSectionEPS eps;
  Fill(eps);
  const XmlNode envelope = XmlDocument().Node().AppendElement("IRenvelope", "urn:eps");
  const std::function<void(const XmlNode&)> check = [&](const XmlNode& node) {
    if (!node.IsElement()) return;
    EXPECT_EQ(node.NamespaceURI(), "urn:eps") << node.BaseName();
    for (const XmlNode& child : node.ChildNodes()) check(child);
  };
  check(eps.ToXML(envelope));
}

TEST(clsSectionEPS, ReportsAMissingParentOnce) {
  WithRecordingHost host;
  clsSectionEPS eps;
  EXPECT_FALSE(eps.ToXML({}));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::clsSectionEPS: Function ToXML: Error 91 - Object variable or With block variable "
      "not set");
}

}  // namespace
}  // namespace zelnor
