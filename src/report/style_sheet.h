#pragma once

#include "zelnor/platform/xml.h"

#include <map>

namespace zelnor::report {

/// What a style sheet makes of a document, as HTML text.
///
/// The style sheet can read and write nothing but the document: no file, no network. Its parameters get
/// texts. Raises error 440 with the processor's reason when the style sheet is none or gives up.
String HtmlOf(const XmlDocument& document, std::string_view style_sheet,
              const std::map<String, String>& parameters);

/// The same for a style sheet whose result is a document.
XmlDocument DocumentOf(const XmlDocument& document, std::string_view style_sheet,
                       const std::map<String, String>& parameters);

}  // namespace zelnor::report
