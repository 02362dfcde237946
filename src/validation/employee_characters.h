#pragma once

/// @file
/// The characters that names and addresses of employees may have, as the insides of pattern's brackets. The
/// patterns are put together from these, so that a change of one changes all its rules.

#include "zelnor/platform/values.h"

namespace zelnor {

inline const String kFirstLetters = "a-zA-Z";
inline const String kNameSet = R"(a-zA-Z \-'‘)";
inline const String kFirstOfAddress = "a-zA-Z0-9";
inline const String kAddressSet = R"re(a-zA-Z0-9 \.,\-\(\)/=!"%&\*;<>'\+:\?)re";

/// A set less its blanks.
inline String WithoutBlanks(String set) {
  std::erase(set, ' ');
  return set;
}

}  // namespace zelnor
