#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/xml_tree.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>

#include <libxml/xmlIO.h>
#include <libxml/xmlschemas.h>

namespace zelnor {

using CompiledSchema = std::unique_ptr<xmlSchema, decltype(&xmlSchemaFree)>;

/// Schema texts by namespace, and what they were compiled to at the first validation.
struct XmlSchemaCollection::Data {
  std::map<String, String> texts;
  CompiledSchema compiled{nullptr, xmlSchemaFree};
};

namespace {

constexpr std::string_view kSchemaNamespace = "http://www.w3.org/2001/XMLSchema";

// Addresses of this scheme are answered from the collection in use; libxml2 asks for them while it follows
// imports.
constexpr std::string_view kScheme = "zelnor-schema:";

thread_local const std::map<String, String>* current_texts = nullptr;

struct OpenText {
  std::string_view rest;
};

int Matches(const char* address) { return std::string_view(address).starts_with(kScheme) ? 1 : 0; }

void* Open(const char* address) {
  if (current_texts == nullptr) return nullptr;
  const auto found = current_texts->find(String(std::string_view(address).substr(kScheme.size())));
  return found == current_texts->end() ? nullptr : new OpenText{found->second};
}

int Read(void* input, char* buffer, int size) {
  std::string_view& rest = static_cast<OpenText*>(input)->rest;
  const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(size));
  std::memcpy(buffer, rest.data(), count);
  rest.remove_prefix(count);
  return static_cast<int>(count);
}

int Close(void* input) {
  delete static_cast<OpenText*>(input);
  return 0;
}

void RegisterScheme() {
  static std::once_flag once;
  std::call_once(once, [] { xmlRegisterInputCallbacks(Matches, Open, Read, Close); });
}

// Points every import to the collection, or to nowhere: nothing is fetched. An include or redefinition is
// refused.
String Rewritten(const XmlDocument& schema, const std::map<String, XmlNode>& known) {
  XmlDocument copy;
  const XmlNode root = copy.AppendChild(copy.ImportNode(schema.DocumentElement(), true));
  std::vector<XmlNode> unwanted;
  for (const XmlNode& child : root.ChildNodes()) {
    if (!child.IsElement() || child.NamespaceURI() != kSchemaNamespace) continue;
    if (child.BaseName() == "include" || child.BaseName() == "redefine") ThrowInvalidArgument();
    if (child.BaseName() != "import") continue;
    const String uri = child.Attribute("namespace").value_or("");
    if (known.contains(uri)) {
      child.Attribute("schemaLocation", String(kScheme) + uri);
    } else {
      child.RemoveAttribute("schemaLocation");
    }
  }
  return copy.Xml();
}

// The first error that libxml2 reports.
struct FirstError {
  Long code = 0;
  String reason;
  const xmlNode* node = nullptr;
};

void KeepFirst(void* context, xmlErrorPtr raised) {
  auto& first = *static_cast<FirstError*>(context);
  if (raised == nullptr || raised->level < XML_ERR_ERROR || first.code != 0) return;
  first.code = raised->code == 0 ? XML_ERR_INTERNAL_ERROR : raised->code;
  first.reason = raised->message == nullptr ? "The document is not valid.\n" : raised->message;
  first.node = static_cast<const xmlNode*>(raised->node);
}

// A schema without content that imports all of the collection's.
String Driver(const std::map<String, String>& texts) {
  XmlDocument driver;
  const XmlNode root =
      driver.AppendChild(driver.CreateNode(XmlNodeType::Element, "xs:schema", kSchemaNamespace));
  for (const auto& [uri, text] : texts) {
    const XmlNode import =
        root.AppendChild(driver.CreateNode(XmlNodeType::Element, "xs:import", kSchemaNamespace));
    if (!uri.empty()) import.Attribute("namespace", uri);
    import.Attribute("schemaLocation", String(kScheme) + uri);
  }
  if (!texts.contains("")) root.Attribute("targetNamespace", "urn:zelnor:driver");
  return driver.Xml();
}

class CurrentTexts {
 public:
  explicit CurrentTexts(const std::map<String, String>& texts) { current_texts = &texts; }
  CurrentTexts(const CurrentTexts&) = delete;
  CurrentTexts& operator=(const CurrentTexts&) = delete;
  ~CurrentTexts() { current_texts = nullptr; }
};

void ReportInvalid(XmlParseError& error, const FirstError& first) {
  error.errorCode = first.code;
  error.reason = first.reason;
  if (!EndsWith(error.reason, "\n")) error.reason += '\n';
  if (first.node != nullptr && first.node->doc != nullptr) {
    error.srcText = XmlNode::Access::Handle(const_cast<xmlNode*>(first.node)).Path();
  }
}

}  // namespace

XmlSchemaCollection::XmlSchemaCollection() : data_(std::make_unique<Data>()) {}
XmlSchemaCollection::~XmlSchemaCollection() = default;

void XmlSchemaCollection::Add(std::string_view namespace_uri, const XmlDocument& schema) {
  if (!schema.DocumentElement()) ThrowInvalidArgument();
  data_->texts[String(namespace_uri)] = schema.DocumentElement().Xml();
  data_->compiled = nullptr;
}

Long XmlSchemaCollection::Length() const { return static_cast<Long>(data_->texts.size()); }

namespace {

// The texts with their imports pointed to one another.
std::map<String, String> LinkedTexts(const std::map<String, String>& texts) {
  std::map<String, XmlDocument> parsed;
  std::map<String, XmlNode> known;
  for (const auto& [uri, text] : texts) {
    const XmlDocument schema;
    schema.LoadXML(text);
    known.emplace(uri, schema.DocumentElement());
    parsed.emplace(uri, schema);
  }
  std::map<String, String> linked;
  for (const auto& [uri, schema] : parsed) linked.emplace(uri, Rewritten(schema, known));
  return linked;
}

// Compiles all schemas of a collection into one; an empty pointer, with the error kept, when one of them is
// not usable.
CompiledSchema Compile(const std::map<String, String>& collected, FirstError& first) {
  RegisterScheme();
  const std::map<String, String> texts = LinkedTexts(collected);
  const CurrentTexts scope(texts);
  const String driver = Driver(texts);
  const std::unique_ptr<xmlSchemaParserCtxt, decltype(&xmlSchemaFreeParserCtxt)> parser(
      xmlSchemaNewMemParserCtxt(driver.data(), static_cast<int>(driver.size())), xmlSchemaFreeParserCtxt);
  if (parser == nullptr) throw std::bad_alloc();
  xmlSchemaSetParserStructuredErrors(parser.get(), KeepFirst, &first);
  CompiledSchema schema(xmlSchemaParse(parser.get()), xmlSchemaFree);
  first.node = nullptr;  // it would lie in a schema
  if (schema == nullptr && first.code == 0)
    first = {XML_ERR_INTERNAL_ERROR, "It could not be read.\n", nullptr};
  if (first.code == 0) return schema;
  first.reason = "A schema is not usable: " + first.reason;
  return {nullptr, xmlSchemaFree};
}

}  // namespace

bool XmlDocument::Validate() const {
  if (!state_) ThrowObjectNotSet();
  XmlParseError& error = state_->parse_error;
  error = {};
  if (state_->schemas == nullptr || !DocumentElement()) {
    ReportInvalid(error,
                  {XML_ERR_DOCUMENT_EMPTY, "There is no document, or no schema, to validate.\n", nullptr});
    return false;
  }
  FirstError first;
  XmlSchemaCollection::Data& schemas = state_->schemas->DataOf();
  if (schemas.compiled == nullptr) schemas.compiled = Compile(schemas.texts, first);
  if (schemas.compiled == nullptr) {
    ReportInvalid(error, first);
    return false;
  }
  const std::unique_ptr<xmlSchemaValidCtxt, decltype(&xmlSchemaFreeValidCtxt)> validator(
      xmlSchemaNewValidCtxt(schemas.compiled.get()), xmlSchemaFreeValidCtxt);
  if (validator == nullptr) throw std::bad_alloc();
  xmlSchemaSetValidStructuredErrors(validator.get(), KeepFirst, &first);
  const int outcome = xmlSchemaValidateDoc(validator.get(), state_->tree->Doc());
  if (outcome == 0 && first.code == 0) return true;
  if (first.code == 0) first = {XML_ERR_INTERNAL_ERROR, "The document could not be validated.\n", nullptr};
  ReportInvalid(error, first);
  return false;
}

}  // namespace zelnor
