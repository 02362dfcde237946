#include "zelnor/documents/clsPayment.h"

#include <utility>

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::RaisedNumber;
using test::Read;
using test::WithRecordingHost;

constexpr auto kFPS = eRTISUBMISSIONTYPE::IsFPS;
constexpr auto kEYU = eRTISUBMISSIONTYPE::IsEYU;
constexpr auto kEPS = eRTISUBMISSIONTYPE::IsEPS;
constexpr auto kMale = EMPLOYEE_GENDER::M;
constexpr auto kFemale = EMPLOYEE_GENDER::f;

const Date kPayDay = Date::FromParts(2025, 9, 30);

// A payment in which everything is set, each amount to another value.
clsPayment FullPayment() {
  clsPayment payment;
  payment.Create(PAY_FREQUENCY::WEEKLY, kPayDay, "26", "6", 2, true, true, HOURS_WORKED::ThirtyOrMore, 1, 2,
                 3, 4, 5, 6, 7, 8, 9, StudentLoan_PlanType::enmPlan2, 10, 11, 12, 13, 14, 15, 16, "hash",
                 true, true, lreLateReason::llrReasonableExcuse, true, 17, 18);
  payment.TaxCode()->Create("S1257L", true);
  payment.Class1ANICsYTD(19);
  payment.SPBPYTD(20);
  payment.SNCPYTD(21);
  payment.AppPeriodNo(22);
  payment.SetTrivialCommutationPayment(tcpPaymentType::tcptLumpSums, 23);
  payment.SetTrivialCommutationPayment(tcpPaymentType::tcptOccupationalPension, 25);
  payment.Benefits();
  payment.FlexibleDrawdown();
  return payment;
}

XmlNode ElementIn(eRTISUBMISSIONTYPE type, clsPayment payment, EMPLOYEE_GENDER gender = kMale) {
  return payment.ToXML(test::Root("<P/>"), type, gender);
}

String WrittenIn(eRTISUBMISSIONTYPE type, const clsPayment& payment, EMPLOYEE_GENDER gender = kMale) {
  return ElementIn(type, payment, gender).Xml();
}

// The text of one element of a written FPS; "(absent)" without it.
String Row(const clsPayment& payment, std::string_view name, eRTISUBMISSIONTYPE type = kFPS,
           EMPLOYEE_GENDER gender = kMale) {
  const XmlNode row = ElementIn(type, payment, gender).FindChild(name);
  return row ? row.Text() : "(absent)";
}

std::shared_ptr<clsPayment> ReadChild(const String& child) {
  return Read<clsPayment>("<Payment>" + child + "</Payment>");
}

// ---- Writing

TEST(clsPayment, WritesAnFPSInOrder) {
  EXPECT_EQ(
      WrittenIn(kFPS, FullPayment()),
      "<Payment><PayFreq>W1</PayFreq><PmtDate>2025-09-30</PmtDate><LateReason>G</LateReason><WeekNo>26</"
      "WeekNo>"
      "<PeriodsCovered>2</PeriodsCovered><AggregatedEarnings>yes</AggregatedEarnings>"
      "<PmtAfterLeaving>yes</PmtAfterLeaving><HoursWorked>D</HoursWorked>"
      "<TaxCode BasisNonCumulative=\"yes\" TaxRegime=\"S\">S1257L</TaxCode><TaxablePay>1.00</TaxablePay>"
      "<NonTaxOrNICPmt>2.00</NonTaxOrNICPmt><DednsFromNetPay>3.00</DednsFromNetPay>"
      "<PayAfterStatDedns>4.00</PayAfterStatDedns><BenefitsTaxedViaPayroll>5.00</BenefitsTaxedViaPayroll>"
      "<Class1ANICsYTD>19.00</Class1ANICsYTD><Benefits></Benefits>"
      "<EmpeePenContribnsPaid>6.00</EmpeePenContribnsPaid><ItemsSubjectToClass1NIC>7.00</"
      "ItemsSubjectToClass1NIC>"
      "<EmpeePenContribnsNotPaid>8.00</EmpeePenContribnsNotPaid>"
      "<StudentLoanRecovered PlanType=\"02\">9.00</StudentLoanRecovered>"
      "<PostgradLoanRecovered>16.00</PostgradLoanRecovered><TaxDeductedOrRefunded>10.00</"
      "TaxDeductedOrRefunded>"
      "<OnStrike>yes</OnStrike><UnpaidAbsence>yes</UnpaidAbsence><SMPYTD>12.00</SMPYTD><SPPYTD>13.00</SPPYTD>"
      "<SAPYTD>14.00</SAPYTD><ShPPYTD>15.00</ShPPYTD><SPBPYTD>20.00</SPBPYTD><SNCPYTD>21.00</SNCPYTD>"
      "<TrivialCommutationPayment type=\"A\">23.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment type=\"C\">25.00</TrivialCommutationPayment>"
      "<FlexibleDrawdown></FlexibleDrawdown></Payment>");
}

TEST(clsPayment, WritesAnEYUInOrder) {
  EXPECT_EQ(
      WrittenIn(kEYU, FullPayment()),
      "<Payment><TaxCode BasisNonCumulative=\"yes\" TaxRegime=\"S\">S1257L</TaxCode>"
      "<TaxablePay>1.00</TaxablePay><BenefitsTaxedViaPayroll>5.00</BenefitsTaxedViaPayroll>"
      "<EmpeePenContribnsPaid>6.00</EmpeePenContribnsPaid>"
      "<EmpeePenContribnsNotPaid>8.00</EmpeePenContribnsNotPaid>"
      "<StudentLoanRecovered>9.00</StudentLoanRecovered>"
      "<PostgradLoanRecovered>16.00</PostgradLoanRecovered><Tax>10.00</Tax><SMP>12.00</SMP><SPP>13.00</SPP>"
      "<SAP>14.00</SAP><ShPP>15.00</ShPP><SPBPYTD>20.00</SPBPYTD>"
      "<TrivialCommutationPayment type=\"A\">23.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment type=\"C\">25.00</TrivialCommutationPayment>"
      "<FlexibleDrawdown></FlexibleDrawdown></Payment>");
}

TEST(clsPayment, WritesSickPayOnlyInDocumentsOfAnotherKind) {
  const String other = WrittenIn(kEPS, FullPayment());
  EXPECT_NE(other.find("<UnpaidAbsence>yes</UnpaidAbsence><SSPYTD>11.00</SSPYTD><SMPYTD>12.00</SMPYTD>"),
            String::npos);
  EXPECT_EQ(Row(FullPayment(), "SSPYTD"), "(absent)");
  EXPECT_EQ(Row(FullPayment(), "SSPYTD", kEYU), "(absent)");
  EXPECT_EQ(Row({}, "SSPYTD", kEPS), "0.00");
}

TEST(clsPayment, WritesClass1AAndBenefitsInAnFPSAlone) {
  EXPECT_EQ(Row(FullPayment(), "Class1ANICsYTD", kEPS), "(absent)");
  EXPECT_EQ(Row(FullPayment(), "Benefits", kEPS), "(absent)");
  EXPECT_EQ(Row(FullPayment(), "Benefits", kEYU), "(absent)");
}

TEST(clsPayment, WritesANewPaymentInAnFPS) {
  EXPECT_EQ(WrittenIn(kFPS, {}),
            "<Payment><PayFreq>XX</PayFreq><PmtDate>1899-12-30</PmtDate><MonthNo></MonthNo>"
            "<PeriodsCovered>0</PeriodsCovered><HoursWorked>Not Set</HoursWorked><TaxCode></TaxCode>"
            "<TaxablePay>0.00</TaxablePay><NonTaxOrNICPmt>0.00</NonTaxOrNICPmt>"
            "<DednsFromNetPay>0.00</DednsFromNetPay><PayAfterStatDedns>0.00</PayAfterStatDedns>"
            "<BenefitsTaxedViaPayroll>0.00</BenefitsTaxedViaPayroll><Class1ANICsYTD>0.00</Class1ANICsYTD>"
            "<EmpeePenContribnsPaid>0.00</EmpeePenContribnsPaid>"
            "<ItemsSubjectToClass1NIC>0.00</ItemsSubjectToClass1NIC>"
            "<EmpeePenContribnsNotPaid>0.00</EmpeePenContribnsNotPaid>"
            "<TaxDeductedOrRefunded>0.00</TaxDeductedOrRefunded><SPPYTD>0.00</SPPYTD><SAPYTD>0.00</SAPYTD>"
            "<ShPPYTD>0.00</ShPPYTD><SPBPYTD>0.00</SPBPYTD><SNCPYTD>0.00</SNCPYTD></Payment>");
}

TEST(clsPayment, WritesANewPaymentInAnEYU) {
  EXPECT_EQ(WrittenIn(kEYU, {}),
            "<Payment><TaxCode></TaxCode><BenefitsTaxedViaPayroll>0.00</BenefitsTaxedViaPayroll>"
            "<EmpeePenContribnsPaid>0.00</EmpeePenContribnsPaid>"
            "<EmpeePenContribnsNotPaid>0.00</EmpeePenContribnsNotPaid></Payment>");
}

TEST(clsPayment, EmptiesTheElementThatIsThere) {
  clsPayment payment = FullPayment();
  const XmlNode parent = test::Root("<P><Payment><SSPYTD>1</SSPYTD><Own/></Payment></P>");
  const XmlNode there = parent.FirstChild();
  EXPECT_EQ(payment.ToXML(parent, kFPS, kMale), there);
  EXPECT_EQ(there.Xml(), WrittenIn(kFPS, payment));
  payment.ToXML(parent, kFPS, kMale);
  EXPECT_EQ(there.Xml(), WrittenIn(kFPS, payment));
  EXPECT_FALSE(there.NextSibling());
}

TEST(clsPayment, WritesInTheParentsNamespace) {
  clsPayment payment = FullPayment();
  const XmlNode parent = test::Root("<P xmlns=\"urn:p\"/>");
  const XmlNode element = payment.ToXML(parent, kFPS, kMale);
  EXPECT_EQ(element.NamespaceURI(), "urn:p");
  for (const XmlNode& child : element.ChildNodes()) EXPECT_EQ(child.NamespaceURI(), "urn:p") << child.Xml();
}

TEST(clsPayment, WritesEachFrequency) {
  const std::pair<PAY_FREQUENCY, const char*> texts[] = {
      {PAY_FREQUENCY::WEEKLY, "W1"},        {PAY_FREQUENCY::Fortnightly, "W2"},
      {PAY_FREQUENCY::FourWeekly, "W4"},    {PAY_FREQUENCY::CalendarMonthly, "M1"},
      {PAY_FREQUENCY::Quarterly, "M3"},     {PAY_FREQUENCY::Biannually, "M6"},
      {PAY_FREQUENCY::Annually, "MA"},      {PAY_FREQUENCY::OneOff, "IO"},
      {PAY_FREQUENCY::Irregular, "IR"},     {PAY_FREQUENCY::Undisclosed, "XX"},
      {static_cast<PAY_FREQUENCY>(9), "XX"}};
  for (const auto& [frequency, text] : texts) {
    clsPayment payment;
    payment.PayFrequency(frequency);
    EXPECT_EQ(Row(payment, "PayFreq"), text);
  }
}

TEST(clsPayment, WritesEachBandOfHours) {
  const std::pair<HOURS_WORKED, const char*> texts[] = {{HOURS_WORKED::UpTo16, "A"},
                                                        {HOURS_WORKED::SixteenToTwentyFour, "B"},
                                                        {HOURS_WORKED::TwentyFourToThirty, "C"},
                                                        {HOURS_WORKED::ThirtyOrMore, "D"},
                                                        {HOURS_WORKED::Other, "E"},
                                                        {HOURS_WORKED::Undisclosed, "Not Set"},
                                                        {static_cast<HOURS_WORKED>(5), "Not Set"}};
  for (const auto& [hours, text] : texts) {
    clsPayment payment;
    payment.HoursWorked(hours);
    EXPECT_EQ(Row(payment, "HoursWorked"), text);
  }
}

TEST(clsPayment, WritesEachLateReason) {
  const char* const letters[] = {"(absent)", "A", "B", "C", "D", "E", "F", "G", "H"};
  for (std::int32_t reason = 0; reason <= 8; ++reason) {
    clsPayment payment;
    payment.LateReason(lreLateReason{reason});
    EXPECT_EQ(Row(payment, "LateReason"), letters[reason]);
  }
}

TEST(clsPayment, WritesEitherWeekOrMonth) {
  const auto rows = [](const String& week, const String& month) {
    clsPayment payment;
    payment.WeekNo(week);
    payment.MonthNo(month);
    return Row(payment, "WeekNo") + " " + Row(payment, "MonthNo");
  };
  EXPECT_EQ(rows("0", "3"), "(absent) 3");
  EXPECT_EQ(rows("", "3"), "(absent) 3");
  EXPECT_EQ(rows("12", "3"), "12 (absent)");
  EXPECT_EQ(rows("12", ""), "12 (absent)");
}

TEST(clsPayment, WritesMaternityPayOfZeroForAFemaleEmployee) {
  EXPECT_EQ(Row({}, "SMPYTD", kFPS, kFemale), "0.00");
  EXPECT_EQ(Row({}, "SMPYTD", kFPS, kMale), "(absent)");
  EXPECT_EQ(Row({}, "SMPYTD", kFPS, EMPLOYEE_GENDER::Undefined), "(absent)");
  EXPECT_EQ(Row(FullPayment(), "SMPYTD", kFPS, kFemale), "12.00");
  EXPECT_EQ(Row({}, "SMP", kEYU, kFemale), "(absent)");
}

TEST(clsPayment, WritesTheStudentLoansPlanInTwoDigits) {
  const std::pair<std::int32_t, const char*> plans[] = {
      {1, "01"}, {2, "02"}, {4, "04"}, {0, "00"}, {12, "12"}};
  for (const auto& [plan, text] : plans) {
    clsPayment payment;
    payment.StudentLoanRecovered(Currency(-9));
    payment.StudentLoanPlanType(StudentLoan_PlanType{plan});
    const XmlNode loan = ElementIn(kFPS, payment).FindChild("StudentLoanRecovered");
    EXPECT_EQ(loan.Text(), "-9.00");
    EXPECT_EQ(loan.Attribute("PlanType"), text);
  }
}

TEST(clsPayment, WritesNoLoansOfZero) {
  clsPayment payment;
  payment.StudentLoanPlanType(StudentLoan_PlanType::enmPlan1);
  for (const auto type : {kFPS, kEPS, kEYU}) {
    EXPECT_EQ(Row(payment, "StudentLoanRecovered", type), "(absent)");
    EXPECT_EQ(Row(payment, "PostgradLoanRecovered", type), "(absent)");
  }
}

TEST(clsPayment, WritesNothingOfWhatIsNotForHMRC) {
  const XmlNode element = ElementIn(kFPS, FullPayment());
  for (const std::string_view name : {"BacsHashCode", "FlexiblyAccessingPensionRights", "C1ANICtermination",
                                      "C1ANICterminationYTD", "AppPeriodNo"})
    EXPECT_FALSE(element.FindChild(name)) << name;
  EXPECT_EQ(element.Xml().find("hash"), String::npos);
}

TEST(clsPayment, WritesDrawdownAndBenefitsThatItHolds) {
  clsPayment payment;
  payment.Benefits()->AddCarDetails("Kestrel", "X", eFuel::enmAllOther, false, 1, kPayDay, 2, "");
  payment.FlexibleDrawdown()->StandAloneLumpSum(true);
  EXPECT_TRUE(ElementIn(kFPS, payment).SelectSingleNode("Benefits/Car/Make"));
  EXPECT_TRUE(ElementIn(kEYU, payment).SelectSingleNode("FlexibleDrawdown/StandAloneLumpSum"));
}

TEST(clsPayment, ShowsAFailure) {
  WithRecordingHost host;
  clsPayment payment;
  EXPECT_FALSE(payment.ToXML(nullptr, kFPS, kMale));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(
      host->messages[0].text.starts_with("Error in ZELNOR.dll::clsPayment: Function ToXML: Error 91 - "));
}

// ---- Reading

TEST(clsPayment, ReadsEachAmount) {
  using T = clsPayment;
  const std::pair<const char*, Currency (T::*)() const> rows[] = {
      {"TaxablePay", &T::TaxablePay},
      {"NonTaxOrNICPmt", &T::NonTaxOrNICPmt},
      {"DednsFromNetPay", &T::DednsFromNetPay},
      {"PayAfterStatDedns", &T::PayAfterStatDedns},
      {"BenefitsTaxedViaPayroll", &T::BenefitsTaxedViaPayroll},
      {"Class1ANICsYTD", &T::Class1ANICsYTD},
      {"EmpeePenContribnsPaid", &T::EmpeePenContribnsPaid},
      {"ItemsSubjectToClass1NIC", &T::ItemsSubjectToClass1NIC},
      {"EmpeePenContribnsNotPaid", &T::EmpeePenContribnsNotPaid},
      {"StudentLoanRecovered", &T::StudentLoanRecovered},
      {"PostgradLoanRecovered", &T::PostgradLoanRecovered},
      {"TaxDeductedOrRefunded", &T::TaxDeductedOrRefunded},
      {"SSPYTD", &T::SSPYTD},
      {"SMPYTD", &T::SMPYTD},
      {"SPPYTD", &T::OSPPYTD},
      {"SAPYTD", &T::SAPYTD},
      {"ShPPYTD", &T::ASPPYTD},
      {"SPBPYTD", &T::SPBPYTD},
      {"SNCPYTD", &T::SNCPYTD}};
  for (const auto& [name, get] : rows) {
    const auto payment = ReadChild("<" + String(name) + ">-12.34</" + name + ">");
    for (const auto& [other, get_other] : rows) {
      const Currency expected = get_other == get ? Currency::FromPence(-1234) : Currency();
      EXPECT_EQ(((*payment).*get_other)(), expected) << name << " in " << other;
    }
  }
}

TEST(clsPayment, ReadsNoneOfTheNamesOfAnEYU) {
  const auto payment = ReadChild(
      "<Tax>1</Tax><SMP>1</SMP><SPP>1</SPP><SAP>1</SAP><ShPP>1</ShPP><C1ANICtermination>1</C1ANICtermination>"
      "<AppPeriodNo>1</AppPeriodNo>");
  EXPECT_EQ(WrittenIn(kEPS, *payment), WrittenIn(kEPS, *ReadChild("")));
  EXPECT_TRUE(payment->C1ANICtermination().IsZero());
  EXPECT_EQ(payment->AppPeriodNo(), 0);
}

TEST(clsPayment, ReadsThePeriod) {
  const auto payment = ReadChild(
      "<PeriodsCovered>3</PeriodsCovered><WeekNo>12</WeekNo><MonthNo>3</MonthNo><PmtDate>2025-09-30</PmtDate>"
      "<BacsHashCode>0af</BacsHashCode>");
  EXPECT_EQ(payment->PeriodsCovered(), 3);
  EXPECT_EQ(payment->WeekNo(), "12");
  EXPECT_EQ(payment->MonthNo(), "3");
  EXPECT_EQ(payment->PayDate(), kPayDay);
  EXPECT_EQ(payment->BacsHashCode(), "0af");
}

TEST(clsPayment, ReadsADayAsAPersonWouldWriteIt) {
  EXPECT_EQ(ReadChild("<PmtDate>30/09/2025</PmtDate>")->PayDate(), kPayDay);
}

TEST(clsPayment, ReadsFlagsByTheirPresence) {
  const auto none = ReadChild("");
  EXPECT_FALSE(none->IsAggregatedEarnings());
  EXPECT_FALSE(none->IsPaymentAfterLeaving());
  EXPECT_FALSE(none->HadBeenOnStrike());
  EXPECT_FALSE(none->HadAnUnpaidAbsence());
  EXPECT_TRUE(ReadChild("<AggregatedEarnings>no</AggregatedEarnings>")->IsAggregatedEarnings());
  EXPECT_TRUE(ReadChild("<PmtAfterLeaving>no</PmtAfterLeaving>")->IsPaymentAfterLeaving());
  EXPECT_TRUE(ReadChild("<OnStrike/>")->HadBeenOnStrike());
  EXPECT_TRUE(ReadChild("<UnpaidAbsence>no</UnpaidAbsence>")->HadAnUnpaidAbsence());
}

TEST(clsPayment, ReadsFlexibleAccessByItsText) {
  EXPECT_TRUE(ReadChild("<FlexiblyAccessingPensionRights>YES</FlexiblyAccessingPensionRights>")->IsFAPR());
  EXPECT_FALSE(ReadChild("<FlexiblyAccessingPensionRights>no</FlexiblyAccessingPensionRights>")->IsFAPR());
  EXPECT_FALSE(ReadChild("")->IsFAPR());
}

TEST(clsPayment, ReadsEachFrequency) {
  const std::pair<const char*, PAY_FREQUENCY> texts[] = {
      {"W1", PAY_FREQUENCY::WEEKLY},     {"w2", PAY_FREQUENCY::Fortnightly},
      {"W4", PAY_FREQUENCY::FourWeekly}, {"m1", PAY_FREQUENCY::CalendarMonthly},
      {"M3", PAY_FREQUENCY::Quarterly},  {"M6", PAY_FREQUENCY::Biannually},
      {"MA", PAY_FREQUENCY::Annually},   {"IO", PAY_FREQUENCY::OneOff},
      {"IR", PAY_FREQUENCY::Irregular},  {"W3", PAY_FREQUENCY::Irregular},
      {"", PAY_FREQUENCY::Irregular},    {"XX", PAY_FREQUENCY::Irregular}};
  for (const auto& [text, frequency] : texts)
    EXPECT_EQ(ReadChild("<PayFreq>" + String(text) + "</PayFreq>")->PayFrequency(), frequency) << text;
  EXPECT_EQ(Row(*ReadChild("<PayFreq>daily</PayFreq>"), "PayFreq"), "IR");
}

TEST(clsPayment, ReadsTheLongTextsOfHoursAndNoLetters) {
  const std::pair<const char*, HOURS_WORKED> texts[] = {
      {"Up to 15.99", HOURS_WORKED::UpTo16},
      {"16 to 23.99 hrs", HOURS_WORKED::SixteenToTwentyFour},
      {"24 TO 29.99 HRS", HOURS_WORKED::TwentyFourToThirty},
      {"30 hours or more", HOURS_WORKED::ThirtyOrMore},
      {"A", HOURS_WORKED::Other},
      {"D", HOURS_WORKED::Other},
      {"Not Set", HOURS_WORKED::Other},
      {"", HOURS_WORKED::Other}};
  for (const auto& [text, hours] : texts)
    EXPECT_EQ(ReadChild("<HoursWorked>" + String(text) + "</HoursWorked>")->HoursWorked(), hours) << text;
  EXPECT_EQ(ReadChild("")->HoursWorked(), HOURS_WORKED::Undisclosed);
}

TEST(clsPayment, ReadsEachLateReasonAsLetterOrText) {
  const std::pair<const char*, const char*> texts[] = {
      {"a", "Notional payment: Payment to expat by third party or overseas employer"},
      {"B", "Notional payment: Employment related security"},
      {"C", "Notional payment: Other"},
      {"D", "Payment subject to Class 1 NICs but P11D/P9D for tax"},
      {"E", "No requirement to maintain a deductions working sheet"},
      {"F", "Impractical to report work done on the day"},
      {"G", "Reasonable excuse"},
      {"H", "Correction to earlier submission"}};
  std::int32_t reason = 0;
  for (const auto& [letter, text] : texts) {
    ++reason;
    for (const String written : {letter, text}) {
      EXPECT_EQ(ReadChild("<LateReason>" + written + "</LateReason>")->LateReason(), lreLateReason{reason})
          << written;
    }
  }
  EXPECT_EQ(ReadChild("<LateReason>I</LateReason>")->LateReason(), lreLateReason::llrNoExcuse);
  EXPECT_EQ(ReadChild("<LateReason/>")->LateReason(), lreLateReason::llrNoExcuse);
}

TEST(clsPayment, ReadsTheStudentLoansPlan) {
  EXPECT_EQ(
      ReadChild("<StudentLoanRecovered PlanType=\"04\">9</StudentLoanRecovered>")->StudentLoanPlanType(),
      StudentLoan_PlanType::enmPlan4);
  for (const String attribute : {"", " PlanType=\"\"", " PlanType=\"Plan 2\"", " PlanType=\"99999999999\""}) {
    const auto payment = ReadChild("<StudentLoanRecovered" + attribute + ">9</StudentLoanRecovered>");
    EXPECT_EQ(payment->StudentLoanPlanType(), StudentLoan_PlanType{}) << attribute;
    EXPECT_EQ(payment->StudentLoanRecovered(), Currency(9));
  }
}

TEST(clsPayment, ReadsTrivialCommutationPaymentsByTheirType) {
  const auto payment = ReadChild(
      "<TrivialCommutationPayment type=\"a\">1.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment type=\"B\">2.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment type=\"C\">3.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment type=\"D\">4.00</TrivialCommutationPayment>"
      "<TrivialCommutationPayment>5.00</TrivialCommutationPayment>");
  EXPECT_EQ(payment->TrivialCommutationPayment(), (std::array<Currency, 3>{1, 2, 3}));
}

TEST(clsPayment, ReadsItsChildren) {
  const auto payment = ReadChild(
      "<TaxCode TaxRegime=\"C\">CBR</TaxCode><FlexibleDrawdown><StandAloneLumpSum/></FlexibleDrawdown>"
      "<Benefits><Car><Make>Kestrel</Make></Car></Benefits>");
  EXPECT_EQ(payment->TaxCode()->TaxCode(), "CBR");
  ASSERT_TRUE(payment->HasFlexibleDrawdown());
  EXPECT_TRUE(payment->FlexibleDrawdown()->StandAloneLumpSum());
  ASSERT_TRUE(payment->HasBenefits());
  EXPECT_EQ(payment->Benefits()->CarDetails()->Item(1)->Make(), "Kestrel");
}

TEST(clsPayment, ReadingClearsEverythingButTheFrequency) {
  clsPayment payment = FullPayment();
  const Ref<clsTaxCode> former = payment.TaxCode();
  payment.Validated(true);
  ASSERT_TRUE(payment.CreateFromXML(test::Root("<Payment/>")));
  EXPECT_EQ(payment.PayFrequency(), PAY_FREQUENCY::WEEKLY);
  EXPECT_NE(payment.TaxCode(), former);
  EXPECT_EQ(former->TaxCode(), "S1257L");
  EXPECT_FALSE(payment.HasBenefits());
  EXPECT_FALSE(payment.HasFlexibleDrawdown());
  EXPECT_EQ(payment.BacsHashCode(), "");
  EXPECT_FALSE(payment.IsFAPR());
  EXPECT_EQ(payment.AppPeriodNo(), 0);
  EXPECT_EQ(payment.StudentLoanPlanType(), StudentLoan_PlanType{});
  EXPECT_TRUE(payment.C1ANICtermination().IsZero());
  EXPECT_TRUE(payment.C1ANICterminationYTD().IsZero());
  EXPECT_FALSE(payment.Validated());
  clsPayment fresh;
  fresh.PayFrequency(PAY_FREQUENCY::WEEKLY);
  for (const auto type : {kFPS, kEYU, kEPS}) EXPECT_EQ(WrittenIn(type, payment), WrittenIn(type, fresh));
}

TEST(clsPayment, RefusesAnotherName) {
  clsPayment payment;
  EXPECT_EQ(payment.RootElementName(), "Payment");
  EXPECT_FALSE(payment.ParseFromXML("<payment/>"));
  EXPECT_FALSE(payment.ParseFromXML("<?xml version=\"1.0\"?><Payment/>"));
  EXPECT_FALSE(payment.ParseFromXML("<Payment>"));
  EXPECT_TRUE(payment.ParseFromXML("<Payment/>"));
  EXPECT_FALSE(payment.CreateFromXML(test::Root("<Pay/>")));
}

TEST(clsPayment, ATextThatIsNoNumberOrDateEndsTheReading) {
  for (const String child : {"<SAPYTD>x</SAPYTD>", "<PeriodsCovered>many</PeriodsCovered>",
                             "<PmtDate>2025-xx-30</PmtDate>", "<PmtDate/>"}) {
    WithRecordingHost host;
    clsPayment payment;
    EXPECT_FALSE(payment.ParseFromXML("<Payment><TaxablePay>5</TaxablePay>" + child +
                                      "<NonTaxOrNICPmt>6</NonTaxOrNICPmt></Payment>"));
    EXPECT_EQ(payment.TaxablePay(), Currency(5));
    EXPECT_TRUE(payment.NonTaxOrNICPmt().IsZero());
    ASSERT_EQ(host->messages.size(), 1U);
    EXPECT_TRUE(host->messages[0].text.starts_with(
        "Error in ZELNOR.dll::clsPayment: Function CreateFromXML: Error 13 - "));
  }
}

TEST(clsPayment, WritingWhatWasReadChangesNothingTheSecondTime) {
  const String once = WrittenIn(kFPS, *Read<clsPayment>(WrittenIn(kFPS, FullPayment())));
  EXPECT_EQ(WrittenIn(kFPS, *Read<clsPayment>(once)), once);
}

// ---- Properties and operations

TEST(clsPayment, CreateStoresItsArguments) {
  const clsPayment payment = FullPayment();
  EXPECT_EQ(payment.PayFrequency(), PAY_FREQUENCY::WEEKLY);
  EXPECT_EQ(payment.PayDate(), kPayDay);
  EXPECT_EQ(payment.WeekNo(), "26");
  EXPECT_EQ(payment.MonthNo(), "6");
  EXPECT_EQ(payment.PeriodsCovered(), 2);
  EXPECT_TRUE(payment.IsAggregatedEarnings());
  EXPECT_TRUE(payment.IsPaymentAfterLeaving());
  EXPECT_EQ(payment.HoursWorked(), HOURS_WORKED::ThirtyOrMore);
  EXPECT_EQ(payment.TaxablePay(), Currency(1));
  EXPECT_EQ(payment.NonTaxOrNICPmt(), Currency(2));
  EXPECT_EQ(payment.DednsFromNetPay(), Currency(3));
  EXPECT_EQ(payment.PayAfterStatDedns(), Currency(4));
  EXPECT_EQ(payment.BenefitsTaxedViaPayroll(), Currency(5));
  EXPECT_EQ(payment.EmpeePenContribnsPaid(), Currency(6));
  EXPECT_EQ(payment.ItemsSubjectToClass1NIC(), Currency(7));
  EXPECT_EQ(payment.EmpeePenContribnsNotPaid(), Currency(8));
  EXPECT_EQ(payment.StudentLoanRecovered(), Currency(9));
  EXPECT_EQ(payment.StudentLoanPlanType(), StudentLoan_PlanType::enmPlan2);
  EXPECT_EQ(payment.TaxDeductedOrRefunded(), Currency(10));
  EXPECT_EQ(payment.SSPYTD(), Currency(11));
  EXPECT_EQ(payment.SMPYTD(), Currency(12));
  EXPECT_EQ(payment.OSPPYTD(), Currency(13));
  EXPECT_EQ(payment.SAPYTD(), Currency(14));
  EXPECT_EQ(payment.ASPPYTD(), Currency(15));
  EXPECT_EQ(payment.PostgradLoanRecovered(), Currency(16));
  EXPECT_EQ(payment.BacsHashCode(), "hash");
  EXPECT_TRUE(payment.HadBeenOnStrike());
  EXPECT_TRUE(payment.HadAnUnpaidAbsence());
  EXPECT_EQ(payment.LateReason(), lreLateReason::llrReasonableExcuse);
  EXPECT_TRUE(payment.IsFAPR());
  EXPECT_EQ(payment.C1ANICtermination(), Currency(17));
  EXPECT_EQ(payment.C1ANICterminationYTD(), Currency(18));
}

TEST(clsPayment, CreateTakesNothingForWhatIsNotGiven) {
  clsPayment payment = FullPayment();
  const auto create = [&] {
    payment.Create(PAY_FREQUENCY::WEEKLY, {}, "", "", 0, false, false, HOURS_WORKED::Other, 0, 0, 0, 0, 0, 0,
                   0, 0, 0, StudentLoan_PlanType::enmPlan1, 0, 0, 0, 0, 0, 0, 0);
  };
  create();
  EXPECT_EQ(payment.BacsHashCode(), "");
  EXPECT_FALSE(payment.HadBeenOnStrike());
  EXPECT_FALSE(payment.HadAnUnpaidAbsence());
  EXPECT_EQ(payment.LateReason(), lreLateReason::llrNoExcuse);
  EXPECT_FALSE(payment.IsFAPR());
  EXPECT_TRUE(payment.C1ANICtermination().IsZero());
  EXPECT_TRUE(payment.C1ANICterminationYTD().IsZero());
  clsPayment validated;
  validated.Validated(true);
  std::swap(payment, validated);
  EXPECT_TRUE(payment.Validated());
  create();
  EXPECT_FALSE(payment.Validated());
}

TEST(clsPayment, HoldsNothingWhenNew) {
  clsPayment payment;
  EXPECT_EQ(payment.PayFrequency(), PAY_FREQUENCY::Undisclosed);
  EXPECT_EQ(payment.HoursWorked(), HOURS_WORKED::Undisclosed);
  EXPECT_EQ(payment.LateReason(), lreLateReason::llrNoExcuse);
  EXPECT_TRUE(payment.PayDate().IsZero());
  EXPECT_FALSE(payment.HasBenefits());
  EXPECT_FALSE(payment.HasFlexibleDrawdown());
  EXPECT_EQ(payment.TrivialCommutationPayment(), (std::array<Currency, 3>{}));
}

TEST(clsPayment, MakesAbsentChildrenWhenRead) {
  clsPayment payment;
  EXPECT_EQ(payment.TaxCode(), payment.TaxCode());
  EXPECT_TRUE(payment.TaxCode());
  EXPECT_TRUE(payment.Benefits());
  EXPECT_TRUE(payment.HasBenefits());
  EXPECT_TRUE(payment.FlexibleDrawdown());
  EXPECT_TRUE(payment.HasFlexibleDrawdown());
  payment.Benefits(nullptr);
  payment.FlexibleDrawdown(nullptr);
  EXPECT_FALSE(payment.HasBenefits());
  EXPECT_FALSE(payment.HasFlexibleDrawdown());
}

// Storing a validated child clears its flag, and with it the payment's.
template <class T>
void ExpectChildCounts(void (clsPayment::*set)(Ref<T>), Ref<T> (clsPayment::*get)()) {
  clsPayment payment;
  payment.Validated(true);
  const auto child = std::make_shared<T>();
  child->Validated(true);
  (payment.*set)(child);
  EXPECT_EQ((payment.*get)(), child);
  EXPECT_FALSE(child->Validated());
  EXPECT_FALSE(payment.Validated());
  child->Validated(true);
  EXPECT_TRUE(payment.Validated());
}

TEST(clsPayment, IsValidatedWithItsChildren) {
  ExpectChildCounts<clsTaxCode>(&clsPayment::TaxCode, &clsPayment::TaxCode);
  ExpectChildCounts<clsBenefits>(&clsPayment::Benefits, &clsPayment::Benefits);
  ExpectChildCounts<clsFlexibleDrawdown>(&clsPayment::FlexibleDrawdown, &clsPayment::FlexibleDrawdown);
}

TEST(clsPayment, HoursByValueFallIntoBands) {
  const std::pair<double, HOURS_WORKED> bands[] = {{-0.01, HOURS_WORKED::Undisclosed},
                                                   {0, HOURS_WORKED::UpTo16},
                                                   {15.99, HOURS_WORKED::UpTo16},
                                                   {16, HOURS_WORKED::SixteenToTwentyFour},
                                                   {23.99, HOURS_WORKED::SixteenToTwentyFour},
                                                   {24, HOURS_WORKED::TwentyFourToThirty},
                                                   {29.99, HOURS_WORKED::TwentyFourToThirty},
                                                   {30, HOURS_WORKED::ThirtyOrMore},
                                                   {168, HOURS_WORKED::ThirtyOrMore}};
  for (const auto& [hours, band] : bands) {
    clsPayment payment;
    payment.SetHoursWorkedByValue(hours);
    EXPECT_EQ(payment.HoursWorked(), band) << hours;
  }
}

TEST(clsPayment, KeepsTrivialCommutationPaymentsByKind) {
  clsPayment payment;
  payment.Validated(true);
  payment.SetTrivialCommutationPayment(tcpPaymentType::tcptPersonalPension, 0);
  EXPECT_TRUE(payment.Validated());
  payment.SetTrivialCommutationPayment(tcpPaymentType::tcptPersonalPension, 7);
  EXPECT_FALSE(payment.Validated());
  EXPECT_EQ(payment.GetTrivialCommutationPayment(tcpPaymentType::tcptPersonalPension), Currency(7));
  EXPECT_TRUE(payment.GetTrivialCommutationPayment(tcpPaymentType::tcptLumpSums).IsZero());
  EXPECT_EQ(payment.TrivialCommutationPayment(), (std::array<Currency, 3>{0, 7, 0}));
  EXPECT_EQ(payment.TrivialCommutationPaymentTypeDescr(tcpPaymentType::tcptLumpSums), "A");
  EXPECT_EQ(payment.TrivialCommutationPaymentTypeDescr(tcpPaymentType::tcptPersonalPension), "B");
  EXPECT_EQ(payment.TrivialCommutationPaymentTypeDescr(tcpPaymentType::tcptOccupationalPension), "C");
}

TEST(clsPayment, RaisesAnErrorForAKindThatIsNone) {
  clsPayment payment;
  for (const std::int32_t number : {0, 4, -1}) {
    const tcpPaymentType kind{number};
    EXPECT_EQ(RaisedNumber([&] { payment.SetTrivialCommutationPayment(kind, 1); }), 9);
    EXPECT_EQ(RaisedNumber([&] { payment.GetTrivialCommutationPayment(kind); }), 9);
    EXPECT_EQ(RaisedNumber([&] { payment.TrivialCommutationPaymentTypeDescr(kind); }), 9);
  }
}

TEST(clsPayment, MakesNoHashItself) {
  clsPayment payment = FullPayment();
  payment.CreateBacsHashCode("/abc", "12-34-56", "65-43-21", 100);
  EXPECT_EQ(payment.BacsHashCode(), "hash");
}

TEST(clsPayment, ChangesOfAmountsClearValidated) {
  using T = clsPayment;
  const auto expect = [](void (T::*set)(Currency), Currency (T::*get)() const) {
    test::ExpectChangeClearsValidated<T, Currency, Currency>(set, get, 1, 2);
  };
  expect(&T::TaxablePay, &T::TaxablePay);
  expect(&T::NonTaxOrNICPmt, &T::NonTaxOrNICPmt);
  expect(&T::DednsFromNetPay, &T::DednsFromNetPay);
  expect(&T::PayAfterStatDedns, &T::PayAfterStatDedns);
  expect(&T::BenefitsTaxedViaPayroll, &T::BenefitsTaxedViaPayroll);
  expect(&T::EmpeePenContribnsPaid, &T::EmpeePenContribnsPaid);
  expect(&T::ItemsSubjectToClass1NIC, &T::ItemsSubjectToClass1NIC);
  expect(&T::EmpeePenContribnsNotPaid, &T::EmpeePenContribnsNotPaid);
  expect(&T::StudentLoanRecovered, &T::StudentLoanRecovered);
  expect(&T::PostgradLoanRecovered, &T::PostgradLoanRecovered);
  expect(&T::TaxDeductedOrRefunded, &T::TaxDeductedOrRefunded);
  expect(&T::SSPYTD, &T::SSPYTD);
  expect(&T::SMPYTD, &T::SMPYTD);
  expect(&T::OSPPYTD, &T::OSPPYTD);
  expect(&T::SAPYTD, &T::SAPYTD);
  expect(&T::ASPPYTD, &T::ASPPYTD);
  expect(&T::SPBPYTD, &T::SPBPYTD);
  expect(&T::SNCPYTD, &T::SNCPYTD);
  expect(&T::Class1ANICsYTD, &T::Class1ANICsYTD);
  expect(&T::C1ANICtermination, &T::C1ANICtermination);
  expect(&T::C1ANICterminationYTD, &T::C1ANICterminationYTD);
}

TEST(clsPayment, OtherChangesClearValidated) {
  using T = clsPayment;
  test::ExpectChangeClearsValidated<T, PAY_FREQUENCY, PAY_FREQUENCY>(
      &T::PayFrequency, &T::PayFrequency, PAY_FREQUENCY::OneOff, PAY_FREQUENCY::Annually);
  test::ExpectChangeClearsValidated<T, HOURS_WORKED, HOURS_WORKED>(&T::HoursWorked, &T::HoursWorked,
                                                                   HOURS_WORKED::Other, HOURS_WORKED::UpTo16);
  test::ExpectChangeClearsValidated<T, lreLateReason, lreLateReason>(
      &T::LateReason, &T::LateReason, lreLateReason::llrReasonableExcuse, lreLateReason::llrNoExcuse);
  test::ExpectChangeClearsValidated<T, StudentLoan_PlanType, StudentLoan_PlanType>(
      &T::StudentLoanPlanType, &T::StudentLoanPlanType, StudentLoan_PlanType::enmPlan1,
      StudentLoan_PlanType::enmPlan2);
  test::ExpectChangeClearsValidated<T, Date, Date>(&T::PayDate, &T::PayDate, kPayDay, Date());
  test::ExpectChangeClearsValidated<T, Integer, Integer>(&T::PeriodsCovered, &T::PeriodsCovered, 1, 2);
  test::ExpectChangeClearsValidated<T, Long, Long>(&T::AppPeriodNo, &T::AppPeriodNo, 1, 2);
  test::ExpectTextChangeClearsValidated<T, String>(&T::WeekNo, &T::WeekNo);
  test::ExpectTextChangeClearsValidated<T, String>(&T::MonthNo, &T::MonthNo);
  const auto expect = [](void (T::*set)(bool), bool (T::*get)() const) {
    test::ExpectChangeClearsValidated<T, bool, bool>(set, get, true, false);
  };
  expect(&T::IsAggregatedEarnings, &T::IsAggregatedEarnings);
  expect(&T::IsPaymentAfterLeaving, &T::IsPaymentAfterLeaving);
  expect(&T::HadBeenOnStrike, &T::HadBeenOnStrike);
  expect(&T::HadAnUnpaidAbsence, &T::HadAnUnpaidAbsence);
  expect(&T::IsFAPR, &T::IsFAPR);
}

TEST(clsPayment, TextComesBack) {
  for (const String& text : test::TextsThatComeBack()) {
    clsPayment payment;
    payment.MonthNo(text);
    EXPECT_EQ(Read<clsPayment>(WrittenIn(kFPS, payment))->MonthNo(), text);
    if (text == "0") continue;  // stands for no week
    payment.WeekNo(text);
    EXPECT_EQ(Read<clsPayment>(WrittenIn(kFPS, payment))->WeekNo(), text);
  }
}

}  // namespace
}  // namespace zelnor
