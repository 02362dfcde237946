#include "zelnor/envelope/clsGTMChannelRouting.h"

#include "support/recording_host.h"
#include "support/records.h"

using namespace zelnor;
using namespace zelnor::test;

namespace {

const Date kMoment = Date::FromParts(2026, 5, 6).WithTimeOf(Date::FromTime(10, 11, 12));
const Date kNow = Date::FromParts(2026, 11, 21).WithTimeOf(Date::FromTime(4, 5, 6));

}  // namespace

TEST(clsGTMChannelRouting, ANewOneBearsTheTimeOfItsMaking) {
  const WithRecordingHost host;
  host->now = kNow;
  const clsGTMChannelRouting routing;
  EXPECT_EQ(routing.Timestamp(), kNow);
}

TEST(clsGTMChannelRouting, CreateStoresItsArgumentsAndTakesNowForNoDate) {
  const WithRecordingHost host;
  clsGTMChannelRouting routing;
  host->now = kNow;
  routing.Validated(true);
  routing.Create("Product", "7.2", "9999", "Name");
  EXPECT_EQ(routing.Product(), "Product");
  EXPECT_EQ(routing.Version(), "7.2");
  EXPECT_EQ(routing.URI(), "9999");
  EXPECT_EQ(routing.Name(), "Name");
  EXPECT_EQ(routing.Timestamp(), kNow);
  EXPECT_FALSE(routing.Validated());
  routing.Create("Product", "", "", "", kMoment);
  EXPECT_EQ(routing.Timestamp(), kMoment);
}

TEST(clsGTMChannelRouting, WritesTheUriInPlaceOfTheName) {
  clsGTMChannelRouting routing;
  routing.Create("Product", "7.2", "9999", "Name");
  EXPECT_EQ(
      Written(routing),
      "<ChannelRouting><Channel><URI>9999</URI><Product>Product</Product><Version>7.2</Version></Channel>"
      "</ChannelRouting>");
  routing.URI("");
  EXPECT_EQ(Written(routing),
            "<ChannelRouting><Channel><Name>Name</Name><Product>Product</Product><Version>7.2</Version>"
            "</Channel></ChannelRouting>");
}

TEST(clsGTMChannelRouting, WritesAnEmptyChannelAndAppends) {
  clsGTMChannelRouting routing;
  EXPECT_EQ(ParentAfterWriting(routing, "<P><ChannelRouting/></P>"),
            "<P><ChannelRouting></ChannelRouting><ChannelRouting><Channel><Name></Name><Product></Product>"
            "<Version></Version></Channel></ChannelRouting></P>");
}

TEST(clsGTMChannelRouting, WritesTheIdWithItsTypeBehindTheChannel) {
  clsGTMChannelRouting routing;
  routing.Create("P", "V", "U", "", kMoment);
  routing.SetID("42", "serial");
  routing.Mode(RTI_SEND_MODE::DevTest);
  EXPECT_EQ(Written(routing),
            "<ChannelRouting><Channel><URI>U</URI><Product>P</Product><Version>V</Version></Channel>"
            "<ID Type=\"serial\">42</ID><Timestamp>2026-05-06T10:11:12</Timestamp></ChannelRouting>");
  routing.SetID("", "serial");
  EXPECT_FALSE(routing.ToXML(Root("<P/>")).FindChild("ID"));
}

TEST(clsGTMChannelRouting, TheTimestampIsWrittenInTheModesFromTestOn) {
  for (int mode = 0; mode <= 6; ++mode) {
    clsGTMChannelRouting routing;
    routing.Mode(static_cast<RTI_SEND_MODE>(mode));
    routing.Timestamp(kMoment);
    EXPECT_EQ(static_cast<bool>(routing.ToXML(Root("<P/>")).FindChild("Timestamp")), mode >= 2) << mode;
    routing.Timestamp({});
    EXPECT_FALSE(routing.ToXML(Root("<P/>")).FindChild("Timestamp")) << mode;
  }
}

TEST(clsGTMChannelRouting, ReadsEveryRowOfItsTable) {
  const auto routing = Read<clsGTMChannelRouting>(
      "<ChannelRouting><Timestamp>2026-05-06T10:11:12</Timestamp><ID "
      "Type=\"serial\">42</ID><Channel><Version>V"
      "</Version><Product>P</Product><Name>N</Name><URI>U</URI></Channel></ChannelRouting>");
  EXPECT_EQ(routing->URI() + routing->Name() + routing->Product() + routing->Version(), "UNPV");
  EXPECT_EQ(routing->ID(), "42");
  EXPECT_EQ(routing->IDType(), "serial");
  EXPECT_EQ(routing->Timestamp(), kMoment);
}

TEST(clsGTMChannelRouting, ReadingClearsTheTextsAndKeepsDateAndMode) {
  clsGTMChannelRouting routing;
  routing.Create("P", "V", "U", "N", kMoment);
  routing.SetID("42", "serial");
  routing.Mode(RTI_SEND_MODE::Test);
  routing.Validated(true);
  EXPECT_TRUE(routing.CreateFromXML(Root("<ChannelRouting><ID>43</ID></ChannelRouting>")));
  EXPECT_EQ(routing.URI() + routing.Name() + routing.Product() + routing.Version() + routing.IDType(), "");
  EXPECT_EQ(routing.ID(), "43");
  EXPECT_EQ(routing.Timestamp(), kMoment);
  EXPECT_EQ(routing.Mode(), RTI_SEND_MODE::Test);
  EXPECT_FALSE(routing.Validated());
  EXPECT_FALSE(routing.CreateFromXML(Root("<Routing/>")));
}

TEST(clsGTMChannelRouting, ATimestampThatIsNoDateEndsTheReading) {
  const WithRecordingHost host;
  clsGTMChannelRouting routing;
  routing.Timestamp(kMoment);
  EXPECT_FALSE(
      routing.CreateFromXML(Root("<ChannelRouting><ID>1</ID><Timestamp>later</Timestamp>"
                                 "<Channel><URI>U</URI></Channel></ChannelRouting>")));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsGTMChannelRouting: Function CreateFromXML: Error 13 - Type mismatch");
  EXPECT_EQ(routing.ID(), "1");
  EXPECT_EQ(routing.URI(), "");
  EXPECT_EQ(routing.Timestamp(), kMoment);
}

TEST(clsGTMChannelRouting, SetIdFollowsTheRuleOfChange) {
  clsGTMChannelRouting routing;
  routing.SetID("42", "serial");
  routing.Validated(true);
  routing.SetID("42", "serial");
  EXPECT_TRUE(routing.Validated());
  routing.SetID("42", "other");
  EXPECT_FALSE(routing.Validated());
}

TEST(clsGTMChannelRouting, EveryFieldFollowsTheRuleOfChangeAndComesBack) {
  using T = clsGTMChannelRouting;
  ExpectTextChangeClearsValidated(&T::URI, &T::URI);
  ExpectTextChangeClearsValidated(&T::Name, &T::Name);
  ExpectTextChangeClearsValidated(&T::Product, &T::Product);
  ExpectTextChangeClearsValidated(&T::Version, &T::Version);
  ExpectChangeClearsValidated(&T::Timestamp, &T::Timestamp, kMoment, kNow);
  ExpectChangeClearsValidated(&T::Mode, &T::Mode, RTI_SEND_MODE::Test, RTI_SEND_MODE::Live);
  ExpectTextComesBack(&T::URI, &T::URI);
  ExpectTextComesBack(&T::Name, &T::Name);
  ExpectTextComesBack(&T::Product, &T::Product);
  ExpectTextComesBack(&T::Version, &T::Version);
}

TEST(clsGTMChannelRouting, ParsesItsOwnRootOnly) {
  clsGTMChannelRouting routing;
  EXPECT_TRUE(routing.ParseFromXML("<ChannelRouting><ID>1</ID></ChannelRouting>"));
  EXPECT_FALSE(routing.ParseFromXML("<?xml version=\"1.0\"?><ChannelRouting/>"));
  EXPECT_EQ(routing.ID(), "1");
  EXPECT_EQ(routing.RootElementName(), "ChannelRouting");
}
