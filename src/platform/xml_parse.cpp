#include "zelnor/platform/text.h"
#include "zelnor/platform/xml_tree.h"

#include <algorithm>
#include <cstring>

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>

namespace zelnor {
namespace {

// Error codes of this parser's own bounds, beyond those of libxml2.
constexpr Long kTooLarge = 90001;
constexpr Long kTooDeep = 90002;
constexpr Long kExternalEntity = 90003;
constexpr Long kUnreadable = 90004;

// One parse under way; reached from libxml2's callbacks through the parser context's `_private`.
struct Run {
  const XmlParseRequest* request = nullptr;
  XmlParseError* error = nullptr;
  Tree* tree = nullptr;
  std::int64_t bytes = 0;
  String beginning = {};  // the first bytes, in which the declaration stands
  const xmlNs* last_seen = nullptr;
  xmlNs* last_own = nullptr;  // the tree's namespace for last_seen

  xmlNs* OwnNamespace(const xmlNs* seen) {
    if (seen == nullptr) return nullptr;
    if (seen != last_seen) {
      last_seen = seen;
      last_own = tree->Namespace(View(seen->href), View(seen->prefix));
    }
    return last_own;
  }
};

xmlParserCtxt* Context(void* context) { return static_cast<xmlParserCtxt*>(context); }
Run& RunOf(void* context) { return *static_cast<Run*>(Context(context)->_private); }

// The input's line at the parser's position, cut at 256 characters.
String SourceLine(const xmlParserInput* input) {
  if (input == nullptr || input->cur == nullptr || input->base == nullptr) return {};
  constexpr std::ptrdiff_t kReach = 4096;
  const xmlChar* begin = input->cur;
  if (begin > input->base && *begin == '\n') --begin;
  while (begin > input->base && begin[-1] != '\n' && input->cur - begin < kReach) --begin;
  const xmlChar* end = input->cur;
  while (end < input->end && *end != '\n' && *end != 0 && end - begin < kReach) ++end;
  return Left(Tree::Clean({reinterpret_cast<const char*>(begin), static_cast<std::size_t>(end - begin)}),
              256);
}

// Keeps the first error.
void Fail(xmlParserCtxt* context, Long code, String reason, Long line, Long column) {
  XmlParseError& error = *RunOf(context).error;
  if (error.errorCode != 0) return;
  error.errorCode = code;
  error.reason = std::move(reason);
  if (!EndsWith(error.reason, "\n")) error.reason += '\n';
  error.line = line;
  error.linepos = column;
  error.filepos = static_cast<Long>(std::max<long>(0, xmlByteConsumed(context)));
  error.srcText = SourceLine(context->input);
  error.url = RunOf(context).request->url;
}

void Refuse(xmlParserCtxt* context, Long code, String reason) {
  const xmlParserInput* input = context->input;
  Fail(context, code, std::move(reason), input == nullptr ? 0 : input->line,
       input == nullptr ? 0 : input->col);
  xmlStopParser(context);
  context->wellFormed = 0;
}

void OnError(void* context, xmlErrorPtr raised) {
  if (raised == nullptr || raised->level < XML_ERR_ERROR) return;
  Fail(Context(context), raised->code,
       raised->message == nullptr ? "The text is not well formed." : raised->message, raised->line,
       raised->int2);
}

// Drops a text of white space alone that has just been completed by what follows it. The parser keeps the
// values of xml:space as a stack; the open element's is the topmost, and the one below at the start of a
// child.
void DropBlank(xmlParserCtxt* context, int levels_above_open_element = 0) {
  if (context->node == nullptr || RunOf(context).request->preserve_white_space) return;
  xmlNode* last = context->node->last;
  if (last == nullptr || last->type != XML_TEXT_NODE || !IsBlank(last)) return;
  const int level = context->spaceNr - 1 - levels_above_open_element;
  if (level >= 0 && context->spaceTab[level] == 1) return;  // xml:space="preserve"
  xmlUnlinkNode(last);
  xmlFreeNode(last);
}

void OnStartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                    int namespace_count, const xmlChar** namespaces, int attribute_count, int defaulted_count,
                    const xmlChar** attributes) {
  xmlParserCtxt* parser = Context(context);
  DropBlank(parser, 1);
  if (parser->nodeNr >= kMaxXmlDepth) {
    Refuse(parser, kTooDeep,
           "The document is nested deeper than " + std::to_string(kMaxXmlDepth) + " levels.");
    return;
  }
  xmlSAX2StartElementNs(context, name, prefix, uri, namespace_count, namespaces, attribute_count,
                        defaulted_count, attributes);
  xmlNode* node = parser->node;
  if (node == nullptr) return;
  Run& run = RunOf(context);
  node->ns = run.OwnNamespace(node->ns);
  for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
    attribute->ns = run.OwnNamespace(attribute->ns);
  }
}

void OnEndElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
  DropBlank(Context(context));
  xmlSAX2EndElementNs(context, name, prefix, uri);
}

void OnComment(void* context, const xmlChar* text) {
  DropBlank(Context(context));
  xmlSAX2Comment(context, text);
}

// Each section is a node of its own; libxml2's handler would join neighbours.
void OnCData(void* context, const xmlChar* text, int length) {
  xmlParserCtxt* parser = Context(context);
  DropBlank(parser);
  xmlNode* section = xmlNewCDataBlock(parser->myDoc, text, length);
  if (section == nullptr) return Refuse(parser, XML_ERR_NO_MEMORY, "There is not enough memory.");
  xmlAddChild(parser->node, section);
}

void OnInstruction(void* context, const xmlChar* target, const xmlChar* data) {
  DropBlank(Context(context));
  xmlSAX2ProcessingInstruction(context, target, data);
}

// A document type may declare entities: libxml2's own bounds on their expansion hold only without this
// option.
void OnInternalSubset(void* context, const xmlChar* name, const xmlChar* external_id,
                      const xmlChar* system_id) {
  Context(context)->options &= ~XML_PARSE_HUGE;
  xmlSAX2InternalSubset(context, name, external_id, system_id);
}

void OnEntity(void* context, const xmlChar* name, int type, const xmlChar* public_id,
              const xmlChar* system_id, xmlChar* content) {
  if (type == XML_EXTERNAL_GENERAL_PARSED_ENTITY || type == XML_EXTERNAL_PARAMETER_ENTITY) {
    Refuse(
        Context(context), kExternalEntity,
        "The document declares the external entity '" + String(View(name)) + "'; nothing is ever fetched.");
    return;
  }
  xmlSAX2EntityDecl(context, name, type, public_id, system_id, content);
}

// No external subset or entity is ever loaded.
xmlParserInput* OnResolve(void* /*context*/, const xmlChar* /*public_id*/, const xmlChar* /*system_id*/) {
  return nullptr;
}

struct Input {
  Run* run;
  bool too_large = false;
  bool unreadable = false;
};

int OnRead(void* input_pointer, char* buffer, int size) {
  auto& input = *static_cast<Input*>(input_pointer);
  const int count = input.run->request->read(buffer, size);
  if (count < 0) {
    input.unreadable = true;
    return 0;
  }
  input.run->bytes += count;
  if (input.run->bytes > kMaxXmlBytes) {
    input.too_large = true;
    return 0;
  }
  String& beginning = input.run->beginning;
  if (beginning.size() < 1024)
    beginning.append(buffer, std::min<std::size_t>(static_cast<std::size_t>(count), 1024));
  return count;
}

int OnClose(void* /*input*/) { return 0; }

// The data of the XML declaration, as it stands in the input; empty where there is none.
String DeclarationData(String beginning) {
  // A declaration is all ASCII; in wider encodings the bytes between its characters are zero.
  std::erase(beginning, '\0');
  std::string_view text = beginning;
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
  }
  const bool declared = text.starts_with("<?xml") && text.size() > 5 &&
                        std::string_view(" \t\r\n").find(text[5]) != std::string_view::npos;
  const std::size_t end = declared ? text.find("?>") : std::string_view::npos;
  return end == std::string_view::npos ? String() : Tree::Clean(TrimXmlSpace(text.substr(5, end - 5)));
}

// The declaration becomes a node, the document's first child.
void AddDeclaration(xmlDoc* doc, const String& data) {
  if (data.empty()) return;
  xmlNode* instruction = xmlNewDocPI(doc, reinterpret_cast<const xmlChar*>("xml"), Chars(data));
  if (instruction == nullptr) throw std::bad_alloc();
  auto* document = reinterpret_cast<xmlNode*>(doc);
  if (doc->children == nullptr) {
    xmlAddChild(document, instruction);
  } else {
    xmlAddPrevSibling(doc->children, instruction);
  }
}

void SetHandlers(xmlParserCtxt* context, Run& run) {
  context->_private = &run;
  xmlSAXHandler& sax = *context->sax;
  sax.startElementNs = OnStartElement;
  sax.endElementNs = OnEndElement;
  sax.comment = OnComment;
  sax.cdataBlock = OnCData;
  sax.processingInstruction = OnInstruction;
  sax.internalSubset = OnInternalSubset;
  sax.entityDecl = OnEntity;
  sax.resolveEntity = OnResolve;
  sax.serror = OnError;
}

}  // namespace

bool IsBlank(const xmlNode* text) {
  const xmlChar* at = text->content;
  while (*at == ' ' || *at == '\n' || *at == '\t' || *at == '\r') ++at;
  return *at == 0;
}

bool IsDroppedOnLoad(const xmlNode* text) {
  return IsBlank(text) && xmlNodeGetSpacePreserve(text->parent) != 1;
}

Tree* ParseXml(const XmlParseRequest& request, XmlParseError& error) {
  error = {};
  auto* tree = new Tree;
  tree->AddReference();
  tree->preserve_white_space = request.preserve_white_space;
  xmlParserCtxt* context = xmlNewParserCtxt();
  if (context == nullptr) {
    tree->DropReference();
    throw std::bad_alloc();
  }
  Run run{.request = &request, .error = &error, .tree = tree};
  SetHandlers(context, run);
  Input input{.run = &run};
  const int options = XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_HUGE | XML_PARSE_BIG_LINES |
                      XML_PARSE_COMPACT | (request.text ? XML_PARSE_IGNORE_ENC : 0);
  xmlDoc* doc =
      xmlCtxtReadIO(context, OnRead, OnClose, &input, nullptr, request.text ? "UTF-8" : nullptr, options);
  if (input.too_large || input.unreadable) error = {};
  if (input.too_large) {
    Fail(
        context, kTooLarge,
        "The document is larger than " + std::to_string(kMaxXmlBytes / 1024 / 1024) + " MB and was not read.",
        0, 0);
  } else if (input.unreadable) {
    Fail(context, kUnreadable, "The file could not be read.", 0, 0);
  } else if (error.errorCode == 0 &&
             (doc == nullptr || context->wellFormed == 0 || context->nsWellFormed == 0)) {
    Fail(context, XML_ERR_INTERNAL_ERROR, "The text is not well formed.", 0, 0);
  }
  if (error.errorCode == 0) {
    AddDeclaration(doc, DeclarationData(run.beginning));
    tree->Adopt(doc);
    if (doc->intSubset != nullptr)
      tree->OwnNamespaces(reinterpret_cast<xmlNode*>(doc));  // expanded entities are copies
  } else if (doc != nullptr) {
    xmlFreeDoc(doc);
  }
  xmlFreeParserCtxt(context);
  if (error.errorCode == 0) return tree;
  tree->DropReference();
  return nullptr;
}

}  // namespace zelnor
