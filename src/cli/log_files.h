#pragma once

/// @file
/// The logs of the program's folder, and what a command tells of one.

#include "zelnor/cli/command.h"
#include "zelnor/report/log_report.h"

namespace zelnor::cli {

/// A log's file.
struct LogFile {
  String name;
  String path;
  Date begun;  ///< as its name tells
};

/// The folder of the logs, with a trailing separator.
String LogFolder();

/// The logs in that folder, newest first: the files that are named as a log is, prefix_yyyy_mm_dd_hhnnss.xml.
std::vector<LogFile> LogFiles();

/// The path of a log that a person named by its path, by its name in the log folder, with or without ".xml",
/// or, with an empty text, of the newest. CommandError (kUnreadableInput) where there is none.
String PathOfLog(const String& given);

/// Reads a log. CommandError (kUnreadableInput) for anything else.
XmlDocument ReadLog(const String& path);

/// The order that a person named; empty for the log's own.
report::Order OrderOf(const String& name);

/// All that a log says, for another program.
Json JsonOf(const report::LogFacts& facts);

}  // namespace zelnor::cli
