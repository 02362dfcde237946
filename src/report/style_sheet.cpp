#include "zelnor/report/style_sheet.h"

#include "zelnor/platform/failure.h"

#include <cstdarg>
#include <cstdio>
#include <memory>

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/variables.h>
#include <libxslt/xslt.h>
#include <libxslt/xsltutils.h>

namespace zelnor::report {
namespace {

constexpr Long kAutomationError = 440;

struct Deleter {
  void operator()(xmlDoc* doc) const { xmlFreeDoc(doc); }
  void operator()(xsltStylesheet* sheet) const { xsltFreeStylesheet(sheet); }
  void operator()(xsltTransformContext* context) const { xsltFreeTransformContext(context); }
  void operator()(xsltSecurityPrefs* prefs) const { xsltFreeSecurityPrefs(prefs); }
  void operator()(xmlChar* text) const { xmlFree(text); }
};
template <class T>
using Owned = std::unique_ptr<T, Deleter>;

[[noreturn]] void Fail(const String& reason) { throw RuntimeError(kAutomationError, "ZELNOR", reason); }

// Collects the processor's complaints.
__attribute__((format(printf, 2, 3))) void Collect(void* reason, const char* format, ...) {
  char line[512];
  va_list values;
  va_start(values, format);
  std::vsnprintf(line, sizeof line, format, values);
  va_end(values);
  *static_cast<String*>(reason) += line;
}

// Entities of the text itself are replaced; none is fetched.
Owned<xmlDoc> Parse(std::string_view text, int more_options) {
  constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  Owned<xmlDoc> doc(
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, "UTF-8", kOptions | more_options));
  if (!doc) Fail("The text is no XML.");
  return doc;
}

Owned<xsltStylesheet> Compile(std::string_view style_sheet) {
  Owned<xmlDoc> doc = Parse(style_sheet, 0);
  Owned<xsltStylesheet> sheet(xsltParseStylesheetDoc(doc.get()));
  if (!sheet) Fail("The text is no style sheet.");
  static_cast<void>(doc.release());  // the style sheet has it now
  if (sheet->errors != 0) Fail("The style sheet has errors.");
  return sheet;
}

void ForbidAll(xsltTransformContext* context, xsltSecurityPrefs* prefs) {
  for (const xsltSecurityOption option :
       {XSLT_SECPREF_READ_FILE, XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY,
        XSLT_SECPREF_READ_NETWORK, XSLT_SECPREF_WRITE_NETWORK}) {
    xsltSetSecurityPrefs(prefs, option, xsltSecurityForbid);
  }
  xsltSetCtxtSecurityPrefs(prefs, context);
}

Owned<xmlDoc> Transform(const XmlDocument& document, xsltStylesheet* sheet,
                        const std::map<String, String>& parameters) {
  const Owned<xmlDoc> source = Parse(document.Xml(), XML_PARSE_HUGE);
  const Owned<xsltTransformContext> context(xsltNewTransformContext(sheet, source.get()));
  const Owned<xsltSecurityPrefs> prefs(xsltNewSecurityPrefs());
  if (!context || !prefs) throw std::bad_alloc();
  String reason;
  xsltSetTransformErrorFunc(context.get(), &reason, Collect);
  ForbidAll(context.get(), prefs.get());
  for (const auto& [name, value] : parameters) {
    xsltQuoteOneUserParam(context.get(), reinterpret_cast<const xmlChar*>(name.c_str()),
                          reinterpret_cast<const xmlChar*>(value.c_str()));
  }
  Owned<xmlDoc> result(
      xsltApplyStylesheetUser(sheet, source.get(), nullptr, nullptr, nullptr, context.get()));
  if (!result || context->state != XSLT_STATE_OK) Fail(reason.empty() ? "The style sheet gave up." : reason);
  return result;
}

String Taken(xmlChar* text, int size) {
  const Owned<xmlChar> owned(text);
  return text == nullptr ? String()
                         : String(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}

}  // namespace

String HtmlOf(const XmlDocument& document, std::string_view style_sheet,
              const std::map<String, String>& parameters) {
  const Owned<xsltStylesheet> sheet = Compile(style_sheet);
  const Owned<xmlDoc> result = Transform(document, sheet.get(), parameters);
  xmlChar* text = nullptr;
  int size = 0;
  if (xsltSaveResultToString(&text, &size, result.get(), sheet.get()) != 0) throw std::bad_alloc();
  return Taken(text, size);
}

XmlDocument DocumentOf(const XmlDocument& document, std::string_view style_sheet,
                       const std::map<String, String>& parameters) {
  const Owned<xsltStylesheet> sheet = Compile(style_sheet);
  const Owned<xmlDoc> result = Transform(document, sheet.get(), parameters);
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpMemoryEnc(result.get(), &text, &size, "UTF-8");
  XmlDocument made;
  if (!made.LoadXML(Taken(text, size)))
    Fail("The style sheet's result is no document: " + made.ParseError().reason);
  return made;
}

}  // namespace zelnor::report
