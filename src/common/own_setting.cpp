#include "zelnor/common/own_setting.h"

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/platform/text.h"

#include <map>
#include <mutex>

namespace zelnor {
namespace {

struct OwnSettings {
  std::mutex mutex;
  std::map<String, String> values;
};

OwnSettings& Own() {
  static OwnSettings own;
  return own;
}

}  // namespace

OwnSetting::OwnSetting(String key) : OwnSetting(key, alsAppSettings().ReadSetting(key)) {}

OwnSetting::OwnSetting(String key, const String& value) : key_(std::move(key)), former_(ValueOf(key_)) {
  const std::lock_guard lock(Own().mutex);
  Own().values[key_] = TrimXmlSpace(value);
}

OwnSetting::~OwnSetting() {
  const std::lock_guard lock(Own().mutex);
  if (former_) {
    Own().values[key_] = *former_;
  } else {
    Own().values.erase(key_);
  }
}

std::optional<String> OwnSetting::ValueOf(const String& key) {
  const std::lock_guard lock(Own().mutex);
  const auto found = Own().values.find(key);
  if (found == Own().values.end()) return std::nullopt;
  return found->second;
}

bool OwnSetting::Change(const String& key, const String& value) {
  const std::lock_guard lock(Own().mutex);
  const auto found = Own().values.find(key);
  if (found == Own().values.end()) return false;
  found->second = TrimXmlSpace(value);
  return true;
}

}  // namespace zelnor
