#include "zelnor/documents/clsSectionPOC.h"

#include "support/records.h"
#include <gtest/gtest.h>

namespace zelnor {
namespace {

TEST(clsSectionPOC, ReadsAndWritesNothing) {
  clsSectionPOC section;
  EXPECT_FALSE(section.ParseFromXML("<RTI></RTI>"));
  EXPECT_FALSE(test::ReadInto(section, "<RTI></RTI>"));
  EXPECT_EQ(section.XML(), "");
  EXPECT_FALSE(section.Document());
}

TEST(clsSectionPOC, HasConstantsAndOneFlag) {
  clsSectionPOC section;
  EXPECT_EQ(section.Class(), "");
  EXPECT_EQ(section.RootElementName(), "RTI");
  EXPECT_FALSE(section.UseCompression());
  section.UseCompression(true);
  EXPECT_TRUE(section.UseCompression());
}

}  // namespace
}  // namespace zelnor
