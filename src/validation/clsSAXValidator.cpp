#include "zelnor/validation/clsSAXValidator.h"

#include "zelnor/platform/conversions.h"

namespace zelnor {

String clsSAXValidator::Formatted(const Locator& locator, std::string_view message) {
  return ToText(locator.lineNumber) + "." + ToText(locator.columnNumber) + ": " + String(message);
}

}  // namespace zelnor
