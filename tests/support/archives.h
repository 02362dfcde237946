#pragma once

/// @file
/// Archives made and opened by other programs.

#include "zelnor/envelope/clsBase64.h"

#include <string>

#include "support/shell.h"
#include "support/temporary_folder.h"

namespace zelnor::test {

/// The archive that a shell command writes to `archive` in a folder that holds the bytes as `pay.xml`.
inline std::string ArchiveBy(const std::string& command, const std::string& bytes) {
  const TemporaryFolder folder;
  folder.Put("pay.xml", bytes);
  OutputOf("cd '" + folder.Path() + "' && (" + command + ") >/dev/null");
  return folder.Get("archive");
}

/// What `zip -9` makes of the bytes.
inline std::string ZippedByZip(const std::string& bytes) {
  return ArchiveBy("zip -q -9 made.zip pay.xml && mv made.zip archive", bytes);
}

/// What `gzip -9` makes of the bytes.
inline std::string ZippedByGzip(const std::string& bytes) {
  return ArchiveBy("gzip -9 -c pay.xml >archive", bytes);
}

/// The element with what `zip` makes of employees.
inline std::string CompressedPart(const std::string& employees, const std::string& type = "zip") {
  return "<CompressedPart Type=\"" + type + "\">" + clsBase64().EncodeBytes(ZippedByZip(employees)) +
         "</CompressedPart>";
}

/// What an `unzip` with these options writes of an archive, a line end at the end aside.
inline std::string ByUnzip(const std::string& options, const std::string& archive) {
  const TemporaryFolder folder;
  return OutputOf("unzip " + options + " '" + folder.Put("made.zip", archive) + "'");
}

}  // namespace zelnor::test
