#pragma once

#include "zelnor/platform/files.h"

#include "support/recording_host.h"
#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zelnor::test {

/// An empty program's folder for each test, and a recording host whose clock stands at 10:11:12 on 5 April
/// 2017.
class InProgramFolder : public testing::Test {
 protected:
  InProgramFolder() {
    SetProgramFolder(folder_.Path());
    host_->now = Date::FromParts(2017, 4, 5).WithTimeOf(Date::FromTime(10, 11, 12));
  }
  ~InProgramFolder() override { SetProgramFolder(""); }

  /// The texts of the boxes shown so far.
  std::vector<String> Boxes() const {
    std::vector<String> texts;
    for (const ShownMessage& message : host_->messages) texts.push_back(message.text);
    return texts;
  }

  /// Gives up the boxes shown so far.
  void ClearBoxes() { host_->messages.clear(); }

  TemporaryFolder folder_;
  WithRecordingHost host_;
};

}  // namespace zelnor::test
