// What a host's report needs of the log: the viewer, the style sheet, the findings as a table.

#include "zelnor/common/clsLog.h"

#include "log_fixture.h"

using namespace zelnor;
using namespace zelnor::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

class clsLogReport : public LogTest {
 protected:
  /// The bytes of the log's file, and the file gone, so that the next look tells whether it was written
  /// again.
  String TakeFile() {
    const String bytes = File();
    if (!bytes.empty()) DeleteFile(folder_.At(kLogFile));
    return bytes;
  }
};

constexpr const char* kHead = R"(<?xml version="1.0" encoding="utf-8"?>)";

}  // namespace

TEST_F(clsLogReport, OpenLogSavesAndHasTheHostShowTheFile) {
  clsLog log;
  log.AddTimingRecord("x");
  log.OpenLog();
  EXPECT_THAT(File(), HasSubstr("<Timing"));
  EXPECT_THAT(host_->opened, ElementsAre(std::make_pair(
                                 String(), folder_.Path() + "\\xml\\logs\\Log_2017_04_05_101112.xml")));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(clsLogReport, OpenLogDoesNotSaveWhatIsSaved) {
  clsLog log;
  log.AddTimingRecord("x");
  log.Save();
  TakeFile();
  log.OpenLog();
  EXPECT_EQ(File(), "");
  EXPECT_EQ(host_->opened.size(), 1U);
}

TEST_F(clsLogReport, OpenLogReportsAViewerThatIsNotThere) {
  clsLog log;
  host_->can_open = false;
  log.OpenLog();
  EXPECT_THAT(Boxes(), ElementsAre("Error in ZELNOR.dll::clsLog: Sub OpenLog: Error 53 - File not found"));
}

TEST_F(clsLogReport, StylesheetStandsBehindTheDeclaration) {
  clsLog log;
  EXPECT_EQ(log.Stylesheet(), "");
  log.Stylesheet("C:\\rti\\log.xsl");
  EXPECT_EQ(log.Stylesheet(), "C:\\rti\\log.xsl");
  EXPECT_THAT(File(),
              StartsWith(String(kHead) + R"(<?xml-stylesheet type="text/xsl" href="C:\rti\log.xsl"?><Log )"));
  EXPECT_TRUE(log.IsSavedToDate());
}

TEST_F(clsLogReport, AnotherStylesheetTakesItsPlace) {
  clsLog log;
  log.Stylesheet("one.xsl");
  log.Stylesheet("two.xsl");
  EXPECT_EQ(log.Stylesheet(), "two.xsl");
  EXPECT_THAT(File(),
              StartsWith(String(kHead) + R"(<?xml-stylesheet type="text/xsl" href="two.xsl"?><Log )"));
}

TEST_F(clsLogReport, TheSameStylesheetInOtherLettersIsSavedOnce) {
  clsLog log;
  log.Stylesheet("log.xsl");
  TakeFile();
  log.Stylesheet("LOG.XSL");
  EXPECT_EQ(File(), "");
  EXPECT_EQ(log.Stylesheet(), "log.xsl");
  EXPECT_FALSE(log.IsSavedToDate());
}

TEST_F(clsLogReport, AnEmptyStylesheetTakesTheInstructionAwayWithoutSaving) {
  clsLog log;
  log.Stylesheet("log.xsl");
  TakeFile();
  log.Stylesheet("");
  EXPECT_EQ(File(), "");
  EXPECT_EQ(log.Stylesheet(), "log.xsl");
  log.Save();
  EXPECT_THAT(TakeFile(), Not(HasSubstr("xml-stylesheet")));
  log.Stylesheet("log.xsl");
  EXPECT_THAT(File(), HasSubstr("xml-stylesheet"))
      << "the former value counts only where its instruction stands";
}

TEST_F(clsLogReport, AnEmptyStylesheetWithoutInstructionIsNotSaved) {
  clsLog log;
  log.Stylesheet("");
  EXPECT_EQ(File(), "");
  EXPECT_FALSE(log.IsSavedToDate());
}

TEST_F(clsLogReport, AStylesheetThatCannotBeWrittenIsReported) {
  clsLog log;
  log.Stylesheet("a?>b");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("Error in ZELNOR.dll::clsLog: Let Stylesheet: Error 5 - ")));
  EXPECT_EQ(log.Stylesheet(), "");
}

TEST_F(clsLogReport, FindingsAreRowsOfATable) {
  clsLog log;
  log.AddEmployeeValidationErrors(
      Root("<E><Error><ErrorType>Employee</ErrorType><Code>E4.1.1</Code></Error>"
           "<Error><ErrorType>Employee</ErrorType><Code>E4.2.1</Code></Error></E>"));
  const Ref<Recordset> rows = log.GetAsRecordset();
  ASSERT_TRUE(rows);
  EXPECT_TRUE(rows->IsReadOnly());
  EXPECT_THAT(rows->Fields(), ElementsAre("ErrorType", "Code"));
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Value("Code"), "E4.1.1");
  rows->MoveNext();
  EXPECT_EQ(rows->Value("Code"), "E4.2.1");
  EXPECT_EQ(rows->Value("ErrorType"), "Employee");
}

TEST_F(clsLogReport, FindingsGoToFieldsByPosition) {
  clsLog log;
  log.AddFileValidationErrors(
      Root("<E><Error><A>1</A><B>2</B></Error>"
           "<Error><B>3</B></Error>"
           "<Error><A>4</A><B>5</B><InnerExceptions><C>6</C></InnerExceptions></Error></E>"));
  const Ref<Recordset> rows = log.GetAsRecordset();
  rows->MoveNext();
  EXPECT_EQ(rows->Value("A"), "3");
  EXPECT_EQ(rows->Value("B"), "");
  rows->MoveNext();
  EXPECT_EQ(rows->Value("B"), "5");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(clsLogReport, NoFindingsAreATableWithoutFields) {
  clsLog log;
  const Ref<Recordset> rows = log.GetAsRecordset();
  ASSERT_TRUE(rows);
  EXPECT_THAT(rows->Fields(), IsEmpty());
  EXPECT_EQ(rows->RecordCount(), 0);
}
