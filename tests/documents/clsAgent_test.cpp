// The agent, and the address in it.

#include "zelnor/documents/clsAgent.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

TEST(clsAddress, CreateStoresItsArguments) {
  clsAddress address;
  address.Validated(true);
  address.Create("1", "2", "3", "4", "KB4 7QT", "Wales");
  EXPECT_EQ(address.Address1() + address.Address2() + address.Address3() + address.Address4(), "1234");
  EXPECT_EQ(address.Postcode(), "KB4 7QT");
  EXPECT_EQ(address.Country(), "Wales");
  EXPECT_FALSE(address.Validated());
  address.Create("5");
  EXPECT_EQ(address.Address2() + address.Postcode() + address.Country(), "");
}

TEST(clsAddress, WritesEachLineThatIsNotEmptyWithoutGaps) {
  clsAddress address;
  address.Create("One", "", "Three", "", "KB4 7QT");
  EXPECT_EQ(Written(address),
            "<Address><Line>One</Line><Line>Three</Line><PostCode>KB4 7QT</PostCode></Address>");
}

TEST(clsAddress, LeavesOutAnEmptyPostcodeOnlyWhereThereIsACountry) {
  clsAddress address;
  EXPECT_EQ(Written(address), "<Address><PostCode></PostCode></Address>");
  address.Country("Wales");
  EXPECT_EQ(Written(address), "<Address><Country>Wales</Country></Address>");
  address.Postcode("KB4 7QT");
  EXPECT_EQ(Written(address), "<Address><PostCode>KB4 7QT</PostCode><Country>Wales</Country></Address>");
}

TEST(clsAddress, EmptiesItsElementBeforeWriting) {
  clsAddress address;
  address.Create("One");
  EXPECT_EQ(ParentAfterWriting(address, "<P><Address><Country>X</Country><Line>Y</Line></Address></P>"),
            "<P><Address><Line>One</Line><PostCode></PostCode></Address></P>");
}

TEST(clsAddress, ReadsFourLinesAndDropsTheFifth) {
  const auto address = Read<clsAddress>(
      "<Address><Line>1</Line><PostCode>P</PostCode><Line>2</Line><Line>3</Line><Country>C</Country>"
      "<Line>4</Line><Line>5</Line></Address>");
  EXPECT_EQ(address->Address1() + address->Address2() + address->Address3() + address->Address4(), "1234");
  EXPECT_EQ(address->Postcode(), "P");
  EXPECT_EQ(address->Country(), "C");
}

TEST(clsAddress, ReadingClearsNothing) {
  clsAddress address;
  address.Create("1", "2", "3", "4", "P", "C");
  address.Validated(true);
  EXPECT_TRUE(address.CreateFromXML(Root("<Address><Line>A</Line></Address>")));
  EXPECT_EQ(address.Address1() + address.Address2() + address.Address3() + address.Address4(), "A234");
  EXPECT_EQ(address.Postcode() + address.Country(), "PC");
  EXPECT_FALSE(address.Validated());
  EXPECT_FALSE(address.CreateFromXML(Root("<Addr><Line>B</Line></Addr>")));
  EXPECT_EQ(address.Address1(), "A");
}

TEST(clsAddress, ParsesTextWithADeclaration) {
  clsAddress address;
  EXPECT_TRUE(address.ParseFromXML("<?xml version=\"1.0\"?><!-- x --><Address><Line>A</Line></Address>"));
  EXPECT_EQ(address.Address1(), "A");
  EXPECT_FALSE(address.ParseFromXML("<Adress/>"));
  EXPECT_FALSE(address.ParseFromXML("<Address>"));
}

TEST(clsAddress, EveryFieldFollowsTheRuleOfChange) {
  ExpectTextChangeClearsValidated(&clsAddress::Address1, &clsAddress::Address1);
  ExpectTextChangeClearsValidated(&clsAddress::Address2, &clsAddress::Address2);
  ExpectTextChangeClearsValidated(&clsAddress::Address3, &clsAddress::Address3);
  ExpectTextChangeClearsValidated(&clsAddress::Address4, &clsAddress::Address4);
  ExpectTextChangeClearsValidated(&clsAddress::Postcode, &clsAddress::Postcode);
  ExpectTextChangeClearsValidated(&clsAddress::Country, &clsAddress::Country);
}

TEST(clsAddress, AnyTextComesBack) {
  ExpectTextComesBack(&clsAddress::Address1, &clsAddress::Address1);
  ExpectTextComesBack(&clsAddress::Postcode, &clsAddress::Postcode);
  ExpectTextComesBack(&clsAddress::Country, &clsAddress::Country);
}

TEST(clsAgent, CreateStoresItsArguments) {
  clsAgent agent;
  const auto address = std::make_shared<clsAddress>();
  const auto contact = std::make_shared<clsContact>();
  agent.Validated(true);
  agent.Create("AG4471", "Hollin and Wray", address, contact);
  EXPECT_EQ(agent.AgentID(), "AG4471");
  EXPECT_EQ(agent.Company(), "Hollin and Wray");
  EXPECT_EQ(agent.Address(), address);
  EXPECT_EQ(agent.Contact(), contact);
  EXPECT_FALSE(agent.Validated());
}

TEST(clsAgent, WritesIdAndCompanyAlwaysAndTheRestWhenHeld) {
  clsAgent agent;
  EXPECT_EQ(Written(agent), "<Agent><AgentID></AgentID><Company></Company></Agent>");
  agent.Create("AG4471", "Hollin and Wray");
  agent.Contact()->ContactName()->Surname("Wray");
  agent.Address()->Address1("1 Mill Row");
  EXPECT_EQ(
      Written(agent),
      "<Agent><AgentID>AG4471</AgentID><Company>Hollin and Wray</Company><Address><Line>1 Mill Row</Line>"
      "<PostCode></PostCode></Address><Contact><Name><Fore></Fore><Sur>Wray</Sur></Name></Contact>"
      "</Agent>");
}

TEST(clsAgent, WritesIntoItsParentWhereThatIsAnAgentItself) {
  clsAgent agent;
  agent.Create("A", "B");
  const XmlNode parent = Root("<Agent><Old/></Agent>");
  EXPECT_TRUE(agent.ToXML(parent) == parent);
  EXPECT_EQ(parent.Xml(), "<Agent><AgentID>A</AgentID><Company>B</Company></Agent>");
}

TEST(clsAgent, EmptiesAnElementThatIsThere) {
  clsAgent agent;
  agent.Create("A", "B");
  EXPECT_EQ(ParentAfterWriting(agent, "<P><Agent><Contact/><Company>X</Company></Agent></P>"),
            "<P><Agent><AgentID>A</AgentID><Company>B</Company></Agent></P>");
}

TEST(clsAgent, ReadsEveryRowOfItsTable) {
  const auto agent = Read<clsAgent>(
      "<Agent><Contact><Email>1@a</Email></Contact><Address><Line>L</Line></Address><Company>B</Company>"
      "<AgentID>A</AgentID></Agent>");
  EXPECT_EQ(agent->AgentID(), "A");
  EXPECT_EQ(agent->Company(), "B");
  EXPECT_EQ(agent->Address()->Address1(), "L");
  EXPECT_EQ(agent->Contact()->EmailAddresses()->Count(), 1);
}

TEST(clsAgent, ReadingClearsNothingAndMakesNewChildren) {
  clsAgent agent;
  agent.Create("A", "B");
  agent.Address()->Address1("L");
  agent.Contact()->CreateEmail("1@a");
  EXPECT_TRUE(agent.CreateFromXML(Root("<Agent><Address/></Agent>")));
  EXPECT_EQ(agent.AgentID() + agent.Company(), "AB");
  EXPECT_EQ(agent.Address()->Address1(), "");
  EXPECT_EQ(agent.Contact()->EmailAddresses()->Count(), 1);
  EXPECT_FALSE(agent.CreateFromXML(Root("<Agents><Company>X</Company></Agents>")));
  EXPECT_EQ(agent.Company(), "B");
}

TEST(clsAgent, ParsesTextWithADeclaration) {
  clsAgent agent;
  EXPECT_TRUE(agent.ParseFromXML("<?xml version=\"1.0\"?><Agent><Company>B</Company></Agent>"));
  EXPECT_EQ(agent.Company(), "B");
  EXPECT_FALSE(agent.ParseFromXML("<Contact/>"));
  EXPECT_EQ(agent.RootElementName(), "Agent");
}

TEST(clsAgent, IsValidatedWhenItselfAndItsChildrenAre) {
  clsAgent agent;
  agent.Validated(true);
  EXPECT_TRUE(agent.Validated());
  agent.Address();
  EXPECT_FALSE(agent.Validated());
  agent.Address()->Validated(true);
  EXPECT_TRUE(agent.Validated());
  agent.Contact();
  EXPECT_FALSE(agent.Validated());
}

TEST(clsAgent, AWriteOfAChildClearsTheChildsFlagAndNotItsOwn) {
  clsAgent agent;
  agent.Validated(true);
  const auto address = std::make_shared<clsAddress>();
  address->Validated(true);
  agent.Address(address);
  EXPECT_FALSE(address->Validated());
  address->Validated(true);
  EXPECT_TRUE(agent.Validated());
  const auto contact = std::make_shared<clsContact>();
  contact->ContactName()->Validated(true);
  contact->Validated(true);
  agent.Contact(contact);
  EXPECT_FALSE(contact->Validated());
  contact->Validated(true);
  EXPECT_TRUE(agent.Validated());
}

TEST(clsAgent, EveryTextFollowsTheRuleOfChangeAndComesBack) {
  ExpectTextChangeClearsValidated(&clsAgent::AgentID, &clsAgent::AgentID);
  ExpectTextChangeClearsValidated(&clsAgent::Company, &clsAgent::Company);
  ExpectTextComesBack(&clsAgent::AgentID, &clsAgent::AgentID);
  ExpectTextComesBack(&clsAgent::Company, &clsAgent::Company);
}
