#pragma once

/// @file
/// The program as a user runs it: with a home of its own, its streams in files.

#include "zelnor/platform/values.h"

#include <sys/wait.h>

#include "support/temporary_folder.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zelnor::test {

struct Outcome {
  int status = -1;
  String out;
  String err;
};

class CliTest : public testing::Test {
 protected:
  // Runs the program through a shell with its streams in files.
  Outcome Run(const String& arguments, const String& before = {}) const {
    const String command = before + " '" ZELNOR_PROGRAM "' --home '" + folder_.At("home") + "' " + arguments +
                           " >'" + folder_.At("out.txt") + "' 2>'" + folder_.At("err.txt") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder_.Get("out.txt"), folder_.Get("err.txt")};
  }

  // What the program leaves in the settings, as text of the file.
  String Settings() const { return folder_.Get("home/rti.config"); }

  String Input(const String& text) const { return "'" + folder_.Put("in.xml", text) + "'"; }

  static String Quoted(const String& path) { return "'" + path + "'"; }

  static String SamplePath() { return ZELNOR_SOURCE_DIR "/samples/FPS-25-26.xml"; }

  TemporaryFolder folder_;
};

}  // namespace zelnor::test
