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

  /// The file's modification time; the zero date after a failure.
  Date GetLastModifiedDate();

  /// Whether the file's time differs from the one after this object's last save. An object that has only
  /// loaded sees the file as changed.
  bool FileChangedSinceLastAccessed();

  /// The text of a key; empty when there is none. With a version, only the key's element with that attribute
  /// `Version` is looked at; without one, the first element of the key.
  String ReadSetting(const String& strKey, const String& strVersion = {});

  /// Writes a key's text, and the file unless updates are gathered. True; False after a failure, such as a
  /// key that is no element name.
  bool SetSetting(const String& strKey, const String& strValue, const String& strVersion = {});

  /// Asks the document itself to remove the key's element. Since a setting is no child of the document this
  /// is refused: a key that is there is reported as an error. False.
  bool RemoveSetting(const String& strKey, const String& strVersion = {});

  /// Gathers changes until EndUpdate writes them.
  void BeginUpdate();
  void EndUpdate();

  /// Writes the file.
  void Save();

 private:
  void CreateConfigFile();
  XmlNode Find(const String& key, const String& version);
  void ReloadWhenChanged();

  String path_;
  XmlDocument document_;
  Date last_known_;
  bool batching_ = false;
};

}  // namespace zelnor
