#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/xml_tree.h"

#include <algorithm>

#include <libxml/parserInternals.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

namespace zelnor {
namespace {

bool IsDocument(const xmlNode* node) {
  return node->type == XML_DOCUMENT_NODE || node->type == XML_HTML_DOCUMENT_NODE;
}

bool IsInstruction(const xmlNode* node) { return node->type == XML_PI_NODE; }

// The node of a handle; error 91 for a handle without one.
xmlNode* Raw(const XmlNode& handle) {
  xmlNode* node = XmlNode::Access::Raw(handle);
  if (node == nullptr) ThrowObjectNotSet();
  return node;
}

// The node of a handle that must be an element.
xmlNode* RawElement(const XmlNode& handle) {
  xmlNode* node = Raw(handle);
  if (node->type != XML_ELEMENT_NODE || XmlNode::Access::Declaration(handle) != nullptr)
    ThrowInvalidArgument();
  return node;
}

XmlNode Handle(xmlNode* node) { return node == nullptr ? XmlNode() : XmlNode::Access::Handle(node); }

bool MayHoldChildren(const xmlNode* node) {
  return node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_FRAG_NODE || IsDocument(node);
}

String QualifiedName(const xmlNs* ns, const xmlChar* name) {
  if (ns == nullptr || ns->prefix == nullptr) return String(View(name));
  return String(View(ns->prefix)) + ":" + String(View(name));
}

void AppendText(const xmlNode* top, String& text) {
  for (auto* node = const_cast<xmlNode*>(top); node != nullptr; node = NextInSubtree(node, top)) {
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) text += View(node->content);
  }
}

bool PreservesSpace(const xmlNode* node) {
  return Tree::Of(node).preserve_white_space || xmlNodeGetSpacePreserve(node) == 1;
}

// Takes a node from its parent; the pointers of its former neighbours are mended.
void Unlink(xmlNode* node) { xmlUnlinkNode(node); }

void RemoveChildren(xmlNode* node) {
  Tree& tree = Tree::Of(node);
  while (node->children != nullptr) {
    xmlNode* child = node->children;
    Unlink(child);
    tree.Loosen(child);
  }
}

// Links a node without parent in before `before`, or last. libxml2's own operations would merge neighbouring
// texts.
void Link(xmlNode* parent, xmlNode* child, xmlNode* before) {
  child->parent = parent;
  child->next = before;
  child->prev = before == nullptr ? parent->last : before->prev;
  if (child->prev == nullptr) {
    parent->children = child;
  } else {
    child->prev->next = child;
  }
  if (before == nullptr) {
    parent->last = child;
  } else {
    before->prev = child;
  }
}

bool IsSelfOrAncestor(const xmlNode* candidate, const xmlNode* node) {
  for (; node != nullptr; node = node->parent) {
    if (node == candidate) return true;
  }
  return false;
}

bool IsPlainName(std::string_view name) {
  const auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
  return !name.empty() && is_letter(name.front()) && std::all_of(name.begin(), name.end(), [&](char c) {
    return is_letter(c) || (c >= '0' && c <= '9');
  });
}

void CheckName(const String& name) {
  if (xmlValidateQName(Chars(name), 0) != 0) ThrowInvalidArgument();
}

// The declaration of a prefix ("" for the default namespace) on this very element.
xmlNs* DeclarationOn(const xmlNode* element, std::string_view prefix) {
  for (xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
    if (View(ns->prefix) == prefix) return ns;
  }
  return nullptr;
}

// "xmlns" gives "", "xmlns:p" gives "p", any other name nothing.
std::optional<std::string_view> DeclaredPrefix(std::string_view name) {
  if (name == "xmlns") return "";
  if (name.starts_with("xmlns:")) return name.substr(6);
  return std::nullopt;
}

xmlAttr* FindAttribute(const xmlNode* element, std::string_view name) {
  for (xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
    if (attribute->ns == nullptr || attribute->ns->prefix == nullptr) {
      if (View(attribute->name) == name) return attribute;
    } else if (QualifiedName(attribute->ns, attribute->name) == name) {
      return attribute;
    }
  }
  return nullptr;
}

String AttributeValue(const xmlAttr* attribute) {
  String value;
  for (const xmlNode* text = attribute->children; text != nullptr; text = text->next)
    value += View(text->content);
  return value;
}

void SetAttributeValue(xmlAttr* attribute, const String& value) {
  auto* node = reinterpret_cast<xmlNode*>(attribute);
  RemoveChildren(node);
  if (!value.empty()) Link(node, Tree::Of(node).NewText(value), nullptr);
}

// The namespace that a prefix has at an element: by the declarations in scope, or by the names that use it.
xmlNs* NamespaceOfPrefix(xmlNode* element, std::string_view prefix) {
  Tree& tree = Tree::Of(element);
  if (prefix == "xml") return tree.Namespace("http://www.w3.org/XML/1998/namespace", "xml");
  for (const xmlNode* node = element; node != nullptr && node->type == XML_ELEMENT_NODE;
       node = node->parent) {
    if (const xmlNs* ns = DeclarationOn(node, prefix)) return tree.Namespace(View(ns->href), prefix);
    if (node->ns != nullptr && View(node->ns->prefix) == prefix) return node->ns;
  }
  ThrowInvalidArgument();
}

// One pseudo-attribute of a processing instruction: where its value stands in the data.
struct PseudoAttribute {
  std::string_view name;
  std::size_t value_at = 0;
  std::size_t value_length = 0;
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::vector<PseudoAttribute> PseudoAttributes(std::string_view data) {
  std::vector<PseudoAttribute> all;
  const auto is_space = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  std::size_t at = 0;
  while (at < data.size()) {
    PseudoAttribute one;
    one.begin = at;
    while (at < data.size() && is_space(data[at])) ++at;
    const std::size_t name_at = at;
    while (at < data.size() && data[at] != '=' && !is_space(data[at])) ++at;
    one.name = data.substr(name_at, at - name_at);
    while (at < data.size() && is_space(data[at])) ++at;
    if (at >= data.size() || data[at] != '=') break;
    ++at;
    while (at < data.size() && is_space(data[at])) ++at;
    if (at >= data.size() || (data[at] != '"' && data[at] != '\'')) break;
    const std::size_t close = data.find(data[at], at + 1);
    if (close == std::string_view::npos) break;
    one.value_at = at + 1;
    one.value_length = close - one.value_at;
    at = close + 1;
    one.end = at;
    all.push_back(one);
  }
  return all;
}

String EscapedValue(std::string_view value) {
  return Replace(Replace(Replace(value, "&", "&amp;"), "<", "&lt;"), "\"", "&quot;");
}

String UnescapedValue(std::string_view value) {
  String text = Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", "\"");
  return Replace(Replace(text, "&apos;", "'"), "&amp;", "&");
}

std::optional<String> InstructionAttribute(const xmlNode* instruction, std::string_view name) {
  const std::string_view data = View(instruction->content);
  for (const PseudoAttribute& one : PseudoAttributes(data)) {
    if (one.name == name) return UnescapedValue(data.substr(one.value_at, one.value_length));
  }
  return std::nullopt;
}

void SetInstructionData(xmlNode* instruction, const String& data) {
  xmlNodeSetContent(instruction, Chars(data));
}

void SetInstructionAttribute(xmlNode* instruction, std::string_view name, std::string_view value) {
  String data(View(instruction->content));
  for (const PseudoAttribute& one : PseudoAttributes(data)) {
    if (one.name != name) continue;
    data.replace(one.value_at, one.value_length, EscapedValue(value));
    SetInstructionData(instruction, data);
    return;
  }
  if (!data.empty()) data += ' ';
  SetInstructionData(instruction, data + String(name) + "=\"" + EscapedValue(value) + "\"");
}

void RemoveInstructionAttribute(xmlNode* instruction, std::string_view name) {
  String data(View(instruction->content));
  for (const PseudoAttribute& one : PseudoAttributes(data)) {
    if (one.name != name) continue;
    data.erase(one.begin, one.end - one.begin);
    SetInstructionData(instruction, Trim(data));
    return;
  }
}

// A new last child without prefix.
XmlNode AppendNew(xmlNode* parent, std::string_view name, xmlNs* ns) {
  if (!IsPlainName(name) && xmlValidateNCName(Chars(String(name)), 0) != 0) ThrowInvalidArgument();
  xmlNode* child = Tree::Of(parent).NewElement(name, ns);
  Link(parent, child, nullptr);
  return Handle(child);
}

// A text for libxml2 that is too large to be copied as it grows.
class GrowingText {
 public:
  GrowingText() { Append({}); }
  GrowingText(const GrowingText&) = delete;
  GrowingText& operator=(const GrowingText&) = delete;
  ~GrowingText() { xmlFree(text_); }

  void Append(std::string_view piece) {
    const std::size_t needed = size_ + piece.size() + 1;
    if (needed > capacity_) {
      const std::size_t capacity = std::max(needed, 2 * capacity_);
      auto* larger = static_cast<xmlChar*>(xmlRealloc(text_, capacity));
      if (larger == nullptr) throw std::bad_alloc();
      text_ = larger;
      capacity_ = capacity;
    }
    std::copy(piece.begin(), piece.end(), text_ + size_);
    size_ += piece.size();
    text_[size_] = 0;
  }

  // Gives the text away, for xmlFree.
  xmlChar* Take() { return std::exchange(text_, nullptr); }

 private:
  xmlChar* text_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

void IgnoreError(void* /*context*/, xmlErrorPtr /*error*/) {}

}  // namespace

XmlNode::XmlNode(_xmlNode* node, _xmlNs* ns) : node_(node), ns_(ns) {
  if (node_ != nullptr) Tree::Of(node_).Hold(node_);
}

XmlNode::XmlNode(const XmlNode& other) : XmlNode(other.node_, other.ns_) {}

XmlNode::XmlNode(XmlNode&& other) noexcept
    : node_(std::exchange(other.node_, nullptr)), ns_(std::exchange(other.ns_, nullptr)) {}

XmlNode& XmlNode::operator=(const XmlNode& other) {
  if (this != &other) *this = XmlNode(other);
  return *this;
}

XmlNode& XmlNode::operator=(XmlNode&& other) noexcept {
  std::swap(node_, other.node_);
  std::swap(ns_, other.ns_);
  return *this;
}

XmlNode::~XmlNode() {
  if (node_ != nullptr) Tree::Of(node_).Release(node_);
}

XmlNodeType XmlNode::NodeType() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return XmlNodeType::Attribute;
  switch (node->type) {
    case XML_ELEMENT_NODE:
      return XmlNodeType::Element;
    case XML_ATTRIBUTE_NODE:
      return XmlNodeType::Attribute;
    case XML_CDATA_SECTION_NODE:
      return XmlNodeType::CData;
    case XML_ENTITY_REF_NODE:
      return XmlNodeType::EntityReference;
    case XML_PI_NODE:
      return XmlNodeType::ProcessingInstruction;
    case XML_COMMENT_NODE:
      return XmlNodeType::Comment;
    case XML_DOCUMENT_NODE:
    case XML_HTML_DOCUMENT_NODE:
      return XmlNodeType::Document;
    case XML_DTD_NODE:
      return XmlNodeType::DocumentType;
    case XML_DOCUMENT_FRAG_NODE:
      return XmlNodeType::DocumentFragment;
    default:
      return XmlNodeType::Text;
  }
}

String XmlNode::NodeName() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return ns_->prefix == nullptr ? "xmlns" : "xmlns:" + String(View(ns_->prefix));
  switch (NodeType()) {
    case XmlNodeType::Text:
      return "#text";
    case XmlNodeType::CData:
      return "#cdata-section";
    case XmlNodeType::Comment:
      return "#comment";
    case XmlNodeType::Document:
      return "#document";
    case XmlNodeType::DocumentFragment:
      return "#document-fragment";
    case XmlNodeType::Element:
    case XmlNodeType::Attribute:
      return QualifiedName(node->ns, node->name);
    default:
      return String(View(node->name));
  }
}

std::string_view XmlNode::BaseName() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return ns_->prefix == nullptr ? "xmlns" : View(ns_->prefix);
  switch (node->type) {
    case XML_ELEMENT_NODE:
    case XML_ATTRIBUTE_NODE:
    case XML_PI_NODE:
    case XML_DTD_NODE:
      return View(node->name);
    default:
      return {};
  }
}

String XmlNode::Prefix() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return ns_->prefix == nullptr ? "" : "xmlns";
  if (node->type != XML_ELEMENT_NODE && node->type != XML_ATTRIBUTE_NODE) return {};
  return node->ns == nullptr ? String() : String(View(node->ns->prefix));
}

String XmlNode::NamespaceURI() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return "http://www.w3.org/2000/xmlns/";
  if (node->type != XML_ELEMENT_NODE && node->type != XML_ATTRIBUTE_NODE) return {};
  return node->ns == nullptr ? String() : String(View(node->ns->href));
}

String XmlNode::Text() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr) return String(View(ns_->href));
  if (node->type == XML_ATTRIBUTE_NODE) return AttributeValue(reinterpret_cast<const xmlAttr*>(node));
  if (!MayHoldChildren(node)) return String(View(node->content));
  String gathered;
  std::string_view text;
  if (node->children != nullptr && node->children->next == nullptr && node->children->type == XML_TEXT_NODE) {
    text = View(node->children->content);
  } else {
    AppendText(node, gathered);
    text = gathered;
  }
  const std::string_view trimmed = TrimXmlSpace(text);
  if (trimmed.size() != text.size() && !PreservesSpace(node)) text = trimmed;
  return String(text);
}

void XmlNode::Text(std::string_view value) const {
  xmlNode* node = Raw(*this);
  const String clean = Tree::Clean(value);
  if (ns_ != nullptr) {
    Attribute(NodeName(), clean);
  } else if (node->type == XML_ATTRIBUTE_NODE) {
    SetAttributeValue(reinterpret_cast<xmlAttr*>(node), clean);
  } else if (node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_FRAG_NODE) {
    RemoveChildren(node);
    if (!clean.empty()) Link(node, Tree::Of(node).NewText(clean), nullptr);
  } else if (IsDocument(node)) {
    ThrowInvalidArgument();
  } else {
    xmlNodeSetContent(node, nullptr);
    xmlNodeAddContent(node, Chars(clean));
  }
}

XmlDocument XmlNode::OwnerDocument() const {
  Tree& tree = Tree::Of(Raw(*this));
  std::shared_ptr<XmlDocument::State> state = tree.state.lock();
  if (state == nullptr) {
    state = std::make_shared<XmlDocument::State>(&tree);
    tree.state = state;
  }
  return XmlDocument(std::move(state));
}

XmlNode XmlNode::ParentNode() const {
  const xmlNode* node = Raw(*this);
  if (ns_ != nullptr || node->type == XML_ATTRIBUTE_NODE) return {};
  return Handle(node->parent);
}

XmlNode XmlNode::FirstChild() const {
  const xmlNode* node = Raw(*this);
  return MayHoldChildren(node) && ns_ == nullptr ? Handle(node->children) : XmlNode();
}

XmlNode XmlNode::LastChild() const {
  const xmlNode* node = Raw(*this);
  return MayHoldChildren(node) && ns_ == nullptr ? Handle(node->last) : XmlNode();
}

XmlNode XmlNode::NextSibling() const {
  const xmlNode* node = Raw(*this);
  return IsDocument(node) || node->type == XML_ATTRIBUTE_NODE || ns_ != nullptr ? XmlNode()
                                                                                : Handle(node->next);
}

XmlNode XmlNode::PreviousSibling() const {
  const xmlNode* node = Raw(*this);
  return IsDocument(node) || node->type == XML_ATTRIBUTE_NODE || ns_ != nullptr ? XmlNode()
                                                                                : Handle(node->prev);
}

bool XmlNode::HasChildNodes() const {
  const xmlNode* node = Raw(*this);
  return ns_ == nullptr && MayHoldChildren(node) && node->children != nullptr;
}

XmlNode::ChildRange XmlNode::ChildNodes() const { return ChildRange(FirstChild()); }

XmlNode XmlNode::AppendChild(const XmlNode& child) const { return InsertBefore(child, {}); }

XmlNode XmlNode::InsertBefore(const XmlNode& child, const XmlNode& before) const {
  xmlNode* parent = Raw(*this);
  xmlNode* node = Raw(child);
  xmlNode* next = Access::Raw(before);
  const bool fits = MayHoldChildren(parent) && ns_ == nullptr && child.ns_ == nullptr && !IsDocument(node) &&
                    node->type != XML_ATTRIBUTE_NODE && node->type != XML_DTD_NODE &&
                    (next == nullptr || next->parent == parent) && !IsSelfOrAncestor(node, parent);
  if (!fits) ThrowInvalidArgument();
  if (node == next) return child;
  if (node->type == XML_DOCUMENT_FRAG_NODE) {
    while (XmlNode first = child.FirstChild()) InsertBefore(first, before);
    return child;
  }
  if (IsDocument(parent)) {
    const xmlNode* root = xmlDocGetRootElement(Tree::Of(parent).Doc());
    const bool second_root = node->type == XML_ELEMENT_NODE && root != nullptr && root != node;
    if (second_root || node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
      ThrowInvalidArgument();
  }
  Unlink(node);
  Tree::Of(parent).Take(node);
  Link(parent, node, next);
  return child;
}

XmlNode XmlNode::RemoveChild(const XmlNode& child) const {
  xmlNode* parent = Raw(*this);
  xmlNode* node = Raw(child);
  if (node->parent != parent || node->type == XML_ATTRIBUTE_NODE || child.ns_ != nullptr)
    ThrowInvalidArgument();
  Unlink(node);
  Tree::Of(node).Loosen(node);
  return child;
}

XmlNode XmlNode::ReplaceChild(const XmlNode& replacement, const XmlNode& child) const {
  if (replacement == child) return child;
  const XmlNode next = child.NextSibling();
  RemoveChild(child);
  InsertBefore(replacement, next == replacement ? XmlNode() : next);
  return child;
}

XmlNode XmlNode::CloneNode(bool deep) const {
  xmlNode* node = Raw(*this);
  if (ns_ != nullptr) ThrowInvalidArgument();
  if (IsDocument(node)) {
    XmlDocument copy;
    copy.PreserveWhiteSpace(Tree::Of(node).preserve_white_space);
    for (const XmlNode& child : ChildNodes()) {
      if (deep && child.NodeType() != XmlNodeType::DocumentType)
        copy.AppendChild(copy.ImportNode(child, true));
    }
    return copy.Node();
  }
  Tree& tree = Tree::Of(node);
  xmlNode* copy = tree.NewCopy(node, deep);
  XmlNode handle = Handle(copy);
  tree.Loosen(copy);
  return handle;
}

std::vector<XmlNode> XmlNode::Attributes() const {
  xmlNode* node = Raw(*this);
  std::vector<XmlNode> all;
  if (node->type != XML_ELEMENT_NODE || ns_ != nullptr) return all;
  for (xmlNs* ns = node->nsDef; ns != nullptr; ns = ns->next) all.push_back({node, ns});
  for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
    all.push_back({reinterpret_cast<xmlNode*>(attribute), nullptr});
  }
  return all;
}

XmlNode XmlNode::AttributeNode(std::string_view name) const {
  xmlNode* node = Raw(*this);
  if (node->type != XML_ELEMENT_NODE || ns_ != nullptr) return {};
  if (const auto prefix = DeclaredPrefix(name)) {
    xmlNs* ns = DeclarationOn(node, *prefix);
    return ns == nullptr ? XmlNode() : XmlNode(node, ns);
  }
  return Handle(reinterpret_cast<xmlNode*>(FindAttribute(node, name)));
}

std::optional<String> XmlNode::Attribute(std::string_view name) const {
  const xmlNode* node = Raw(*this);
  if (IsInstruction(node)) return InstructionAttribute(node, name);
  if (node->type != XML_ELEMENT_NODE || ns_ != nullptr) return std::nullopt;
  if (const auto prefix = DeclaredPrefix(name)) {
    const xmlNs* ns = DeclarationOn(node, *prefix);
    return ns == nullptr ? std::nullopt : std::optional<String>(View(ns->href));
  }
  const xmlAttr* attribute = FindAttribute(node, name);
  return attribute == nullptr ? std::nullopt : std::optional<String>(AttributeValue(attribute));
}

void XmlNode::Attribute(std::string_view name, std::string_view value) const {
  xmlNode* node = Raw(*this);
  const String clean = Tree::Clean(value);
  if (IsInstruction(node)) return SetInstructionAttribute(node, name, clean);
  RawElement(*this);
  const String whole_name(name);
  CheckName(whole_name);
  if (const auto prefix = DeclaredPrefix(name)) {
    if (xmlNs* ns = DeclarationOn(node, *prefix)) {
      xmlFree(const_cast<xmlChar*>(ns->href));
      ns->href = xmlStrdup(Chars(clean));
    } else {
      const String prefix_text(*prefix);
      xmlNewNs(node, Chars(clean), prefix->empty() ? nullptr : Chars(prefix_text));
    }
    return;
  }
  if (xmlAttr* attribute = FindAttribute(node, name)) return SetAttributeValue(attribute, clean);
  const std::size_t colon = name.find(':');
  xmlNs* ns = colon == std::string_view::npos ? nullptr : NamespaceOfPrefix(node, name.substr(0, colon));
  const String base(colon == std::string_view::npos ? name : name.substr(colon + 1));
  if (xmlNewNsProp(node, ns, Chars(base), Chars(clean)) == nullptr) throw std::bad_alloc();
}

void XmlNode::RemoveAttribute(std::string_view name) const {
  xmlNode* node = Raw(*this);
  if (IsInstruction(node)) return RemoveInstructionAttribute(node, name);
  RawElement(*this);
  Tree& tree = Tree::Of(node);
  if (const auto prefix = DeclaredPrefix(name)) {
    xmlNs* ns = DeclarationOn(node, *prefix);
    if (ns == nullptr) return;
    xmlNs** link = &node->nsDef;
    while (*link != ns) link = &(*link)->next;
    *link = ns->next;
    ns->next = nullptr;
    tree.Keep(ns);
  } else if (xmlAttr* attribute = FindAttribute(node, name)) {
    auto* removed = reinterpret_cast<xmlNode*>(attribute);
    Unlink(removed);
    tree.Loosen(removed);
  }
}

XmlNode XmlNode::AppendElement(std::string_view name, std::string_view namespace_uri) const {
  xmlNode* parent = Raw(*this);
  if (IsDocument(parent) || !MayHoldChildren(parent)) {
    return AppendChild(OwnerDocument().CreateNode(XmlNodeType::Element, name, namespace_uri));
  }
  return AppendNew(parent, name, Tree::Of(parent).Namespace(namespace_uri, {}));
}

XmlNode XmlNode::AppendElement(std::string_view name) const {
  xmlNode* parent = Raw(*this);
  if (parent->type != XML_ELEMENT_NODE) return AppendElement(name, {});
  if (const xmlNs* declared = DeclarationOn(parent, "")) return AppendElement(name, View(declared->href));
  if (parent->ns == nullptr || parent->ns->prefix == nullptr) return AppendNew(parent, name, parent->ns);
  return AppendElement(name, View(parent->ns->href));
}

// libxml2 has a name for texts that are written without escapes.
void XmlNode::AppendWritten(const XmlNode& copied) const {
  xmlNode* parent = Raw(*this);
  if (parent->type != XML_ELEMENT_NODE) ThrowInvalidArgument();
  GrowingText written;
  copied.WriteXml([&](std::string_view piece) { written.Append(piece); });
  xmlNode* text = Tree::Of(parent).NewText({});
  text->name = xmlStringTextNoenc;
  text->content = written.Take();
  Link(parent, text, nullptr);
}

bool XmlNode::IsWritten() const {
  const xmlNode* node = Raw(*this);
  return node->type == XML_TEXT_NODE && node->name == xmlStringTextNoenc;
}

String XmlNode::ChildNamespace() const {
  const xmlNode* node = Access::Raw(*this);
  if (node == nullptr || node->type != XML_ELEMENT_NODE || ns_ != nullptr) return {};
  if (const xmlNs* declared = DeclarationOn(node, "")) return String(View(declared->href));
  return node->ns == nullptr ? String() : String(View(node->ns->href));
}

XmlNode XmlNode::FindChild(std::string_view base_name) const {
  const xmlNode* node = Raw(*this);
  if (!MayHoldChildren(node) || ns_ != nullptr) return {};
  for (xmlNode* child = node->children; child != nullptr; child = child->next) {
    if (child->type == XML_ELEMENT_NODE && View(child->name) == base_name) return Handle(child);
  }
  return {};
}

std::vector<XmlNode> XmlNode::SelectNodes(std::string_view xpath) const {
  xmlNode* node = Raw(*this);
  if (ns_ != nullptr) ThrowInvalidArgument();
  Tree& tree = Tree::Of(node);
  const std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context(
      xmlXPathNewContext(tree.Doc()), xmlXPathFreeContext);
  if (context == nullptr) throw std::bad_alloc();
  context->node = node;
  context->error = IgnoreError;
  if (const auto state = tree.state.lock()) {
    for (const auto& [prefix, uri] : state->selection_namespaces) {
      xmlXPathRegisterNs(context.get(), Chars(prefix), Chars(uri));
    }
  }
  const String expression(xpath);
  const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> found(
      xmlXPathEvalExpression(Chars(expression), context.get()), xmlXPathFreeObject);
  if (found == nullptr || found->type != XPATH_NODESET) ThrowInvalidArgument();
  std::vector<XmlNode> nodes;
  if (found->nodesetval == nullptr) return nodes;
  xmlXPathNodeSetSort(found->nodesetval);
  for (int i = 0; i < found->nodesetval->nodeNr; ++i) {
    xmlNode* each = found->nodesetval->nodeTab[i];
    if (each->type != XML_NAMESPACE_DECL) nodes.push_back(Handle(each));
  }
  return nodes;
}

XmlNode XmlNode::SelectSingleNode(std::string_view xpath) const {
  std::vector<XmlNode> nodes = SelectNodes(xpath);
  return nodes.empty() ? XmlNode() : std::move(nodes.front());
}

std::vector<XmlNode> XmlNode::GetElementsByTagName(std::string_view name) const {
  xmlNode* top = Raw(*this);
  std::vector<XmlNode> found;
  if (!MayHoldChildren(top)) return found;
  for (xmlNode* node = top; node != nullptr; node = NextInSubtree(node, top)) {
    if (node == top || node->type != XML_ELEMENT_NODE) continue;
    if (name == "*" || QualifiedName(node->ns, node->name) == name) found.push_back(Handle(node));
  }
  return found;
}

String XmlNode::Path() const {
  const xmlNode* node = Raw(*this);
  if (node->type == XML_ATTRIBUTE_NODE) {
    return Handle(node->parent).Path() + "/@" + QualifiedName(node->ns, node->name);
  }
  while (node != nullptr && node->type != XML_ELEMENT_NODE && !IsDocument(node)) node = node->parent;
  String path;
  for (; node != nullptr && node->type == XML_ELEMENT_NODE; node = node->parent) {
    const auto same_name = [&](const xmlNode* other) {
      return other->type == XML_ELEMENT_NODE && View(other->name) == View(node->name);
    };
    int position = 1;
    bool alone = true;
    for (const xmlNode* other = node->prev; other != nullptr; other = other->prev)
      position += same_name(other) ? 1 : 0;
    for (const xmlNode* other = node->next; other != nullptr && alone; other = other->next)
      alone = !same_name(other);
    String step = "/" + String(View(node->name));
    if (position > 1 || !alone) step += "[" + std::to_string(position) + "]";
    path.insert(0, step);
  }
  return path;
}

}  // namespace zelnor
