#include "zelnor/documents/clsSectionIRHeader.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const Date kPeriodEnd = Date::FromParts(2026, 4, 5);

// The text of one element that the header writes.
String WrittenIn(clsSectionIRHeader& header, const char* name) {
  return header.ToXML(Root("<Parent/>")).FindChild(name).Text();
}

}  // namespace

TEST(clsSectionIRHeader, ANewOneHoldsAnEmptyMarkAndNothingElse) {
  clsSectionIRHeader header;
  EXPECT_FALSE(header.HasPrincipalContact());
  EXPECT_FALSE(header.HasDocIRMarkValue());
  EXPECT_EQ(header.KeyCount(), 0);
  header.PeriodEndDate(kPeriodEnd);
  EXPECT_EQ(Written(header),
            "<IRheader><Keys></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal></Principal>"
            "<IRmark Type=\"generic\"></IRmark><Sender>Individual</Sender></IRheader>");
}

TEST(clsSectionIRHeader, WritesEveryRowOfItsTableInOrder) {
  const auto keys = MakeCollection<clsKey>();
  const auto contact = std::make_shared<clsContact>();
  contact->CreateContactName("", "Petra", "Oakshott");
  const auto agent = std::make_shared<clsAgent>();
  agent->Create("A", "B");
  const auto mark = std::make_shared<clsIRMark>();
  mark->Create("MARK=", IR_MARK_TYPE::generic);
  clsSectionIRHeader header;
  header.Create(kPeriodEnd, enmSender::IsBureau, "gbp", keys, contact, agent, mark);
  header.AddKey("TaxOfficeNumber", "527");
  header.AddKey("TaxOfficeReference", "AS90316");
  EXPECT_EQ(Written(header),
            "<IRheader><Keys><Key Type=\"TaxOfficeNumber\">527</Key><Key Type=\"TaxOfficeReference\">AS90316"
            "</Key></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal><Contact><Name><Fore>Petra</Fore>"
            "<Sur>Oakshott</Sur></Name></Contact></Principal><Agent><AgentID>A</AgentID><Company>B</Company>"
            "</Agent><DefaultCurrency>GBP</DefaultCurrency><IRmark Type=\"generic\">MARK=</IRmark>"
            "<Sender>Bureau</Sender></IRheader>");
}

TEST(clsSectionIRHeader, EmptiesItsElementBeforeWriting) {
  clsSectionIRHeader header;
  header.PeriodEndDate(kPeriodEnd);
  EXPECT_EQ(
      ParentAfterWriting(header, "<P><IRheader><Sender>X</Sender><Agent/><DefaultCurrency/></IRheader></P>"),
      "<P><IRheader><Keys></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal></Principal>"
      "<IRmark Type=\"generic\"></IRmark><Sender>Individual</Sender></IRheader></P>");
}

TEST(clsSectionIRHeader, TheCurrencyIsWrittenInCapitalsAndLeftOutWhenEmpty) {
  clsSectionIRHeader header;
  header.DefaultCurrencyType("gbp");
  EXPECT_EQ(WrittenIn(header, "DefaultCurrency"), "GBP");
  EXPECT_EQ(header.DefaultCurrencyType(), "gbp");
  header.DefaultCurrencyType("");
  EXPECT_FALSE(header.ToXML(Root("<P/>")).FindChild("DefaultCurrency"));
}

TEST(clsSectionIRHeader, WritesAndReadsEachSender) {
  const std::vector<std::pair<enmSender, String>> senders = {
      {enmSender::IsIndividual, "Individual"},
      {enmSender::IsCompany, "Company"},
      {enmSender::IsAgent, "Agent"},
      {enmSender::IsBureau, "Bureau"},
      {enmSender::IsPartnership, "Partnership"},
      {enmSender::IsTrust, "Trust"},
      {enmSender::IsEmployer, "Employer"},
      {enmSender::IsGovernment, "Government"},
      {enmSender::IsOther, "Other"},
      {enmSender::IsActinginCapacity, "Acting In Capacity"}};
  for (const auto& [sender, text] : senders) {
    clsSectionIRHeader header;
    header.SenderType(sender);
    EXPECT_EQ(WrittenIn(header, "Sender"), text);
    EXPECT_EQ(Read<clsSectionIRHeader>("<IRheader><Sender>" + text + "</Sender></IRheader>")->SenderType(),
              sender);
  }
}

TEST(clsSectionIRHeader, AnUnknownSenderIsOtherAndCaseDoesNotMatter) {
  clsSectionIRHeader header;
  header.SenderType(static_cast<enmSender>(42));
  EXPECT_EQ(WrittenIn(header, "Sender"), "Other");
  header.SenderType(static_cast<enmSender>(-1));
  EXPECT_EQ(WrittenIn(header, "Sender"), "Other");
  EXPECT_EQ(Read<clsSectionIRHeader>("<IRheader><Sender>tRUST</Sender></IRheader>")->SenderType(),
            enmSender::IsTrust);
  EXPECT_EQ(Read<clsSectionIRHeader>("<IRheader><Sender/></IRheader>")->SenderType(), enmSender::IsOther);
}

TEST(clsSectionIRHeader, ReadsEveryRowOfItsTable) {
  const auto header = Read<clsSectionIRHeader>(
      "<IRheader><Keys><Key Type=\"A\">1</Key><Other/><Key Type=\"B\">2</Key></Keys>"
      "<PeriodEnd>2026-04-05</PeriodEnd><Principal><Contact><Email>1@a</Email></Contact></Principal>"
      "<Agent><Company>C</Company></Agent><DefaultCurrency>gbp</DefaultCurrency>"
      "<IRmark Type=\"generic\">M</IRmark><Sender>Employer</Sender></IRheader>");
  ASSERT_EQ(header->KeyCount(), 2);
  EXPECT_EQ(header->KeyCollection()->Item(2)->KeyType(), "B");
  EXPECT_EQ(header->KeyCollection()->Item(2)->KeyValue(), "2");
  EXPECT_EQ(header->PeriodEndDate(), kPeriodEnd);
  EXPECT_TRUE(header->HasPrincipalContact());
  EXPECT_EQ(header->PrincipalContact()->EmailAddresses()->Count(), 1);
  EXPECT_EQ(header->AgentDetails()->Company(), "C");
  EXPECT_EQ(header->DefaultCurrencyType(), "gbp");
  EXPECT_TRUE(header->HasDocIRMarkValue());
  EXPECT_EQ(header->DocIRMark()->value(), "M");
  EXPECT_EQ(header->SenderType(), enmSender::IsEmployer);
}

TEST(clsSectionIRHeader, ThePeriodEndIsAPlainDate) {
  EXPECT_EQ(Read<clsSectionIRHeader>("<IRheader><PeriodEnd>5/4/2026</PeriodEnd></IRheader>")->PeriodEndDate(),
            kPeriodEnd);
}

TEST(clsSectionIRHeader, APeriodEndThatIsNoDateEndsTheReading) {
  const WithRecordingHost host;
  clsSectionIRHeader header;
  header.SenderType(enmSender::IsBureau);
  EXPECT_FALSE(
      header.CreateFromXML(Root("<IRheader><DefaultCurrency>GBP</DefaultCurrency><PeriodEnd>soon"
                                "</PeriodEnd><Sender>Trust</Sender></IRheader>")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsSectionIRHeader: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(header.DefaultCurrencyType(), "GBP");
  EXPECT_EQ(header.SenderType(), enmSender::IsBureau);
}

TEST(clsSectionIRHeader, APrincipalWithoutAContactInFrontGivesAnEmptyContact) {
  for (const char* principal :
       {"<Principal/>", "<Principal><X/><Contact><Email>1@a</Email></Contact></Principal>",
        "<Principal><!-- x --><Contact><Email>1@a</Email></Contact></Principal>"}) {
    const auto header = Read<clsSectionIRHeader>(String("<IRheader>") + principal + "</IRheader>");
    EXPECT_TRUE(header->HasPrincipalContact()) << principal;
    EXPECT_EQ(header->PrincipalContact()->EmailAddresses()->Count(), 0) << principal;
  }
}

TEST(clsSectionIRHeader, ReadingDropsAllButPeriodEndAndSender) {
  const auto header = Read<clsSectionIRHeader>(
      "<IRheader><Keys><Key>1</Key></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal/><Agent/>"
      "<DefaultCurrency>GBP</DefaultCurrency><IRmark>M</IRmark><Sender>Employer</Sender></IRheader>");
  header->Validated(true);
  const auto agent = header->AgentDetails();
  EXPECT_TRUE(header->CreateFromXML(Root("<IRheader/>")));
  EXPECT_EQ(header->KeyCount(), 0);
  EXPECT_FALSE(header->HasPrincipalContact());
  EXPECT_NE(header->AgentDetails(), agent);
  EXPECT_EQ(header->DefaultCurrencyType(), "");
  EXPECT_FALSE(header->HasDocIRMarkValue());
  EXPECT_EQ(header->PeriodEndDate(), kPeriodEnd);
  EXPECT_EQ(header->SenderType(), enmSender::IsEmployer);
  EXPECT_FALSE(header->Validated());
}

TEST(clsSectionIRHeader, WithoutAMarkTheWriteEndsBehindTheCurrency) {
  const WithRecordingHost host;
  const auto header = Read<clsSectionIRHeader>(
      "<IRheader><PeriodEnd>2026-04-05</PeriodEnd><DefaultCurrency>GBP</DefaultCurrency></IRheader>");
  EXPECT_EQ(Written(*header),
            "<IRheader><Keys></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal></Principal>"
            "<DefaultCurrency>GBP</DefaultCurrency></IRheader>");
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(
      host->messages[0].text,
      "Error in ZELNOR.dll::clsSectionIRHeader: Function ToXML: Error 91 - Object variable or With block "
      "variable not set");
}

TEST(clsSectionIRHeader, AReadOfTheMarkMakesOneSoThatTheWriteGoesThrough) {
  const WithRecordingHost host;
  const auto header = Read<clsSectionIRHeader>("<IRheader/>");
  EXPECT_EQ(header->DocIRMark()->value(), "");
  EXPECT_EQ(WrittenIn(*header, "Sender"), "Individual");
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsSectionIRHeader, AMarkIsStoredWithItsFlagClearedAndNoneIsAccepted) {
  clsSectionIRHeader header;
  const auto mark = std::make_shared<clsIRMark>();
  mark->Create("M", IR_MARK_TYPE::generic);
  mark->Validated(true);
  header.SetDocIRMark(mark);
  EXPECT_EQ(header.DocIRMark(), mark);
  EXPECT_FALSE(mark->Validated());
  EXPECT_TRUE(header.HasDocIRMarkValue());
  mark->value("");
  EXPECT_FALSE(header.HasDocIRMarkValue());
  header.SetDocIRMark(nullptr);
  EXPECT_FALSE(header.HasDocIRMarkValue());
  EXPECT_NE(header.DocIRMark(), mark);
}

TEST(clsSectionIRHeader, CreateStoresAbsenceAsWell) {
  const WithRecordingHost host;
  clsSectionIRHeader header;
  header.AddKey("A", "1");
  header.PrincipalContact();
  header.Validated(true);
  header.Create(kPeriodEnd, enmSender::IsEmployer);
  EXPECT_EQ(header.KeyCount(), 0);
  EXPECT_FALSE(header.HasPrincipalContact());
  EXPECT_FALSE(header.Validated());
  EXPECT_FALSE(header.ToXML(Root("<P/>")).FindChild("Sender"));
  EXPECT_EQ(host->messages.size(), 1U);
}

TEST(clsSectionIRHeader, AddKeyAddsAPairOnceAndSaysTrueBothTimes) {
  clsSectionIRHeader header;
  header.DocIRMark()->Validated(true);
  EXPECT_TRUE(header.AddKey("A", "1"));
  EXPECT_TRUE(header.AddKey("A", "1"));
  EXPECT_TRUE(header.AddKey("A", "2"));
  EXPECT_TRUE(header.AddKey("B", "1"));
  EXPECT_TRUE(header.AddKey("a", "1"));
  ASSERT_EQ(header.KeyCount(), 4);
  EXPECT_EQ(header.KeyCollection()->Item(4)->KeyType(), "a");
  EXPECT_EQ(header.KeyCollection()->Item(4)->KeyValue(), "1");
}

TEST(clsSectionIRHeader, RemoveKeyTakesTheFirstEqualPair) {
  clsSectionIRHeader header;
  EXPECT_FALSE(header.RemoveKey("A", "1"));
  header.AddKey("A", "1");
  header.AddKey("A", "2");
  EXPECT_FALSE(header.RemoveKey("A", "3"));
  EXPECT_FALSE(header.RemoveKey("B", "1"));
  EXPECT_TRUE(header.RemoveKey("A", "1"));
  ASSERT_EQ(header.KeyCount(), 1);
  EXPECT_EQ(header.KeyCollection()->Item(1)->KeyValue(), "2");
}

TEST(clsSectionIRHeader, KeysComeAndGoWithoutTouchingTheFlag) {
  clsSectionIRHeader header;
  header.DocIRMark()->Validated(true);
  header.Validated(true);
  header.AddKey("A", "1");
  EXPECT_FALSE(header.Validated());  // by the new key's own flag
  header.KeyCollection()->Item(1)->Validated(true);
  EXPECT_TRUE(header.Validated());
  header.RemoveKey("A", "1");
  EXPECT_TRUE(header.Validated());
}

TEST(clsSectionIRHeader, IsValidatedWhenItselfAndAllThatItHoldsAre) {
  clsSectionIRHeader header;
  header.AddKey("A", "1");
  header.PrincipalContact()->ContactName()->Validated(true);
  const std::vector<Record*> held = {&header, header.KeyCollection()->Item(1).get(),
                                     header.PrincipalContact().get(), header.AgentDetails().get(),
                                     header.DocIRMark().get()};
  for (Record* each : held) each->Validated(true);
  EXPECT_TRUE(header.Validated());
  for (Record* each : held) {
    each->Validated(false);
    EXPECT_FALSE(header.Validated());
    each->Validated(true);
  }
}

TEST(clsSectionIRHeader, WritesOfChildrenClearTheChildrensFlags) {
  clsSectionIRHeader header;
  const auto contact = std::make_shared<clsContact>();
  contact->ContactName()->Validated(true);
  contact->Validated(true);
  header.SetPrincipal(contact);
  EXPECT_EQ(header.PrincipalContact(), contact);
  EXPECT_FALSE(contact->Validated());
  const auto agent = std::make_shared<clsAgent>();
  agent->Validated(true);
  header.SetAgent(agent);
  EXPECT_EQ(header.AgentDetails(), agent);
  EXPECT_FALSE(agent->Validated());
  header.PrincipalContact(nullptr);
  EXPECT_FALSE(header.HasPrincipalContact());
}

TEST(clsSectionIRHeader, DateCurrencyAndSenderFollowTheRuleOfChange) {
  clsSectionIRHeader header;
  header.DocIRMark()->Validated(true);
  header.Validated(true);
  header.SetPeriodEnd(header.PeriodEndDate());
  header.SetSender(header.SenderType());
  header.DefaultCurrencyType("");
  EXPECT_TRUE(header.Validated());
  header.SetPeriodEnd(kPeriodEnd);
  EXPECT_EQ(header.PeriodEndDate(), kPeriodEnd);
  EXPECT_FALSE(header.Validated());
  header.Validated(true);
  header.SetSender(enmSender::IsTrust);
  EXPECT_EQ(header.SenderType(), enmSender::IsTrust);
  EXPECT_FALSE(header.Validated());
  header.Validated(true);
  header.DefaultCurrencyType("GBP");
  EXPECT_FALSE(header.Validated());
}

TEST(clsSectionIRHeader, WritingWhatWasReadChangesNothingTheSecondTime) {
  const auto header = Read<clsSectionIRHeader>(
      "<IRheader><Keys><Key Type=\"A\">1</Key></Keys><PeriodEnd>2026-04-05</PeriodEnd><Principal><Contact>"
      "<Name><Sur>S</Sur></Name></Contact></Principal><DefaultCurrency>gbp</DefaultCurrency>"
      "<IRmark Type=\"SAonly\">M</IRmark><Sender>bureau</Sender></IRheader>");
  const String once = Written(*header);
  EXPECT_EQ(Written(*Read<clsSectionIRHeader>(once)), once);
}

TEST(clsSectionIRHeader, ParsesTextWithoutDeclarationOnly) {
  clsSectionIRHeader header;
  EXPECT_TRUE(header.ParseFromXML("<IRheader><Sender>Trust</Sender></IRheader>"));
  EXPECT_FALSE(header.ParseFromXML("<?xml version=\"1.0\"?><IRheader><Sender>Agent</Sender></IRheader>"));
  EXPECT_FALSE(header.ParseFromXML("<IRHeader/>"));
  EXPECT_EQ(header.SenderType(), enmSender::IsTrust);
  EXPECT_EQ(header.RootElementName(), "IRheader");
}
