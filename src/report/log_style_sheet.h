#pragma once

#include <string_view>

namespace zelnor::report {

/// The text of `log.xsl`, which the build puts into the program.
extern const std::string_view kLogStyleSheet;

}  // namespace zelnor::report
