#include "zelnor/documents/clsNILiability.h"

#include "support/recording_host.h"
#include "support/records.h"

namespace zelnor {
namespace {

using test::Read;
using test::WithRecordingHost;
using test::Written;

TEST(clsNILiability, IsNotApplicableWhenNew) {
  clsNILiability liability;
  EXPECT_EQ(liability.DirectorsNIC(), DIRECTORS_NIC::NA);
  EXPECT_EQ(liability.WkOrMonthNoDirectorAppt(), 0);
  EXPECT_EQ(liability.RootElementName(), "NIliability");
}

TEST(clsNILiability, WritesBasisAndWeek) {
  clsNILiability liability;
  liability.Create(DIRECTORS_NIC::Annual, 17);
  EXPECT_EQ(Written(liability),
            "<NIliability><DirectorsNIC>AN</DirectorsNIC><TaxWkOfApptOfDirector>17</TaxWkOfApptOfDirector>"
            "</NIliability>");
  liability.Create(DIRECTORS_NIC::Alternative, 0);
  EXPECT_EQ(Written(liability), "<NIliability><DirectorsNIC>AL</DirectorsNIC></NIliability>");
}

TEST(clsNILiability, RemovesAWeekThatIsNoMore) {
  clsNILiability liability;
  liability.Create(DIRECTORS_NIC::Annual, 0);
  EXPECT_EQ(test::ParentAfterWriting(liability,
                                     "<P><NIliability><DirectorsNIC>AL</DirectorsNIC>"
                                     "<TaxWkOfApptOfDirector>3</TaxWkOfApptOfDirector></NIliability></P>"),
            "<P><NIliability><DirectorsNIC>AN</DirectorsNIC></NIliability></P>");
}

TEST(clsNILiability, WritesNothingWhenNotApplicable) {
  clsNILiability liability;
  liability.Create(DIRECTORS_NIC::NA, 17);
  EXPECT_EQ(test::ParentAfterWriting(liability, "<P/>"), "<P></P>");
  EXPECT_EQ(test::ParentAfterWriting(liability, "<P><NIliability/><Other/></P>"), "<P><Other></Other></P>");
  EXPECT_FALSE(liability.ToXML(test::Root("<P/>")));
}

TEST(clsNILiability, ReadsBasisAndWeek) {
  const auto annual = Read<clsNILiability>(
      "<NIliability><DirectorsNIC>AN</DirectorsNIC><TaxWkOfApptOfDirector>17</TaxWkOfApptOfDirector>"
      "</NIliability>");
  EXPECT_EQ(annual->DirectorsNIC(), DIRECTORS_NIC::Annual);
  EXPECT_EQ(annual->WkOrMonthNoDirectorAppt(), 17);
  EXPECT_EQ(
      Read<clsNILiability>("<NIliability><DirectorsNIC>AL</DirectorsNIC></NIliability>")->DirectorsNIC(),
      DIRECTORS_NIC::Alternative);
  EXPECT_EQ(
      Read<clsNILiability>("<NIliability><DirectorsNIC>an</DirectorsNIC></NIliability>")->DirectorsNIC(),
      DIRECTORS_NIC::NA);
}

TEST(clsNILiability, ReadingClearsTheRecord) {
  clsNILiability liability;
  liability.Create(DIRECTORS_NIC::Annual, 17);
  liability.Validated(true);
  EXPECT_TRUE(liability.ParseFromXML("<NIliability/>"));
  EXPECT_EQ(liability.DirectorsNIC(), DIRECTORS_NIC::NA);
  EXPECT_EQ(liability.WkOrMonthNoDirectorAppt(), 0);
  EXPECT_FALSE(liability.Validated());
  EXPECT_FALSE(liability.ParseFromXML("<NILiability/>"));
}

TEST(clsNILiability, AWeekThatIsNoNumberEndsTheReading) {
  WithRecordingHost host;
  clsNILiability liability;
  EXPECT_FALSE(
      liability.ParseFromXML("<NIliability><TaxWkOfApptOfDirector>x</TaxWkOfApptOfDirector></NIliability>"));
  ASSERT_EQ(host->messages.size(), 1U);
  EXPECT_TRUE(host->messages[0].text.starts_with(
      "Error in ZELNOR.dll::clsNILiability: Function CreateFromXML: Error 13 - "));
}

TEST(clsNILiability, ChangesClearValidated) {
  using T = clsNILiability;
  test::ExpectChangeClearsValidated<T, DIRECTORS_NIC, DIRECTORS_NIC>(
      &T::DirectorsNIC, &T::DirectorsNIC, DIRECTORS_NIC::Annual, DIRECTORS_NIC::Alternative);
  test::ExpectChangeClearsValidated<T, Integer, Integer>(&T::WkOrMonthNoDirectorAppt,
                                                         &T::WkOrMonthNoDirectorAppt, 1, 2);
}

}  // namespace
}  // namespace zelnor
