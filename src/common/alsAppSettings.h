#pragma once

#include "zelnor/platform/xml.h"

namespace zelnor {

/// The settings in `rti.config`, an XML file in the program's folder: a flat list of keys, each with a text.
/// An object is cheap and short-lived; it makes the file when it is missing and notices when the file changed
/// under it. Defaults are not kept here: whoever reads an empty key writes its default.
///
/// Failures are shown in the host's message box ("Error in ZELNOR.dll::alsAppSettings: ...").
///
/// @code
/// alsAppSettings settings;
/// if (settings.ReadSetting("LogPrefix").empty()) settings.SetSetting("LogPrefix", "Log");
/// @endcode
class ZELNOR_API alsAppSettings {
 public:
  /// Loads the file, or makes it with no settings.
  alsAppSettings();
  alsAppSettings(const alsAppSettings&) = delete;
  alsAppSettings& operator=(const alsAppSettings&) = delete;

  /// Parses the file anew. A file that isn't well formed is reported and gives a document without settings.
  void LoadConfig();

  /// The file's modification time. Raises error 53 when the file is gone.
  Date GetLastModifiedDate();

  /// Whether the file's time differs from the one after this object's last save. An object that has only
  /// loaded sees the file as changed. Raises error 53 when the file is gone.
  bool FileChangedSinceLastAccessed();

  /// The text of a key; empty when there is none. With a version, only the key's element with that attribute
  /// `Version` is looked at; without one, the first element of the key. Empty, and reported, when the file is
  /// gone (error 53).
  String ReadSetting(const String& strKey, const String& strVersion = {});

  /// Writes a key's text, and the file unless updates are gathered. A text comes back without white space at
  /// its ends, and without what no XML file can hold: a line feed stands for a carriage return, U+FFFD for a
  /// forbidden character. True, also when the file could not be written, which Save reports; False after a
  /// failure: a key that is no element name (error 5), a file without `Settings` (error 91).
  bool SetSetting(const String& strKey, const String& strValue, const String& strVersion = {});

  /// Asks the document itself to remove the key's element. Since a setting is no child of the document this
  /// is refused: a key that is there is reported as an error. False.
  bool RemoveSetting(const String& strKey, const String& strVersion = {});

  /// From here on changes stay in this object, until EndUpdate writes them. Gather in an object that has
  /// saved once: one that has only loaded sees the file as changed, loads it again before its next operation
  /// and so loses what it gathered.
  void BeginUpdate();

  /// Writes the file and ends the gathering. The file counts as changed afterwards. A file that can't be
  /// written is reported, and the gathering goes on.
  void EndUpdate();

  /// Writes the file. Without a document, after a failed load, that is refused (error 91) and the file left
  /// alone.
  void Save();

 private:
  void CreateConfigFile();
  XmlNode Find(const String& key, const String& version);
  void ReloadWhenChanged();
  void WriteDocument();

  String path_;
  XmlDocument document_;
  Date last_known_;
  bool batching_ = false;
};

}  // namespace zelnor
