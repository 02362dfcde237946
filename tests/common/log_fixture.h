#pragma once

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/platform/files.h"

#include <algorithm>
#include <memory>

#include "common_fixture.h"
#include "support/records.h"

namespace zelnor::test {

/// A log's elements as text, and its folder of files.
class LogTest : public InProgramFolder {
 protected:
  static constexpr const char* kFolder = "xml/logs/";

  /// Where this fixture's clock puts a log by default, from the program's folder.
  static constexpr const char* kLogFile = "xml/logs/Log_2017_04_05_101112.xml";

  static void Set(const String& key, const String& value) { alsAppSettings().SetSetting(key, value); }
  static String Setting(const String& key) { return alsAppSettings().ReadSetting(key); }

  /// The child of the log's root of that name, as text.
  static String Xml(clsLog& log, std::string_view name) { return log.GetAsXML().FindChild(name).Xml(); }

  static String RootAttribute(clsLog& log, std::string_view name) {
    return log.GetAsXML().Attribute(name).value_or("(absent)");
  }

  /// The bytes of the log's file; empty when there is none.
  String File() const { return folder_.Get(kLogFile); }

  void PutLog(const String& name) { folder_.Put(kFolder + name, "<Log/>"); }

  /// The names in the log folder, in order.
  std::vector<String> LogNames() const {
    std::vector<String> names = FileNames(folder_.At(kFolder));
    std::sort(names.begin(), names.end());
    return names;
  }

  /// Moves the clock on.
  void Later(int seconds) { host_->Sleep(seconds * 1000); }
};

}  // namespace zelnor::test
