#include "zelnor/documents/clsFinalSubmission.h"

#include "support/recording_host.h"
#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

using test::ReadInto;
using test::Root;
using test::WithRecordingHost;
using test::Written;

TEST(clsFinalSubmission, WritesNothingWhenNew) {
  clsFinalSubmission record;
  EXPECT_EQ(Written(record), "<FinalSubmission></FinalSubmission>");
}

TEST(clsFinalSubmission, WritesItsElementsInOrder) {
  clsFinalSubmission record;
  record.Create(true, true, Date::FromParts(2026, 3, 31));
  EXPECT_EQ(Written(record),
            "<FinalSubmission><BecauseSchemeCeased>yes</BecauseSchemeCeased>"
            "<DateSchemeCeased>2026-03-31</DateSchemeCeased><ForYear>yes</ForYear></FinalSubmission>");
}

TEST(clsFinalSubmission, WritesEachFieldOnItsOwn) {
  clsFinalSubmission record;
  record.SchemeCeased(true);
  EXPECT_EQ(Written(record),
            "<FinalSubmission><BecauseSchemeCeased>yes</BecauseSchemeCeased></FinalSubmission>");
  record.SchemeCeased(false);
  record.FinalForYear(true);
  EXPECT_EQ(Written(record), "<FinalSubmission><ForYear>yes</ForYear></FinalSubmission>");
  record.FinalForYear(false);
  record.DateSchemeCeased(Date::FromParts(2026, 4, 5));
  EXPECT_EQ(Written(record),
            "<FinalSubmission><DateSchemeCeased>2026-04-05</DateSchemeCeased></FinalSubmission>");
}

TEST(clsFinalSubmission, WritesADateBefore1901) {
  clsFinalSubmission record;
  record.DateSchemeCeased(Date::FromParts(1900, 12, 31));
  EXPECT_EQ(Written(record),
            "<FinalSubmission><DateSchemeCeased>1900-12-31</DateSchemeCeased></FinalSubmission>");
}

TEST(clsFinalSubmission, EmptiesTheElementThere) {
  const XmlNode root = Root(
      "<P><FinalSubmission><Other/><ForYear>yes</ForYear><BecauseSchemeCeased>yes</BecauseSchemeCeased>"
      "<DateSchemeCeased>2026-03-31</DateSchemeCeased></FinalSubmission></P>");
  clsFinalSubmission record;
  record.SchemeCeased(true);
  record.ToXML(root);
  EXPECT_EQ(root.Xml(),
            "<P><FinalSubmission><BecauseSchemeCeased>yes</BecauseSchemeCeased></FinalSubmission></P>");
}

TEST(clsFinalSubmission, ReadsMarksByPresenceAndTheDateAsPlainText) {
  clsFinalSubmission record;
  ASSERT_TRUE(ReadInto(record,
                       "<FinalSubmission><ForYear>no</ForYear><DateSchemeCeased>31/3/2026</DateSchemeCeased>"
                       "<BecauseSchemeCeased/></FinalSubmission>"));
  EXPECT_TRUE(record.SchemeCeased());
  EXPECT_TRUE(record.FinalForYear());
  EXPECT_EQ(record.DateSchemeCeased(), Date::FromParts(2026, 3, 31));
}

TEST(clsFinalSubmission, ReadingClearsAllThreeFields) {
  clsFinalSubmission record;
  record.Create(true, true, Date::FromParts(2026, 3, 31));
  record.Validated(true);
  ASSERT_TRUE(ReadInto(record, "<FinalSubmission/>"));
  EXPECT_FALSE(record.SchemeCeased());
  EXPECT_FALSE(record.FinalForYear());
  EXPECT_TRUE(record.DateSchemeCeased().IsZero());
  EXPECT_FALSE(record.Validated());
}

TEST(clsFinalSubmission, RefusesOtherNamesAndDeclarations) {
  clsFinalSubmission record;
  EXPECT_EQ(record.RootElementName(), "FinalSubmission");
  EXPECT_FALSE(ReadInto(record, "<Final><ForYear/></Final>"));
  const String text = "<FinalSubmission><ForYear>yes</ForYear></FinalSubmission>";
  EXPECT_FALSE(record.ParseFromXML("<?xml version=\"1.0\"?>" + text));
  EXPECT_FALSE(record.ParseFromXML("<FinalSubmission>"));
  EXPECT_FALSE(record.FinalForYear());
  EXPECT_TRUE(record.ParseFromXML(text));
  EXPECT_TRUE(record.FinalForYear());
}

TEST(clsFinalSubmission, ReportsATextThatIsNoDate) {
  WithRecordingHost host;
  clsFinalSubmission record;
  EXPECT_FALSE(
      ReadInto(record,
               "<FinalSubmission><BecauseSchemeCeased/><DateSchemeCeased>soon</DateSchemeCeased><ForYear/>"
               "</FinalSubmission>"));
  EXPECT_TRUE(record.SchemeCeased());
  EXPECT_FALSE(record.FinalForYear());
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_EQ(host->messages[0].text,
            "Error in ZELNOR.dll::clsFinalSubmission: Function CreateFromXML: Error 13 - Type mismatch");
}

TEST(clsFinalSubmission, AChangeClearsValidatedAndAnEqualValueDoesNot) {
  clsFinalSubmission record;
  record.Validated(true);
  record.SchemeCeased(false);
  record.FinalForYear(false);
  record.DateSchemeCeased({});
  EXPECT_TRUE(record.Validated());
  record.SchemeCeased(true);
  EXPECT_FALSE(record.Validated());
  record.Validated(true);
  record.FinalForYear(true);
  EXPECT_FALSE(record.Validated());
  record.Validated(true);
  record.DateSchemeCeased(Date::FromParts(2026, 3, 31));
  EXPECT_FALSE(record.Validated());
  record.Validated(true);
  record.Create(true, false);
  EXPECT_FALSE(record.Validated());
  EXPECT_TRUE(record.DateSchemeCeased().IsZero());
}

}  // namespace
}  // namespace zelnor
