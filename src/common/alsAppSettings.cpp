#include "zelnor/common/alsAppSettings.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/common/own_setting.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

constexpr std::string_view kClass = "alsAppSettings";

// A file that can't be read is told of once, not at each of the many loads; again when it has changed.
bool IsNews(const String& path, Date modified) {
  static String told_path;
  static Date told_date;
  if (path == told_path && modified == told_date) return false;
  told_path = path;
  told_date = modified;
  return true;
}

}  // namespace

alsAppSettings::alsAppSettings() {
  Handled(kClass, "Sub Class_Initialize", [&] {
    path_ = ProgramFolder() + "\\rti.config";
    if (FileExists(path_)) {
      LoadConfig();
    } else {
      CreateConfigFile();
    }
  });
}

void alsAppSettings::CreateConfigFile() {
  Handled(kClass, "Sub CreateConfigFile", [&] {
    document_ = XmlDocument();
    document_.AppendChild(document_.CreateElement("Config")).AppendElement("Settings");
    CreateFolder(path_);
    document_.Save(path_);
    last_known_ = FileDate(path_);
  });
}

void alsAppSettings::LoadConfig() {
  Handled(kClass, "Sub LoadConfig", [&] {
    document_ = XmlDocument();
    if (document_.Load(path_) || !IsNews(path_, FileDate(path_))) return;
    const XmlParseError& error = document_.ParseError();
    throw RuntimeError(440, "ZELNOR",
                       "The settings file " + path_ + " can't be read (line " + std::to_string(error.line) +
                           "): " + String(TrimXmlSpace(error.reason)) +
                           " Mend or delete it; a new one is then made.");
  });
}

Date alsAppSettings::GetLastModifiedDate() { return FileDate(path_); }

bool alsAppSettings::FileChangedSinceLastAccessed() { return last_known_ != GetLastModifiedDate(); }

void alsAppSettings::ReloadWhenChanged() {
  if (FileChangedSinceLastAccessed()) LoadConfig();
}

XmlNode alsAppSettings::Find(const String& key, const String& version) {
  String path = "Config/Settings/" + key;
  if (!version.empty()) path += "[@Version='" + version + "']";
  return document_.SelectSingleNode(path);
}

String alsAppSettings::ReadSetting(const String& strKey, const String& strVersion) {
  if (const std::optional<String> own = OwnSetting::ValueOf(strKey)) return *own;
  String result;
  Handled(kClass, "Function ReadSetting", [&] {
    ReloadWhenChanged();
    if (const XmlNode setting = Find(strKey, strVersion)) result = setting.Text();
  });
  return result;
}

bool alsAppSettings::SetSetting(const String& strKey, const String& strValue, const String& strVersion) {
  if (OwnSetting::Change(strKey, strValue)) return true;
  bool result = false;
  Handled(kClass, "Function SetSetting", [&] {
    ReloadWhenChanged();
    document_.CreateElement(strKey);  // error 5 for a key such as "*", which would reach other settings
    XmlNode setting = Find(strKey, strVersion);
    if (!setting) setting = document_.SelectSingleNode("Config/Settings").AppendElement(strKey);
    setting.Text(strValue);
    if (!strVersion.empty()) setting.Attribute("Version", strVersion);
    if (!batching_) Save();
    result = true;
  });
  return result;
}

bool alsAppSettings::RemoveSetting(const String& strKey, const String& strVersion) {
  bool result = false;
  Handled(kClass, "Function RemoveSetting", [&] {
    ReloadWhenChanged();
    const XmlNode setting = Find(strKey, strVersion);
    if (!setting) return;
    document_.RemoveChild(setting);
    result = true;
    if (!batching_) Save();
  });
  return result;
}

void alsAppSettings::BeginUpdate() { batching_ = true; }

// After a failed load there is nothing to write: the file, which a person may still mend, is left alone.
void alsAppSettings::WriteDocument() {
  if (!document_.DocumentElement()) ThrowObjectNotSet();
  document_.Save(path_);
}

void alsAppSettings::EndUpdate() {
  Handled(kClass, "Sub EndUpdate", [&] {
    WriteDocument();
    batching_ = false;
  });
}

void alsAppSettings::Save() {
  Handled(kClass, "Sub Save", [&] {
    WriteDocument();
    last_known_ = FileDate(path_);
  });
}

}  // namespace zelnor
