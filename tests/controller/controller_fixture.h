#pragma once

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/common/process_state.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/platform/files.h"

#include "support/child_process.h"
#include "support/recording_host.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {

/// A program's folder of its own with the project's schemas, a recording host whose clock stands at 10:11:12
/// on 5 April 2017, and the process's values as at the start.
class ControllerTest : public testing::Test {
 protected:
  ControllerTest() {
    SetProgramFolder(folder_.Path());
    FurnishProgramFolder();
    host_->now = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(10, 11, 12));
    Process() = {};
  }
  ~ControllerTest() override {
    Process() = {};
    SetProgramFolder("");
  }

  static String Setting(const String& key) { return alsAppSettings().ReadSetting(key); }
  static void Set(const String& key, const String& value) { alsAppSettings().SetSetting(key, value); }

  /// Gives the rules a day on which the sample's dates are good; the clock stays.
  static void TodayOfTheSample() { Process().SystemDate = Date::FromParts(2025, 10, 1); }

  /// The lines of the log so far.
  static std::vector<String> Lines(const clsRTIController& rti) {
    std::vector<String> lines;
    for (const XmlNode& line : rti.ProcessingLog()->GetAsXML().SelectNodes("LogRecords/Timing")) {
      lines.push_back(line.Text());
    }
    return lines;
  }

  static String Sample() { return ReadFile(ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml"); }

  TemporaryFolder folder_;
  WithRecordingHost host_;
};

}  // namespace zelnor::test
