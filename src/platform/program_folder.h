#pragma once

/// @file
/// The steps behind the program's folder.

#include "zelnor/platform/values.h"

#include <vector>

namespace zelnor {

/// Fills `folder`, when it is missing or empty, with the `xsd` folder and the style sheets (`*.xsl`) of the
/// first of the `sources` that has an `xsd` folder. Makes the folder's parents. Returns whether anything was
/// copied; after a failure what was copied is taken away again.
ZELNOR_INTERNAL bool FurnishFolder(const String& folder, const std::vector<String>& sources);

}  // namespace zelnor
