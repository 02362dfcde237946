// The employment, in each kind of document.

#include "zelnor/documents/clsEmployment.h"

#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsFiguresToDate.h"
#include "zelnor/documents/clsNILettersAndValues.h"
#include "zelnor/documents/clsPayIdChgd.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsStarter.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

using Job = clsEmployment;

const String kFPS = "FullPaymentSubmission";
const String kEYU = "EarlierYearUpdate";
const String kNVR = "NINOverificationRequest";
const String kEAS = "EmployerAlignmentSubmission";

XmlNode WrittenIn(const String& section, Job& job, EMPLOYEE_GENDER gender = EMPLOYEE_GENDER::M) {
  return job.ToXML(Root("<" + section + "><Employee/></" + section + ">").FirstChild(), gender);
}

/// The children by name, in order; the text behind a leaf's name.
String Outline(const XmlNode& node) {
  String outline;
  for (const XmlNode& child : node.ChildNodes()) {
    outline.append(child.BaseName());
    if (child.FirstChild() && !child.FirstChild().IsElement()) outline += "=" + child.Text();
    outline += " ";
  }
  return outline;
}

std::shared_ptr<Job> FullJob() {
  auto job = std::make_shared<Job>();
  job->OccPenInd(true);
  job->OffPayrollWorker(true);
  job->IsExpat(true);
  job->DirectorsNIC(dnDIRECTORS_NIC::ednAlternative);
  job->WkOrMonthNoDirectorAppt(12);
  job->Starter()->Create(Date::FromParts(2025, 5, 12), STARTER_DECLARATION::MyFirstJob);
  job->EmployeeWorkplacePostcode("KB4 7QT");
  job->PayID(" K-1 ");
  job->PayIDChange()->Create(true, "K-0");
  job->IsNonIndividual(true);
  job->IrrEmp(true);
  job->LeavingDate(Date::FromParts(2026, 1, 31));
  job->Payment()->TaxCode()->TaxCode("1257L");
  job->AddNILettersAndValues()->NILetter("A");
  job->AddNILettersAndValues()->NILetter("B");
  return job;
}

}  // namespace

TEST(clsEmployment, StartsWithPaymentAndFiguresAndNoDirector) {
  Job job;
  EXPECT_EQ(job.DirectorsNIC(), dnDIRECTORS_NIC::ednNA);
  EXPECT_FALSE(job.HasStarterInfo());
  EXPECT_FALSE(job.PayIDHasChanged());
  EXPECT_EQ(job.NILettersAndValues()->Count(), 0);
  const XmlNode written = WrittenIn(kFPS, job);
  EXPECT_EQ(Outline(written), "FiguresToDate Payment ");
  EXPECT_EQ(job.RootElementName(), "Employment");
}

TEST(clsEmployment, WritesItsTableInAnFPS) {
  EXPECT_EQ(Outline(WrittenIn(kFPS, *FullJob())),
            "OccPenInd=yes OffPayrollWorker=yes DirectorsNIC=AL TaxWkOfApptOfDirector=12 Starter "
            "EmployeeWorkplacePostcode=KB4 7QT PayId=K-1 PayIdChgd PaymentToANonIndividual=yes IrrEmp=yes "
            "LeavingDate=2026-01-31 FiguresToDate Payment NIlettersAndValues NIlettersAndValues ");
}

TEST(clsEmployment, CountsAsInAnFPSWithoutASection) {
  EXPECT_EQ(Outline(FullJob()->ToXML(Root("<Employee/>"), EMPLOYEE_GENDER::M)),
            Outline(WrittenIn(kFPS, *FullJob())));
}

TEST(clsEmployment, LeavesOutFlagsDirectorAndFiguresInAnEYU) {
  EXPECT_EQ(Outline(WrittenIn(kEYU, *FullJob())),
            "Starter EmployeeWorkplacePostcode=KB4 7QT PayId=K-1 PaymentToANonIndividual=yes "
            "LeavingDate=2026-01-31 Payment NIlettersAndValues NIlettersAndValues ");
}

TEST(clsEmployment, WritesExpatriatesAndTheBareTaxCodeInAnEAS) {
  const XmlNode written = WrittenIn(kEAS, *FullJob());
  EXPECT_EQ(
      Outline(written),
      "OccPenInd=yes OffPayrollWorker=yes ExpatInd=yes DirectorsNIC=AL TaxWkOfApptOfDirector=12 Starter "
      "EmployeeWorkplacePostcode=KB4 7QT PayId=K-1 PaymentToANonIndividual=yes IrrEmp=yes "
      "LeavingDate=2026-01-31 Payment ");
  EXPECT_EQ(Outline(written.FindChild("Starter")), "StartDate=2025-05-12 ");
  EXPECT_EQ(Outline(written.FindChild("Payment")), "TaxCode=1257L ");
}

TEST(clsEmployment, HoldsJustThePayrollIdInAnNVR) {
  EXPECT_EQ(Outline(WrittenIn(kNVR, *FullJob())), "PayId=K-1 ");
  Job job;
  EXPECT_EQ(WrittenIn(kNVR, job).Xml(), "<Employment></Employment>");
}

TEST(clsEmployment, WritesNoStarterWithoutADateInAnEAS) {
  Job job;
  job.Starter();
  EXPECT_FALSE(WrittenIn(kEAS, job).FindChild("Starter"));
  EXPECT_TRUE(WrittenIn(kFPS, job).FindChild("Starter"));
  // An early date is a date here.
  job.Starter()->StartDate(Date::FromParts(1900, 5, 1));
  EXPECT_EQ(Outline(WrittenIn(kEAS, job).FindChild("Starter")), "StartDate=1900-05-01 ");
  EXPECT_EQ(Outline(WrittenIn(kFPS, job).FindChild("Starter")), "");
}

TEST(clsEmployment, WritesTheDirectorsBasisAndAWeekOtherThanZero) {
  Job job;
  job.WkOrMonthNoDirectorAppt(12);
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "FiguresToDate Payment ");
  job.DirectorsNIC(dnDIRECTORS_NIC::ednAnnual);
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "DirectorsNIC=AN TaxWkOfApptOfDirector=12 FiguresToDate Payment ");
  job.WkOrMonthNoDirectorAppt(0);
  EXPECT_EQ(Outline(WrittenIn(kEAS, job)), "DirectorsNIC=AN Payment ");
}

TEST(clsEmployment, WritesAPayrollIdOfBlanksEmpty) {
  Job job;
  job.PayID("   ");
  EXPECT_EQ(WrittenIn(kNVR, job).Xml(), "<Employment><PayId></PayId></Employment>");
}

TEST(clsEmployment, WritesTheChangedPayrollIdOnlyWhenItHasChanged) {
  Job job;
  job.PayIDChange();
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "FiguresToDate Payment ");
  job.PayIDChange()->Changed(true);
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "PayIdChgd FiguresToDate Payment ");
}

TEST(clsEmployment, WritesNoFiguresThatItDoesNotHold) {
  Job job;
  job.FiguresToDate(nullptr);
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "Payment ");
  EXPECT_NE(job.FiguresToDate(), nullptr);
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "FiguresToDate Payment ");
}

TEST(clsEmployment, WritesALeavingDateOtherThanExactlyNone) {
  Job job;
  job.LeavingDate(Date::FromParts(1900, 1, 1));
  EXPECT_EQ(Outline(WrittenIn(kFPS, job)), "LeavingDate=1900-01-01 FiguresToDate Payment ");
}

TEST(clsEmployment, HandsDocumentAndGenderToThePayment) {
  Job job;
  EXPECT_FALSE(WrittenIn(kFPS, job, EMPLOYEE_GENDER::M).FindChild("Payment").FindChild("SMPYTD"));
  EXPECT_TRUE(WrittenIn(kFPS, job, EMPLOYEE_GENDER::f).FindChild("Payment").FindChild("SMPYTD"));
  EXPECT_TRUE(WrittenIn(kFPS, job).FindChild("Payment").FindChild("PayFreq"));
  EXPECT_FALSE(WrittenIn(kEYU, job).FindChild("Payment").FindChild("PayFreq"));
}

TEST(clsEmployment, WritesTheNIRowsInTheirOrder) {
  String letters;
  for (const XmlNode& row : WrittenIn(kFPS, *FullJob()).SelectNodes("NIlettersAndValues"))
    letters += row.FindChild("NIletter").Text();
  EXPECT_EQ(letters, "AB");
}

TEST(clsEmployment, HandsTheDocumentToTheNIRows) {
  Job job;
  job.AddNILettersAndValues();
  EXPECT_TRUE(WrittenIn(kFPS, job).FindChild("NIlettersAndValues").FindChild("AtLELYTD"));
  EXPECT_TRUE(WrittenIn(kEYU, job).FindChild("NIlettersAndValues").FindChild("AtLEL"));
}

TEST(clsEmployment, AppendsANewElementInTheParentsNamespace) {
  Job job;
  job.PayID("K-1");
  const XmlNode parent = Root(
      "<x:NINOverificationRequest xmlns:x='urn:x'><x:Employment><x:Old/></x:Employment>"
      "</x:NINOverificationRequest>");
  const XmlNode written = job.ToXML(parent, EMPLOYEE_GENDER::M);
  EXPECT_EQ(Outline(parent), "Employment Employment ");
  EXPECT_EQ(Outline(written), "PayId=K-1 ");
  EXPECT_EQ(written.NamespaceURI(), "urn:x");
}

TEST(clsEmployment, ReadsItsTable) {
  const auto job = Read<Job>(
      "<Employment><NIlettersAndValues><NIletter>A</NIletter></NIlettersAndValues>"
      "<Payment><TaxablePay>5.00</TaxablePay></Payment><FiguresToDate><TotalTax>6.00</TotalTax></"
      "FiguresToDate>"
      "<LeavingDate>2026-01-31</LeavingDate><IrrEmp>no</IrrEmp><PaymentToANonIndividual/>"
      "<PayIdChgd><OldPayrollId>K-0</OldPayrollId></PayIdChgd><PayId>K-1</PayId>"
      "<EmployeeWorkplacePostcode>KB4 7QT</EmployeeWorkplacePostcode>"
      "<Starter><StartDate>2025-05-12</StartDate></Starter>"
      "<TaxWkOfApptOfDirector>12</TaxWkOfApptOfDirector><DirectorsNIC>AL</DirectorsNIC><ExpatInd/>"
      "<OffPayrollWorker/><OccPenInd/><NIlettersAndValues><NIletter>B</NIletter></NIlettersAndValues>"
      "</Employment>");
  EXPECT_TRUE(job->OccPenInd() && job->OffPayrollWorker() && job->IsExpat() && job->IsNonIndividual() &&
              job->IrrEmp());
  EXPECT_EQ(job->DirectorsNIC(), dnDIRECTORS_NIC::ednAlternative);
  EXPECT_EQ(job->WkOrMonthNoDirectorAppt(), 12);
  EXPECT_EQ(job->Starter()->StartDate(), Date::FromParts(2025, 5, 12));
  EXPECT_EQ(job->Starter()->StarterDeclaration(), STARTER_DECLARATION::HaveAnotherJobOrPension);
  EXPECT_EQ(job->EmployeeWorkplacePostcode(), "KB4 7QT");
  EXPECT_EQ(job->PayID(), "K-1");
  EXPECT_EQ(job->PayIDChange()->OldId(), "K-0");
  EXPECT_EQ(job->LeavingDate(), Date::FromParts(2026, 1, 31));
  EXPECT_EQ(job->FiguresToDate()->TotalTax(), Currency(6));
  EXPECT_EQ(job->Payment()->TaxablePay(), Currency(5));
  ASSERT_EQ(job->NILettersAndValues()->Count(), 2);
  EXPECT_EQ(job->NILettersAndValues()->Item(1)->NILetter(), "A");
  EXPECT_EQ(job->NILettersAndValues()->Item(2)->NILetter(), "B");
}

TEST(clsEmployment, ReadsTheDirectorsBasisExactly) {
  const auto basis = [](const String& text) {
    return Read<Job>("<Employment><DirectorsNIC>" + text + "</DirectorsNIC></Employment>")->DirectorsNIC();
  };
  EXPECT_EQ(basis("AN"), dnDIRECTORS_NIC::ednAnnual);
  EXPECT_EQ(basis("AL"), dnDIRECTORS_NIC::ednAlternative);
  EXPECT_EQ(basis("an"), dnDIRECTORS_NIC::ednNA);
  EXPECT_EQ(basis(""), dnDIRECTORS_NIC::ednNA);
}

TEST(clsEmployment, ReadingClearsAllButPayrollIdAndTwoFlags) {
  const auto job = FullJob();
  job->Payment()->TaxablePay(Currency(5));
  job->FiguresToDate()->TotalTax(Currency(6));
  EXPECT_TRUE(job->ParseFromXML("<Employment/>"));
  EXPECT_EQ(job->PayID(), " K-1 ");
  EXPECT_TRUE(job->IrrEmp());
  EXPECT_TRUE(job->IsExpat());
  EXPECT_FALSE(job->OccPenInd() || job->OffPayrollWorker() || job->IsNonIndividual() ||
               job->HasStarterInfo() || job->PayIDHasChanged());
  EXPECT_EQ(job->DirectorsNIC(), dnDIRECTORS_NIC::ednNA);
  EXPECT_EQ(job->WkOrMonthNoDirectorAppt(), 0);
  EXPECT_EQ(job->EmployeeWorkplacePostcode(), "");
  EXPECT_TRUE(job->LeavingDate().IsZero());
  EXPECT_EQ(job->NILettersAndValues()->Count(), 0);
  EXPECT_TRUE(job->Payment()->TaxablePay().IsZero());
  EXPECT_TRUE(job->FiguresToDate()->TotalTax().IsZero());
  EXPECT_FALSE(job->ParseFromXML("<Employee/>"));
  EXPECT_FALSE(job->CreateFromXML(Root("<Employee/>")));
}

TEST(clsEmployment, ShowsANumberThatIsNone) {
  const WithRecordingHost host;
  Job job;
  EXPECT_FALSE(job.ParseFromXML(
      "<Employment><PayId>K-1</PayId><TaxWkOfApptOfDirector>40000</TaxWkOfApptOfDirector><OccPenInd/>"
      "</Employment>"));
  EXPECT_EQ(job.PayID(), "K-1");
  EXPECT_FALSE(job.OccPenInd());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployment: Function CreateFromXML: Error 6 - Overflow");
}

TEST(clsEmployment, ShowsAFailureOfWriting) {
  const WithRecordingHost host;
  Job job;
  EXPECT_FALSE(job.ToXML(nullptr, EMPLOYEE_GENDER::M));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsEmployment: Function ToXML: Error 91 - "
            "Object variable or With block variable not set");
}

TEST(clsEmployment, CreateStoresAllAndClearsEveryFlag) {
  const auto figures = std::make_shared<clsFiguresToDate>();
  const auto payment = std::make_shared<clsPayment>();
  const auto changed = std::make_shared<clsPayIdChgd>();
  const auto starter = std::make_shared<clsStarter>();
  const auto row = std::make_shared<clsNILettersAndValues>();
  const CollectionRef<clsNILettersAndValues> rows = MakeCollection<clsNILettersAndValues>();
  rows->Add(row);
  for (Record* each : std::initializer_list<Record*>{figures.get(), payment.get(), changed.get(),
                                                     starter.get(), row.get()}) {
    each->Validated(true);
  }
  Job job;
  job.Validated(true);
  job.Create("K-1", figures, payment, Date::FromParts(2026, 1, 31), rows, true, changed, starter);
  EXPECT_EQ(job.PayID(), "K-1");
  EXPECT_EQ(job.FiguresToDate(), figures);
  EXPECT_EQ(job.Payment(), payment);
  EXPECT_EQ(job.LeavingDate(), Date::FromParts(2026, 1, 31));
  EXPECT_EQ(job.NILettersAndValues(), rows);
  EXPECT_TRUE(job.IrrEmp());
  EXPECT_EQ(job.PayIDChange(), changed);
  EXPECT_EQ(job.Starter(), starter);
  EXPECT_FALSE(figures->Validated() || payment->Validated() || changed->Validated() || starter->Validated() ||
               row->Validated());
  job.Create("K-2", nullptr, nullptr);
  EXPECT_FALSE(job.Validated());
  EXPECT_FALSE(job.HasStarterInfo() || job.PayIDHasChanged() || job.IrrEmp());
  EXPECT_TRUE(job.LeavingDate().IsZero());
}

TEST(clsEmployment, IsValidatedWithItsChildren) {
  Job job;
  job.Create("", nullptr, nullptr);
  EXPECT_FALSE(job.IsValidated());
  job.Validated(true);
  EXPECT_TRUE(job.Validated());
  job.Starter();
  EXPECT_FALSE(job.IsValidated());
  job.Starter()->Validated(true);
  EXPECT_TRUE(job.IsValidated());
  job.PayIDChange();
  EXPECT_FALSE(job.IsValidated());
  job.PayIDChange()->Validated(true);
  EXPECT_TRUE(job.IsValidated());
  job.Payment();
  EXPECT_FALSE(job.IsValidated());
  job.Payment()->Validated(true);
  job.Payment()->TaxCode()->Validated(true);
  EXPECT_TRUE(job.IsValidated(eRTISUBMISSIONTYPE::IsFPS));
  EXPECT_TRUE(job.Validated());
}

TEST(clsEmployment, FiguresAndNIRowsCountInAnFPSAlone) {
  Job job;
  job.Create("", nullptr, nullptr);
  job.Validated(true);
  job.FiguresToDate();
  for (const auto type : {eRTISUBMISSIONTYPE::IsUndefined, eRTISUBMISSIONTYPE::IsEYU,
                          eRTISUBMISSIONTYPE::IsEAS, eRTISUBMISSIONTYPE::IsNVR}) {
    EXPECT_TRUE(job.IsValidated(type));
  }
  EXPECT_FALSE(job.IsValidated(eRTISUBMISSIONTYPE::IsFPS));
  EXPECT_FALSE(job.Validated());
  job.FiguresToDate()->Validated(true);
  EXPECT_TRUE(job.Validated());
  job.AddNILettersAndValues();
  EXPECT_TRUE(job.IsValidated());
  EXPECT_FALSE(job.IsValidated(eRTISUBMISSIONTYPE::IsFPS));
  EXPECT_FALSE(job.Validated());
}

TEST(clsEmployment, AChangeClearsValidated) {
  const auto job = [] {
    Job made;
    made.Create("", nullptr, nullptr);
    made.Validated(true);
    return made;
  };
  const auto clears = [&](const std::function<void(Job&)>& change) {
    Job changed = job();
    change(changed);
    return !changed.Validated();
  };
  EXPECT_TRUE(clears([](Job& each) { each.OccPenInd(true); }));
  EXPECT_TRUE(clears([](Job& each) { each.OffPayrollWorker(true); }));
  EXPECT_TRUE(clears([](Job& each) { each.DirectorsNIC(dnDIRECTORS_NIC::ednAnnual); }));
  EXPECT_TRUE(clears([](Job& each) { each.WkOrMonthNoDirectorAppt(1); }));
  EXPECT_TRUE(clears([](Job& each) { each.EmployeeWorkplacePostcode("X"); }));
  EXPECT_TRUE(clears([](Job& each) { each.PayID("X"); }));
  EXPECT_TRUE(clears([](Job& each) { each.IsNonIndividual(true); }));
  EXPECT_TRUE(clears([](Job& each) { each.IrrEmp(true); }));
  EXPECT_TRUE(clears([](Job& each) { each.LeavingDate(Date::FromParts(2026, 1, 31)); }));
  EXPECT_FALSE(clears([](Job& each) {
    each.OccPenInd(false);
    each.OffPayrollWorker(false);
    each.DirectorsNIC(dnDIRECTORS_NIC::ednNA);
    each.WkOrMonthNoDirectorAppt(0);
    each.EmployeeWorkplacePostcode("");
    each.PayID("");
    each.IsNonIndividual(false);
    each.IrrEmp(false);
    each.LeavingDate({});
  }));
  EXPECT_FALSE(clears([](Job& each) { each.IsExpat(true); }));
}

TEST(clsEmployment, WritesOfChildrenClearTheirFlagsAlone) {
  const auto starter = std::make_shared<clsStarter>();
  starter->Validated(true);
  Job job;
  job.Create("", nullptr, nullptr);
  job.Validated(true);
  job.Starter(starter);
  EXPECT_FALSE(starter->Validated());
  starter->Validated(true);
  EXPECT_TRUE(job.Validated());
}

TEST(clsEmployment, TellsItsStatus) {
  Job job;
  EXPECT_EQ(job.EmploymentStatus(), eEMPLOYEE_STATUS::eesCurrent);
  job.Starter();
  EXPECT_EQ(job.EmploymentStatus(), eEMPLOYEE_STATUS::eesNew);
  job.LeavingDate(Date::FromParts(1850, 1, 1));
  EXPECT_EQ(job.EmploymentStatus(), eEMPLOYEE_STATUS::eesLeaver);
}

TEST(clsEmployment, TellsWhetherAnyPayIsSubjectToNIC) {
  Job job;
  EXPECT_FALSE(job.HasGrossNIablePayments());
  job.AddNILettersAndValues();
  EXPECT_FALSE(job.HasGrossNIablePayments());
  job.AddNILettersAndValues()->PaySubjectToNIC(Currency(-1));
  job.AddNILettersAndValues();
  EXPECT_TRUE(job.HasGrossNIablePayments());
}

TEST(clsEmployment, DoesNotKeepItsEmployeeAlive) {
  auto employee = std::make_shared<clsEmployee>();
  const Ref<Job> job = employee->AddEmployment();
  EXPECT_EQ(job->Parent(), employee);
  employee.reset();
  EXPECT_EQ(job->Parent(), nullptr);
}

TEST(clsEmployment, TextComesBack) {
  for (const String& text : TextsThatComeBack()) {
    Job job;
    job.PayID(text);
    job.EmployeeWorkplacePostcode(text);
    Job again;
    EXPECT_TRUE(again.CreateFromXML(WrittenIn(kFPS, job)));
    EXPECT_EQ(again.PayID(), text);
    EXPECT_EQ(again.EmployeeWorkplacePostcode(), text);
  }
}

TEST(clsEmployment, WritingWhatWasReadChangesNothing) {
  for (const String& section : {kFPS, kNVR}) {
    const XmlNode once = WrittenIn(section, *FullJob());
    Job again;
    EXPECT_TRUE(again.CreateFromXML(once));
    EXPECT_EQ(Outline(WrittenIn(section, again)), Outline(once));
  }
}
