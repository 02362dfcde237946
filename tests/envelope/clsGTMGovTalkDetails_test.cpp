// The envelope's details, with target, validation and errors in them.

#include "zelnor/envelope/clsGTMGovTalkDetails.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const Date kMoment = Date::FromParts(2026, 5, 6).WithTimeOf(Date::FromTime(10, 11, 12));
const Date kNow = Date::FromParts(2026, 11, 21);

Long EmployeeIndexAt(const String& location) {
  clsGTMGovTalkError error;
  error.Location(location);
  return error.EmployeeIndex();
}

}  // namespace

TEST(clsGTMTargetDetails, IsToBeCheckedAgainWithOneMoreOrganisation) {
  clsGTMTargetDetails target;
  target.Validated(true);
  target.AddOrganisation("IR");
  EXPECT_FALSE(target.Validated());
}

TEST(clsGTMTargetDetails, WritesOneElementForEachOrganisation) {
  clsGTMTargetDetails target;
  target.AddOrganisation("IR");
  target.AddOrganisation("DWP");
  EXPECT_EQ(
      ParentAfterWriting(target,
                         "<P xmlns=\"urn:p\"><TargetDetails><Organisation>X</Organisation>"
                         "</TargetDetails></P>"),
      "<P xmlns=\"urn:p\"><TargetDetails><Organisation>IR</Organisation><Organisation>DWP</Organisation>"
      "</TargetDetails></P>");
}

TEST(clsGTMTargetDetails, WithoutOrganisationsItsElementIsRemoved) {
  clsGTMTargetDetails target;
  EXPECT_EQ(ParentAfterWriting(target, "<P><TargetDetails><Organisation/></TargetDetails></P>"), "<P></P>");
  EXPECT_FALSE(target.ToXML(Root("<P/>")));
}

TEST(clsGTMTargetDetails, CreateStoresTheCollection) {
  const auto organisations = std::make_shared<Collection<String>>();
  organisations->Add("IR");
  clsGTMTargetDetails target;
  target.Validated(true);
  target.Create(organisations);
  EXPECT_EQ(target.Organisations(), organisations);
  EXPECT_FALSE(target.Validated());
  target.Validated(true);
  target.Organisations(organisations);
  EXPECT_TRUE(target.Validated());
  target.Organisations(nullptr);
  EXPECT_FALSE(target.Validated());
  EXPECT_EQ(target.Organisations()->Count(), 0);
}

TEST(clsGTMTargetDetails, ReadsItsOrganisations) {
  const auto target = Read<clsGTMTargetDetails>(
      "<TargetDetails><Organisation>IR</Organisation><X/><Organisation>DWP</Organisation></TargetDetails>");
  ASSERT_EQ(target->Organisations()->Count(), 2);
  EXPECT_EQ(target->Organisations()->Item(1), "IR");
  EXPECT_EQ(target->Organisations()->Item(2), "DWP");
  EXPECT_FALSE(target->CreateFromXML(Root("<Target/>")));
  EXPECT_TRUE(target->ParseFromXML("<TargetDetails/>"));
  EXPECT_FALSE(target->ParseFromXML("<?xml version=\"1.0\"?><TargetDetails/>"));
}

TEST(clsGTMTargetDetails, AnyTextComesBack) {
  for (const String& text : TextsThatComeBack()) {
    clsGTMTargetDetails target;
    target.AddOrganisation(text);
    EXPECT_EQ(Read<clsGTMTargetDetails>(Written(target))->Organisations()->Item(1), text);
  }
}

TEST(clsGTMGatewayValidation, WritesAndReadsBothRows) {
  clsGTMGatewayValidation validation;
  validation.Validated(true);
  validation.Create("yes", "pass");
  EXPECT_FALSE(validation.Validated());
  EXPECT_EQ(
      ParentAfterWriting(validation, "<P><GatewayValidation><Result>x</Result></GatewayValidation></P>"),
      "<P><GatewayValidation><Processed>yes</Processed><Result>pass</Result></GatewayValidation></P>");
  const auto read = Read<clsGTMGatewayValidation>(Written(validation));
  EXPECT_EQ(read->Processed(), "yes");
  EXPECT_EQ(read->Result(), "pass");
  EXPECT_TRUE(read->CreateFromXML(Root("<GatewayValidation/>")));
  EXPECT_EQ(read->Processed() + read->Result(), "");
  EXPECT_FALSE(read->CreateFromXML(Root("<Validation/>")));
}

TEST(clsGTMGatewayValidation, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  using T = clsGTMGatewayValidation;
  ExpectTextChangeClearsValidated(&T::Processed, &T::Processed);
  ExpectTextChangeClearsValidated(&T::Result, &T::Result);
  ExpectTextComesBack(&T::Processed, &T::Processed);
  ExpectTextComesBack(&T::Result, &T::Result);
}

TEST(clsGTMGovTalkError, CreateTakesRaisedByTypeNumberTextAndLocation) {
  clsGTMGovTalkError error;
  error.Validated(true);
  error.Create("Gateway", "fatal", 1046, "Refused", "/a");
  EXPECT_EQ(error.RaisedBy(), "Gateway");
  EXPECT_EQ(error.ErrorType(), "fatal");
  EXPECT_EQ(error.Number(), 1046);
  EXPECT_EQ(error.Text(), "Refused");
  EXPECT_EQ(error.Location(), "/a");
  EXPECT_FALSE(error.Validated());
  error.Create("INTERNAL", "UNKNOWN");
  EXPECT_EQ(error.Number(), 0);
  EXPECT_EQ(error.Text() + error.Location(), "");
}

TEST(clsGTMGovTalkError, WritesItsElementsInOrder) {
  clsGTMGovTalkError error;
  error.Create("Gateway", "fatal", -9999, "Refused", "/a");
  EXPECT_EQ(ParentAfterWriting(error, "<P><Error/></P>"),
            "<P><Error></Error><Error><RaisedBy>Gateway</RaisedBy><Number>-9999</Number><Type>fatal</Type>"
            "<Text>Refused</Text><Location>/a</Location></Error></P>");
}

TEST(clsGTMGovTalkError, LeavesOutEmptyTextAndLocation) {
  clsGTMGovTalkError error;
  EXPECT_EQ(Written(error), "<Error><RaisedBy></RaisedBy><Number>0</Number><Type></Type></Error>");
}

TEST(clsGTMGovTalkError, ReadsEveryRowOfItsTable) {
  const auto error = Read<clsGTMGovTalkError>(
      "<Error><Location>/a</Location><Text>Refused</Text><Type>fatal</Type><Number> 1046 </Number>"
      "<RaisedBy>Gateway</RaisedBy></Error>");
  EXPECT_EQ(error->RaisedBy(), "Gateway");
  EXPECT_EQ(error->Number(), 1046);
  EXPECT_EQ(error->ErrorType(), "fatal");
  EXPECT_EQ(error->Text(), "Refused");
  EXPECT_EQ(error->Location(), "/a");
}

TEST(clsGTMGovTalkError, ReadingClearsTheTextsAndKeepsTheNumber) {
  clsGTMGovTalkError error;
  error.Create("Gateway", "fatal", 1046, "Refused", "/a");
  EXPECT_TRUE(error.CreateFromXML(Root("<Error/>")));
  EXPECT_EQ(error.RaisedBy() + error.ErrorType() + error.Text() + error.Location(), "");
  EXPECT_EQ(error.Number(), 1046);
  EXPECT_FALSE(error.CreateFromXML(Root("<Fault/>")));
}

TEST(clsGTMGovTalkError, ANumberThatIsNoneOrTooLargeEndsTheReading) {
  const WithRecordingHost host;
  clsGTMGovTalkError error;
  EXPECT_FALSE(
      error.CreateFromXML(Root("<Error><RaisedBy>G</RaisedBy><Number>x</Number><Text>t</Text></Error>")));
  EXPECT_EQ(error.RaisedBy(), "G");
  EXPECT_EQ(error.Text(), "");
  EXPECT_FALSE(error.CreateFromXML(Root("<Error><Number>32768</Number></Error>")));
  ASSERT_EQ(host->messages.size(), 2U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsGTMGovTalkError: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(host->messages[1].text,
            "Error in ZELNOR.dll::clsGTMGovTalkError: Function CreateFromXML: Error 6 - Overflow");
}

TEST(clsGTMGovTalkError, TellsTheEmployeeOfItsLocation) {
  EXPECT_EQ(EmployeeIndexAt("/hd:GovTalkMessage[1]/hd:Body[1]/r:IRenvelope[1]/r:FullPaymentSubmission[1]/"
                            "r:Employee[37]/r:Employment[2]/r:Payment[1]"),
            37);
  EXPECT_EQ(EmployeeIndexAt(":Employee[70000]"), 70000);
}

TEST(clsGTMGovTalkError, ALocationWithoutAnEmployeeGivesZero) {
  const WithRecordingHost host;
  for (const char* location : {"", "/a:Employment[2]", "/Employee[3]", "/a:EmployeeDetails[3]", ":Employee[]",
                               ":Employee[3", ":Employee[last()]", ":employee[3]"}) {
    EXPECT_EQ(EmployeeIndexAt(location), 0) << location;
  }
  EXPECT_TRUE(host->messages.empty());
}

TEST(clsGTMGovTalkError, AnEmployeeBeyondALongIsReported) {
  const WithRecordingHost host;
  EXPECT_EQ(EmployeeIndexAt(":Employee[2147483648]"), 0);
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsGTMGovTalkError: Get EmployeeIndex: Error 6 - Overflow");
}

TEST(clsGTMGovTalkError, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  using T = clsGTMGovTalkError;
  ExpectTextChangeClearsValidated(&T::RaisedBy, &T::RaisedBy);
  ExpectTextChangeClearsValidated(&T::ErrorType, &T::ErrorType);
  ExpectTextChangeClearsValidated(&T::Text, &T::Text);
  ExpectTextChangeClearsValidated(&T::Location, &T::Location);
  ExpectChangeClearsValidated(&T::Number, &T::Number, Integer{1}, Integer{2});
  ExpectTextComesBack(&T::RaisedBy, &T::RaisedBy);
  ExpectTextComesBack(&T::ErrorType, &T::ErrorType);
  ExpectTextComesBack(&T::Text, &T::Text);
  ExpectTextComesBack(&T::Location, &T::Location);
}

TEST(clsGTMGovTalkError, ParsesItsOwnRootOnly) {
  clsGTMGovTalkError error;
  EXPECT_TRUE(error.ParseFromXML("<Error><Text>t</Text></Error>"));
  EXPECT_FALSE(error.ParseFromXML("<?xml version=\"1.0\"?><Error/>"));
  EXPECT_EQ(error.Text(), "t");
  EXPECT_EQ(error.RootElementName(), "Error");
}

TEST(clsGTMGovTalkDetails, ANewOneWritesNothingInside) {
  clsGTMGovTalkDetails details;
  EXPECT_FALSE(details.HasErrors());
  EXPECT_EQ(ParentAfterWriting(details, "<P><GovTalkDetails><Keys/><TargetDetails/></GovTalkDetails></P>"),
            "<P><GovTalkDetails></GovTalkDetails></P>");
}

TEST(clsGTMGovTalkDetails, CreateMakesTwoKeysAndAChannel) {
  const WithRecordingHost host;
  host->now = kNow;
  clsGTMGovTalkDetails details;
  details.AddKeyValue("Old", "1");
  details.Validated(true);
  details.Create("527", "AS90316", "9999", "Product", "7.2");
  ASSERT_EQ(details.Keys()->Count(), 2);
  EXPECT_EQ(details.Keys()->Item(1)->KeyType(), "TaxOfficeNumber");
  EXPECT_EQ(details.Keys()->Item(1)->KeyValue(), "527");
  EXPECT_EQ(details.Keys()->Item(2)->KeyType(), "TaxOfficeReference");
  EXPECT_EQ(details.Keys()->Item(2)->KeyValue(), "AS90316");
  ASSERT_EQ(details.ChannelRouting()->Count(), 1);
  const auto routing = details.ChannelRouting()->Item(1);
  EXPECT_EQ(routing->URI() + "|" + routing->Name() + "|" + routing->Product() + "|" + routing->Version(),
            "9999||Product|7.2");
  EXPECT_EQ(routing->Timestamp(), kNow);
  EXPECT_FALSE(details.Validated());
}

TEST(clsGTMGovTalkDetails, CreateAddsAChannelWhereAnyOfItsTextsIsGiven) {
  clsGTMGovTalkDetails none;
  none.Create("527", "AS90316", "", "", "", kMoment);
  EXPECT_EQ(none.ChannelRouting()->Count(), 0);
  clsGTMGovTalkDetails any;
  any.Create("527", "AS90316", "9999");
  any.Create("527", "AS90316", "", "Product");
  any.Create("527", "AS90316", "", "", "7.2", kMoment);
  ASSERT_EQ(any.ChannelRouting()->Count(), 3);
  EXPECT_EQ(any.ChannelRouting()->Item(3)->Timestamp(), kMoment);
}

TEST(clsGTMGovTalkDetails, WritesEveryRowOfItsTableInOrder) {
  clsGTMGovTalkDetails details;
  const auto error = std::make_shared<clsGTMGovTalkError>();
  error->Create("G", "fatal", 1);
  details.AddGovTalkError(error);
  details.AddChnlRouting("P1", "V", "U");
  const auto routing = std::make_shared<clsGTMChannelRouting>();
  routing->Create("P2", "", "U");
  details.AddChannelRouting(routing);
  details.GatewayValidation()->Create("yes", "pass");
  details.TargetDetails()->AddOrganisation("IR");
  details.AddKeyValue("A", "1");
  const auto key = std::make_shared<clsKey>();
  key->Create("2", "B");
  details.AddKey(key);
  EXPECT_EQ(
      Written(details),
      "<GovTalkDetails><Keys><Key Type=\"A\">1</Key><Key Type=\"B\">2</Key></Keys><TargetDetails>"
      "<Organisation>IR</Organisation></TargetDetails><GatewayValidation><Processed>yes</Processed>"
      "<Result>pass</Result></GatewayValidation><ChannelRouting><Channel><URI>U</URI><Product>P1</Product>"
      "<Version>V</Version></Channel></ChannelRouting><ChannelRouting><Channel><URI>U</URI><Product>P2"
      "</Product><Version></Version></Channel></ChannelRouting><GovTalkErrors><Error><RaisedBy>G"
      "</RaisedBy><Number>1</Number><Type>fatal</Type></Error></GovTalkErrors></GovTalkDetails>");
}

TEST(clsGTMGovTalkDetails, ReadsEveryRowOfItsTable) {
  const auto details = Read<clsGTMGovTalkDetails>(
      "<GovTalkDetails><GovTalkErrors><Error><Number>1</Number></Error><X/><Error><Number>2</Number></Error>"
      "</GovTalkErrors><ChannelRouting><ID>1</ID></ChannelRouting><ChannelRouting><ID>2</ID></ChannelRouting>"
      "<GatewayValidation><Result>pass</Result></GatewayValidation><TargetDetails><Organisation>IR"
      "</Organisation></TargetDetails><Keys><Key Type=\"A\">1</Key><X/></Keys></GovTalkDetails>");
  ASSERT_EQ(details->Keys()->Count(), 1);
  EXPECT_EQ(details->Keys()->Item(1)->KeyType(), "A");
  EXPECT_EQ(details->TargetDetails()->Organisations()->Count(), 1);
  EXPECT_EQ(details->GatewayValidation()->Result(), "pass");
  ASSERT_EQ(details->ChannelRouting()->Count(), 2);
  EXPECT_EQ(details->ChannelRouting()->Item(2)->ID(), "2");
  ASSERT_EQ(details->GovTalkErrors()->Count(), 2);
  EXPECT_EQ(details->GovTalkErrors()->Item(2)->Number(), 2);
  EXPECT_TRUE(details->HasErrors());
}

TEST(clsGTMGovTalkDetails, RoutingsThatAreReadGetItsMode) {
  const String xml = "<GovTalkDetails><ChannelRouting/></GovTalkDetails>";
  EXPECT_EQ(Read<clsGTMGovTalkDetails>(xml)->ChannelRouting()->Item(1)->Mode(), RTI_SEND_MODE::Live);
  clsGTMGovTalkDetails details;
  details.Mode(RTI_SEND_MODE::DevTest);
  EXPECT_TRUE(details.CreateFromXML(Root(xml)));
  EXPECT_EQ(details.ChannelRouting()->Item(1)->Mode(), RTI_SEND_MODE::DevTest);
}

TEST(clsGTMGovTalkDetails, AForeignNodeIsRefused) {
  clsGTMGovTalkDetails details;
  details.Validated(true);
  EXPECT_FALSE(details.CreateFromXML(Root("<Details><Keys><Key>1</Key></Keys></Details>")));
  EXPECT_EQ(details.Keys()->Count(), 0);
  EXPECT_FALSE(details.Validated());
}

TEST(clsGTMGovTalkDetails, IsValidatedWhenItselfAndAllThatItHoldsAre) {
  clsGTMGovTalkDetails details;
  details.Validated(true);
  EXPECT_TRUE(details.Validated());
  details.AddKeyValue("A", "1");
  details.AddChnlRouting("P");
  details.AddGovTalkError(std::make_shared<clsGTMGovTalkError>());
  const std::vector<Record*> held = {&details,
                                     details.Keys()->Item(1).get(),
                                     details.TargetDetails().get(),
                                     details.GatewayValidation().get(),
                                     details.ChannelRouting()->Item(1).get(),
                                     details.GovTalkErrors()->Item(1).get()};
  for (Record* each : held) each->Validated(true);
  EXPECT_TRUE(details.Validated());
  for (Record* each : held) {
    each->Validated(false);
    EXPECT_FALSE(details.Validated());
    each->Validated(true);
  }
}

TEST(clsGTMGovTalkDetails, WritesOfItsPartsFollowTheRuleOfChangeAndClearTheChildsFlag) {
  using T = clsGTMGovTalkDetails;
  ExpectChangeClearsValidated(&T::Mode, &T::Mode, RTI_SEND_MODE::Test, RTI_SEND_MODE::Live);
  const std::vector<std::function<void(T&)>> writes = {
      [](T& d) { d.Keys(MakeCollection<clsKey>()); },
      [](T& d) { d.ChannelRouting(MakeCollection<clsGTMChannelRouting>()); },
      [](T& d) { d.GovTalkErrors(MakeCollection<clsGTMGovTalkError>()); }};
  for (const auto& write : writes) {
    T details;
    details.Validated(true);
    write(details);
    EXPECT_FALSE(details.Validated());
  }
  T details;
  const auto target = std::make_shared<clsGTMTargetDetails>();
  target->Validated(true);
  details.TargetDetails(target);
  EXPECT_EQ(details.TargetDetails(), target);
  EXPECT_FALSE(target->Validated());
  const auto validation = std::make_shared<clsGTMGatewayValidation>();
  validation->Validated(true);
  details.GatewayValidation(validation);
  EXPECT_EQ(details.GatewayValidation(), validation);
  EXPECT_FALSE(validation->Validated());
}

TEST(clsGTMGovTalkDetails, ParsesItsOwnRootOnly) {
  clsGTMGovTalkDetails details;
  EXPECT_TRUE(details.ParseFromXML("<GovTalkDetails><Keys><Key>1</Key></Keys></GovTalkDetails>"));
  EXPECT_EQ(details.Keys()->Count(), 1);
  EXPECT_FALSE(details.ParseFromXML("<?xml version=\"1.0\"?><GovTalkDetails/>"));
  EXPECT_EQ(details.RootElementName(), "GovTalkDetails");
}
