#include "zelnor/common/recordset.h"

#include "zelnor/platform/failure.h"

#include "support/recording_host.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelnor;
using namespace zelnor::test;
using testing::ElementsAre;

namespace {

/// Two fields, two rows.
Recordset Pets() {
  Recordset pets;
  pets.AddField("Name");
  pets.AddField("Kind");
  pets.AddNew();
  pets.Value("Name", "Rex");
  pets.Value("Kind", "dog");
  pets.AddNew();
  pets.ValueAt(0, "Tom");
  pets.ValueAt(1, "cat");
  return pets;
}

}  // namespace

TEST(Recordset, IsEmptyAtFirst) {
  Recordset table;
  EXPECT_EQ(table.RecordCount(), 0);
  EXPECT_TRUE(table.IsAtBeginning());
  EXPECT_TRUE(table.IsAtEnd());
  table.MoveFirst();
  EXPECT_TRUE(table.IsAtEnd());
  table.MoveLast();
  EXPECT_TRUE(table.IsAtBeginning());
  EXPECT_EQ(RaisedNumber([&] { table.Value("Name"); }), 5);
}

TEST(Recordset, WalksItsRowsForth) {
  Recordset pets = Pets();
  EXPECT_THAT(pets.Fields(), ElementsAre("Name", "Kind"));
  std::vector<String> names;
  for (pets.MoveFirst(); !pets.IsAtEnd(); pets.MoveNext()) names.push_back(pets.Value("name"));
  EXPECT_THAT(names, ElementsAre("Rex", "Tom"));
  pets.MoveNext();
  pets.MovePrevious();
  EXPECT_EQ(pets.ValueAt(1), "cat") << "a move behind the end is none";
}

TEST(Recordset, WalksItsRowsBack) {
  Recordset pets = Pets();
  std::vector<String> names;
  for (pets.MoveLast(); !pets.IsAtBeginning(); pets.MovePrevious()) names.push_back(pets.ValueAt(0));
  EXPECT_THAT(names, ElementsAre("Tom", "Rex"));
  pets.MovePrevious();
  pets.MoveNext();
  EXPECT_EQ(pets.Value("Name"), "Rex") << "a move before the beginning is none";
}

TEST(Recordset, StandsOnTheNewRow) {
  Recordset pets = Pets();
  EXPECT_EQ(pets.Value("Name"), "Tom");
  pets.AddNew();
  EXPECT_EQ(pets.Value("Name"), "");
  EXPECT_EQ(pets.RecordCount(), 3);
}

TEST(Recordset, RefusesWhatIsNotThere) {
  Recordset pets = Pets();
  EXPECT_EQ(RaisedNumber([&] { pets.Value("Age"); }), 5);
  EXPECT_EQ(RaisedNumber([&] { pets.ValueAt(2); }), 5);
  EXPECT_EQ(RaisedNumber([&] { pets.ValueAt(-1, "x"); }), 5);
  pets.MoveNext();
  EXPECT_EQ(RaisedNumber([&] { pets.Value("Name"); }), 5);
}

TEST(Recordset, KeepsItsFieldsOnceItHasRows) {
  Recordset table;
  table.AddField("Name");
  EXPECT_EQ(RaisedNumber([&] { table.AddField("NAME"); }), 457);
  table.AddNew();
  EXPECT_EQ(RaisedNumber([&] { table.AddField("Kind"); }), 5);
}

TEST(Recordset, ACloneSharesTheRowsAndRefusesToWrite) {
  Recordset pets = Pets();
  const std::shared_ptr<Recordset> clone = pets.ReadOnlyClone();
  EXPECT_TRUE(clone->IsReadOnly());
  EXPECT_EQ(clone->Value("Name"), "Rex");
  EXPECT_EQ(pets.Value("Name"), "Tom") << "each has its cursor";
  pets.Value("Name", "Tim");
  clone->MoveLast();
  EXPECT_EQ(clone->Value("Name"), "Tim");
  EXPECT_EQ(RaisedNumber([&] { clone->Value("Name", "Jim"); }), 70);
  EXPECT_EQ(RaisedNumber([&] { clone->ValueAt(0, "Jim"); }), 70);
  EXPECT_EQ(RaisedNumber([&] { clone->AddNew(); }), 70);
  EXPECT_EQ(RaisedNumber([&] { clone->AddField("Age"); }), 70);
  EXPECT_EQ(pets.RecordCount(), 2);
}
