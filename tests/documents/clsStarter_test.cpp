// The starter record with its secondment and pensions, and the changed payroll ID.

#include "zelnor/documents/clsStarter.h"

#include "zelnor/documents/clsPayIdChgd.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

// What holds of both pensions; they differ in the name of their element.
template <class T>
void ExpectPensionKeepsItsTable(const String& root) {
  const String start = "<" + root + ">";
  const String end = "</" + root + ">";
  T pension;
  EXPECT_EQ(pension.RootElementName(), root);
  EXPECT_EQ(Written(pension), start + "<Amount>0.00</Amount>" + end);
  pension.Validated(true);
  pension.Create(Currency(4200.505), true);
  EXPECT_FALSE(pension.Validated());
  EXPECT_EQ(Written(pension), start + "<Bereaved>yes</Bereaved><Amount>4200.51</Amount>" + end);
  pension.Bereaved(false);
  EXPECT_EQ(ParentAfterWriting(pension, "<P>" + start + "<Amount>1</Amount><Bereaved/>" + end + "</P>"),
            "<P>" + start + "<Amount>4200.51</Amount>" + end + "</P>");

  EXPECT_TRUE(pension.CreateFromXML(Root(start + "<Amount>-12.5</Amount><Bereaved>no</Bereaved>" + end)));
  EXPECT_EQ(pension.Amount(), Currency(-12.5));
  EXPECT_TRUE(pension.Bereaved());
  EXPECT_TRUE(pension.ParseFromXML(start + end));
  EXPECT_TRUE(pension.Amount().IsZero());
  EXPECT_FALSE(pension.Bereaved());

  pension.Create(Currency(5), true);
  EXPECT_FALSE(pension.CreateFromXML(Root("<Other><Amount>7</Amount></Other>")));
  EXPECT_TRUE(pension.Amount().IsZero());
  EXPECT_FALSE(pension.ParseFromXML("<Other/>"));
  EXPECT_FALSE(pension.ParseFromXML("no text of XML"));

  ExpectChangeClearsValidated<T, Currency, Currency>(&T::Amount, &T::Amount, 1, 2);
  ExpectChangeClearsValidated<T, bool, bool>(&T::Bereaved, &T::Bereaved, true, false);
}

String Seconded(SECONDMENT_LENGTH length) {
  clsSeconded seconded;
  seconded.Create(length, false, false);
  return Written(seconded);
}

String StarterWritten(Date start) {
  clsStarter starter;
  starter.StartDate(start);
  return Written(starter);
}

}  // namespace

TEST(clsOccPension, KeepsItsTable) { ExpectPensionKeepsItsTable<clsOccPension>("OccPension"); }
TEST(clsStatePension, KeepsItsTable) { ExpectPensionKeepsItsTable<clsStatePension>("StatePension"); }

TEST(clsOccPension, ShowsAnAmountThatIsNoNumber) {
  const WithRecordingHost host;
  clsOccPension pension;
  EXPECT_FALSE(pension.CreateFromXML(Root("<OccPension><Bereaved/><Amount>much</Amount></OccPension>")));
  EXPECT_TRUE(pension.Bereaved());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsOccPension: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsStatePension, ShowsAnAmountThatIsNoNumberUnderItsOwnName) {
  const WithRecordingHost host;
  clsStatePension pension;
  EXPECT_FALSE(pension.CreateFromXML(Root("<StatePension><Amount/></StatePension>")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsStatePension: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsSeconded, WritesTheLengthAsAnElementOfItsOwn) {
  EXPECT_EQ(Seconded(SECONDMENT_LENGTH::StayOver6Months),
            "<Seconded><Stay183DaysOrMore>yes</Stay183DaysOrMore></Seconded>");
  EXPECT_EQ(Seconded(SECONDMENT_LENGTH::StayLessThan6Months),
            "<Seconded><StayLessThan183Days>yes</StayLessThan183Days></Seconded>");
  EXPECT_EQ(Seconded(SECONDMENT_LENGTH::InOutUK), "<Seconded><InOutUK>yes</InOutUK></Seconded>");
  EXPECT_EQ(Seconded(SECONDMENT_LENGTH::Undefined), "<Seconded><InOutUK>yes</InOutUK></Seconded>");
}

TEST(clsSeconded, RemovesWhatNoLongerHolds) {
  clsSeconded seconded;
  seconded.Create(SECONDMENT_LENGTH::StayLessThan6Months, true, true);
  EXPECT_EQ(Written(seconded),
            "<Seconded><StayLessThan183Days>yes</StayLessThan183Days><EEACitizen>yes</EEACitizen>"
            "<EPM6>yes</EPM6></Seconded>");
  seconded.IsCitizenOfEEAOrCommonwealth(false);
  seconded.IsEPM6(false);
  EXPECT_EQ(ParentAfterWriting(seconded,
                               "<P><Seconded><Stay183DaysOrMore/><StayLessThan183Days/><InOutUK/>"
                               "<EEACitizen/><EPM6/></Seconded></P>"),
            "<P><Seconded><StayLessThan183Days>yes</StayLessThan183Days></Seconded></P>");
}

TEST(clsSeconded, ReadsTheLastLengthAndFlagsByPresence) {
  const auto seconded = Read<clsSeconded>(
      "<Seconded><InOutUK>yes</InOutUK><EPM6>no</EPM6><StayLessThan183Days/><EEACitizen/></Seconded>");
  EXPECT_EQ(seconded->SecondmentLength(), SECONDMENT_LENGTH::StayLessThan6Months);
  EXPECT_TRUE(seconded->IsEPM6());
  EXPECT_TRUE(seconded->IsCitizenOfEEAOrCommonwealth());
  EXPECT_EQ(Read<clsSeconded>("<Seconded><Stay183DaysOrMore/></Seconded>")->SecondmentLength(),
            SECONDMENT_LENGTH::StayOver6Months);
  EXPECT_EQ(Read<clsSeconded>("<Seconded><InOutUK/></Seconded>")->SecondmentLength(),
            SECONDMENT_LENGTH::InOutUK);
}

TEST(clsSeconded, ReadingClearsTheFlagsAndNotTheLength) {
  clsSeconded seconded;
  seconded.Create(SECONDMENT_LENGTH::StayOver6Months, true, true);
  seconded.Validated(true);
  EXPECT_TRUE(seconded.ParseFromXML("<Seconded/>"));
  EXPECT_EQ(seconded.SecondmentLength(), SECONDMENT_LENGTH::StayOver6Months);
  EXPECT_FALSE(seconded.IsCitizenOfEEAOrCommonwealth());
  EXPECT_FALSE(seconded.IsEPM6());
  EXPECT_FALSE(seconded.Validated());
  EXPECT_FALSE(seconded.ParseFromXML("<Starter/>"));
  EXPECT_EQ(seconded.RootElementName(), "Seconded");
}

TEST(clsSeconded, AChangeClearsValidated) {
  ExpectChangeClearsValidated<clsSeconded, SECONDMENT_LENGTH, SECONDMENT_LENGTH>(
      &clsSeconded::SecondmentLength, &clsSeconded::SecondmentLength, SECONDMENT_LENGTH::InOutUK,
      SECONDMENT_LENGTH::Undefined);
  ExpectChangeClearsValidated<clsSeconded, bool, bool>(
      &clsSeconded::IsCitizenOfEEAOrCommonwealth, &clsSeconded::IsCitizenOfEEAOrCommonwealth, true, false);
  ExpectChangeClearsValidated<clsSeconded, bool, bool>(&clsSeconded::IsEPM6, &clsSeconded::IsEPM6, true,
                                                       false);
}

TEST(clsStarter, WritesItsTableInOrder) {
  const auto seconded = std::make_shared<clsSeconded>();
  const auto occupational = std::make_shared<clsOccPension>();
  const auto state = std::make_shared<clsStatePension>();
  clsStarter starter;
  starter.Create(Date::FromParts(2025, 5, 12), STARTER_DECLARATION::MyFirstJob, true, seconded, occupational,
                 state, true);
  EXPECT_EQ(Written(starter),
            "<Starter><StartDate>2025-05-12</StartDate><StartDec>A</StartDec><StudentLoan>yes</StudentLoan>"
            "<PostgradLoan>yes</PostgradLoan><Seconded><InOutUK>yes</InOutUK></Seconded>"
            "<OccPension><Amount>0.00</Amount></OccPension>"
            "<StatePension><Amount>0.00</Amount></StatePension></Starter>");
}

TEST(clsStarter, EmptiesItsElementBeforeWriting) {
  clsStarter starter;
  EXPECT_EQ(ParentAfterWriting(starter,
                               "<P><Starter><StartDate/><StartDec/><StudentLoan/><PostgradLoan/><Seconded/>"
                               "<OccPension/><StatePension/><Else/></Starter></P>"),
            "<P><Starter></Starter></P>");
}

TEST(clsStarter, WritesAStartDateLaterThanTheFirstDayOf1901) {
  EXPECT_EQ(StarterWritten(Date::FromParts(1901, 1, 1)), "<Starter></Starter>");
  EXPECT_EQ(StarterWritten(Date::FromParts(1901, 1, 2)),
            "<Starter><StartDate>1901-01-02</StartDate></Starter>");
}

TEST(clsStarter, TakesDeclarationsByLetter) {
  const std::vector<std::pair<String, STARTER_DECLARATION>> letters = {
      {"A", STARTER_DECLARATION::MyFirstJob},
      {"B", STARTER_DECLARATION::MyOnlyCurrentJob},
      {"C", STARTER_DECLARATION::HaveAnotherJobOrPension}};
  for (const auto& [letter, declaration] : letters) {
    clsStarter starter;
    starter.StarterDeclaration(declaration);
    EXPECT_EQ(Written(starter), "<Starter><StartDec>" + letter + "</StartDec></Starter>");
    EXPECT_EQ(
        Read<clsStarter>("<Starter><StartDec>" + letter + "</StartDec></Starter>")->StarterDeclaration(),
        declaration);
  }
  EXPECT_EQ(Read<clsStarter>("<Starter><StartDec>b</StartDec></Starter>")->StarterDeclaration(),
            STARTER_DECLARATION::MyOnlyCurrentJob);
  EXPECT_EQ(Read<clsStarter>("<Starter><StartDec>D</StartDec></Starter>")->StarterDeclaration(),
            STARTER_DECLARATION::Undefined);
}

TEST(clsStarter, ReadsAsDeclarationCWithoutOne) {
  EXPECT_EQ(Read<clsStarter>("<Starter/>")->StarterDeclaration(),
            STARTER_DECLARATION::HaveAnotherJobOrPension);
}

TEST(clsStarter, RefusesANodeOfAnotherName) {
  clsStarter starter;
  EXPECT_FALSE(starter.CreateFromXML(Root("<x:Starter xmlns:x='u'><x:StudentLoan/></x:Starter>")));
  EXPECT_FALSE(starter.StudentLoan());
  EXPECT_EQ(starter.RootElementName(), "Starter");
}

TEST(clsStarter, ReadsEveryElement) {
  const auto starter = Read<clsStarter>(
      "<Starter><StatePension><Amount>2</Amount></StatePension><OccPension><Amount>1</Amount></OccPension>"
      "<Seconded><EPM6/></Seconded><PostgradLoan>no</PostgradLoan><StudentLoan/>"
      "<StartDate>2025-05-12</StartDate></Starter>");
  EXPECT_EQ(starter->StartDate(), Date::FromParts(2025, 5, 12));
  EXPECT_TRUE(starter->StudentLoan());
  EXPECT_TRUE(starter->PostgradLoan());
  EXPECT_TRUE(starter->Seconded()->IsEPM6());
  EXPECT_EQ(starter->OccPension()->Amount(), Currency(1));
  EXPECT_EQ(starter->StatePension()->Amount(), Currency(2));
}

TEST(clsStarter, ReadingClearsWhatTheNodeLacks) {
  clsStarter starter;
  starter.Create(Date::FromParts(2025, 5, 12), STARTER_DECLARATION::MyFirstJob, true,
                 std::make_shared<clsSeconded>(), std::make_shared<clsOccPension>(),
                 std::make_shared<clsStatePension>(), true);
  EXPECT_TRUE(starter.ParseFromXML("<Starter/>"));
  EXPECT_TRUE(starter.StartDate().IsZero());
  EXPECT_FALSE(starter.StudentLoan() || starter.PostgradLoan() || starter.IsSeconded() ||
               starter.HasOccPension() || starter.HasStatePension());
  EXPECT_FALSE(starter.ParseFromXML("<?xml version='1.0'?><Starter/>"));
}

TEST(clsStarter, ShowsADateThatIsNone) {
  const WithRecordingHost host;
  clsStarter starter;
  EXPECT_FALSE(starter.CreateFromXML(Root("<Starter><StudentLoan/><StartDate>soon</StartDate></Starter>")));
  EXPECT_TRUE(starter.StudentLoan());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsStarter: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsStarter, MakesChildrenWhenRead) {
  clsStarter starter;
  EXPECT_FALSE(starter.IsSeconded() || starter.HasOccPension() || starter.HasStatePension());
  EXPECT_NE(starter.Seconded(), nullptr);
  EXPECT_NE(starter.OccPension(), nullptr);
  EXPECT_NE(starter.StatePension(), nullptr);
  EXPECT_TRUE(starter.IsSeconded() && starter.HasOccPension() && starter.HasStatePension());
}

TEST(clsStarter, IsValidatedWithAllItsChildren) {
  const auto seconded = std::make_shared<clsSeconded>();
  const auto occupational = std::make_shared<clsOccPension>();
  const auto state = std::make_shared<clsStatePension>();
  clsStarter starter;
  starter.Validated(true);
  EXPECT_TRUE(starter.Validated());
  for (Record* child : {static_cast<Record*>(seconded.get()), static_cast<Record*>(occupational.get()),
                        static_cast<Record*>(state.get())}) {
    child->Validated(true);
  }
  starter.Seconded(seconded);
  EXPECT_FALSE(starter.Validated());
  seconded->Validated(true);
  EXPECT_TRUE(starter.Validated());
  starter.OccPension(occupational);
  EXPECT_FALSE(starter.Validated());
  occupational->Validated(true);
  EXPECT_TRUE(starter.Validated());
  starter.StatePension(state);
  EXPECT_FALSE(starter.Validated());
  state->Validated(true);
  EXPECT_TRUE(starter.Validated());
}

TEST(clsStarter, AChangeClearsValidated) {
  ExpectChangeClearsValidated<clsStarter, Date, Date>(&clsStarter::StartDate, &clsStarter::StartDate,
                                                      Date::FromParts(2025, 5, 12), Date());
  ExpectChangeClearsValidated<clsStarter, bool, bool>(&clsStarter::StudentLoan, &clsStarter::StudentLoan,
                                                      true, false);
  ExpectChangeClearsValidated<clsStarter, bool, bool>(&clsStarter::PostgradLoan, &clsStarter::PostgradLoan,
                                                      true, false);
  ExpectChangeClearsValidated<clsStarter, STARTER_DECLARATION, STARTER_DECLARATION>(
      &clsStarter::StarterDeclaration, &clsStarter::StarterDeclaration, STARTER_DECLARATION::MyFirstJob,
      STARTER_DECLARATION::Undefined);
}

TEST(clsPayIdChgd, WritesItsElementOnlyForAChange) {
  clsPayIdChgd changed;
  changed.Create(true, "K-1");
  EXPECT_EQ(Written(changed),
            "<PayIdChgd><PayrollIdChangedIndicator>yes</PayrollIdChangedIndicator>"
            "<OldPayrollId>K-1</OldPayrollId></PayIdChgd>");
  changed.Changed(false);
  EXPECT_EQ(ParentAfterWriting(changed, "<P><PayIdChgd/><Other/><PayIdChgd/></P>"), "<P><Other></Other></P>");
  EXPECT_FALSE(changed.ToXML(Root("<P/>")));
}

TEST(clsPayIdChgd, LeavesAnOldPayrollIdThatIsThere) {
  clsPayIdChgd changed;
  changed.Create(true);
  EXPECT_EQ(ParentAfterWriting(changed, "<P><PayIdChgd><OldPayrollId>K-1</OldPayrollId></PayIdChgd></P>"),
            "<P><PayIdChgd><OldPayrollId>K-1</OldPayrollId>"
            "<PayrollIdChangedIndicator>yes</PayrollIdChangedIndicator></PayIdChgd></P>");
}

TEST(clsPayIdChgd, ReadsItsTable) {
  clsPayIdChgd changed;
  EXPECT_TRUE(changed.ParseFromXML(
      "<PayIdChgd><OldPayrollId>K-1</OldPayrollId><PayrollIdChangedIndicator>no</PayrollIdChangedIndicator>"
      "</PayIdChgd>"));
  EXPECT_TRUE(changed.Changed());
  EXPECT_EQ(changed.OldId(), "K-1");
  EXPECT_TRUE(changed.CreateFromXML(Root("<PayIdChgd/>")));
  EXPECT_FALSE(changed.Changed());
  EXPECT_EQ(changed.OldId(), "");
  EXPECT_FALSE(changed.CreateFromXML(Root("<PayIdChanged/>")));
  EXPECT_EQ(changed.RootElementName(), "PayIdChgd");
}

TEST(clsPayIdChgd, OnlyTheOldIdClearsValidated) {
  ExpectTextChangeClearsValidated<clsPayIdChgd>(&clsPayIdChgd::OldId, &clsPayIdChgd::OldId);
  clsPayIdChgd changed;
  changed.Validated(true);
  changed.Changed(true);
  EXPECT_TRUE(changed.Validated());
  EXPECT_TRUE(changed.Changed());
}

TEST(clsPayIdChgd, TheOldIdComesBack) {
  for (const String& text : TextsThatComeBack()) {
    clsPayIdChgd changed;
    changed.Create(true, text);
    EXPECT_EQ(Read<clsPayIdChgd>(Written(changed))->OldId(), text);
  }
}
