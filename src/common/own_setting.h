#pragma once

/// @file
/// Settings that hold for a part of the process's life only, and never reach `rti.config`.
///
/// @code
/// const OwnSetting validation_required("ValidationRequired");
/// rti.ValidationRequired(false);  // for this process alone, until the object goes
/// @endcode

#include "zelnor/platform/values.h"

#include <optional>

namespace zelnor {

/// A setting of this process's own, for as long as the object lives. Meanwhile alsAppSettings reads and
/// changes the key here, in every version, and the file is neither asked nor written for it; so nothing is
/// left behind, however the process ends. Objects of one key that overlap go in the reverse order of their
/// coming. The values are the process's: every thread sees them.
class ZELNOR_INTERNAL OwnSetting {
 public:
  /// Begins with what the key reads now; empty when that fails, which alsAppSettings reports.
  explicit OwnSetting(String key);

  /// Begins with a value.
  OwnSetting(String key, const String& value);

  OwnSetting(const OwnSetting&) = delete;
  OwnSetting& operator=(const OwnSetting&) = delete;

  /// The key reads again as before: the object that was there earlier, or the file.
  ~OwnSetting();

  /// The process's own value of a key; nothing for a key of which the file decides.
  static std::optional<String> ValueOf(const String& key);

  /// Changes the process's own value of a key, without white space at the ends as in the file. False, and
  /// nothing is done, for a key of which the file decides.
  static bool Change(const String& key, const String& value);

 private:
  String key_;
  std::optional<String> former_;
};

}  // namespace zelnor
