#include "zelnor/platform/xml_tree.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"

#include <cstring>
#include <mutex>

#include <libxml/dict.h>
#include <libxml/parserInternals.h>
#include <libxml/valid.h>

namespace zelnor {
namespace {

std::uintptr_t HandleCount(const xmlNode* node) { return reinterpret_cast<std::uintptr_t>(node->_private); }

void SetHandleCount(xmlNode* node, std::uintptr_t count) {
  node->_private = reinterpret_cast<void*>(count);  // NOLINT(performance-no-int-to-ptr)
}

bool IsDocument(const xmlNode* node) {
  return node->type == XML_DOCUMENT_NODE || node->type == XML_HTML_DOCUMENT_NODE;
}

xmlNode* AsNode(xmlAttr* attribute) { return reinterpret_cast<xmlNode*>(attribute); }

// Calls `visit` for every node of the subtree: elements, their attributes and the texts inside those.
template <class Visit>
void VisitAll(xmlNode* top, Visit&& visit) {
  for (xmlNode* node = top; node != nullptr; node = NextInSubtree(node, top)) {
    visit(node);
    if (node->type != XML_ELEMENT_NODE) continue;
    for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next) {
      visit(AsNode(attribute));
      for (xmlNode* text = attribute->children; text != nullptr; text = text->next) visit(text);
    }
  }
}

bool AnyHandleWithin(const xmlNode* top) {
  bool any = false;
  for (auto* node = const_cast<xmlNode*>(top); node != nullptr && !any; node = NextInSubtree(node, top)) {
    any = HandleCount(node) != 0;
    if (node->type != XML_ELEMENT_NODE) continue;
    for (xmlAttr* attribute = node->properties; attribute != nullptr && !any; attribute = attribute->next) {
      any = HandleCount(AsNode(attribute)) != 0;
    }
  }
  return any;
}

bool IsClean(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && c != '\t' && c != '\n') || byte >= 0x80) return false;
  }
  return true;
}

}  // namespace

xmlNode* NextInSubtree(xmlNode* node, const xmlNode* top) {
  const bool descends = node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_FRAG_NODE ||
                        IsDocument(node) || node->type == XML_ATTRIBUTE_NODE;
  if (descends && node->children != nullptr) return node->children;
  while (node != top) {
    if (node->next != nullptr) return node->next;
    node = node->parent;
    if (node == nullptr) return nullptr;
  }
  return nullptr;
}

Tree::Tree() {
  static std::once_flag once;
  std::call_once(once, [] { xmlInitParser(); });
  xmlDoc* doc = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
  if (doc == nullptr) throw std::bad_alloc();
  doc->dict = xmlDictCreate();
  Adopt(doc);
}

Tree::~Tree() {
  for (xmlNode* node : loose_) {
    if (node->type == XML_ATTRIBUTE_NODE) {
      xmlFreeProp(reinterpret_cast<xmlAttr*>(node));
    } else {
      xmlFreeNode(node);
    }
  }
  xmlFreeDoc(doc_);
  for (xmlNs* ns : namespaces_) xmlFreeNs(ns);
  for (xmlNs* ns : kept_declarations_) xmlFreeNs(ns);
}

void Tree::Adopt(xmlDoc* doc) {
  if (doc_ != nullptr) xmlFreeDoc(doc_);
  doc_ = doc;
  doc_->_private = this;
}

void Tree::DropReference() {
  if (--references_ == 0) delete this;
}

void Tree::Hold(xmlNode* node) {
  ++references_;
  if (!IsDocument(node)) SetHandleCount(node, HandleCount(node) + 1);
}

void Tree::Release(xmlNode* node) {
  if (!IsDocument(node)) {
    const std::uintptr_t count = HandleCount(node) - 1;
    SetHandleCount(node, count);
    if (count == 0 && node->parent == nullptr && references_ > 1 && loose_.contains(node) &&
        !AnyHandleWithin(node)) {
      loose_.erase(node);
      if (node->type == XML_ATTRIBUTE_NODE) {
        xmlFreeProp(reinterpret_cast<xmlAttr*>(node));
      } else {
        xmlFreeNode(node);
      }
    }
  }
  DropReference();
}

xmlNs* Tree::Namespace(std::string_view uri, std::string_view prefix) {
  if (uri.empty()) return nullptr;
  for (xmlNs* ns : namespaces_) {
    if (View(ns->href) == uri && View(ns->prefix) == prefix) return ns;
  }
  const String uri_text(uri);
  const String prefix_text(prefix);
  xmlNs* ns = xmlNewNs(nullptr, Chars(uri_text), nullptr);
  if (ns == nullptr) throw std::bad_alloc();
  // Set behind xmlNewNs, which refuses the prefix "xml".
  if (!prefix.empty()) ns->prefix = xmlStrdup(Chars(prefix_text));
  ns->_private = this;
  namespaces_.push_back(ns);
  return ns;
}

xmlNs* Tree::Namespace(const xmlNs* ns) {
  if (ns == nullptr) return nullptr;
  if (ns->_private == this) return const_cast<xmlNs*>(ns);
  return Namespace(View(ns->href), View(ns->prefix));
}

void Tree::OwnNamespaces(xmlNode* top) {
  VisitAll(top, [&](xmlNode* node) {
    if (node->type == XML_ELEMENT_NODE || node->type == XML_ATTRIBUTE_NODE) node->ns = Namespace(node->ns);
  });
}

xmlNode* Tree::NewElement(std::string_view name, xmlNs* ns) {
  const xmlChar* interned =
      xmlDictLookup(doc_->dict, reinterpret_cast<const xmlChar*>(name.data()), static_cast<int>(name.size()));
  if (interned == nullptr) throw std::bad_alloc();
  xmlNode* node = xmlNewDocNodeEatName(doc_, ns, const_cast<xmlChar*>(interned), nullptr);
  if (node == nullptr) throw std::bad_alloc();
  return node;
}

// A short text lies within its node, as libxml2's own parser lays it with XML_PARSE_COMPACT: most texts are
// short.
xmlNode* Tree::NewText(std::string_view text) {
  xmlNode* node = xmlNewDocText(doc_, nullptr);
  if (node == nullptr) throw std::bad_alloc();
  if (text.size() < 2 * sizeof(void*)) {
    auto* within = reinterpret_cast<xmlChar*>(&node->properties);
    if (!text.empty()) std::memcpy(within, text.data(), text.size());
    within[text.size()] = 0;
    node->content = within;
    return node;
  }
  node->content = xmlStrndup(reinterpret_cast<const xmlChar*>(text.data()), static_cast<int>(text.size()));
  if (node->content == nullptr) {
    xmlFreeNode(node);
    throw std::bad_alloc();
  }
  return node;
}

xmlNode* Tree::CopyOne(const xmlNode* source, NamespacePair& last) {
  switch (source->type) {
    case XML_ELEMENT_NODE: {
      if (source->ns != last.theirs) last = {source->ns, Namespace(source->ns)};
      xmlNode* copy = NewElement(View(source->name), last.ours);
      for (const xmlNs* declared = source->nsDef; declared != nullptr; declared = declared->next) {
        xmlNewNs(copy, declared->href, declared->prefix);
      }
      for (const xmlAttr* attribute = source->properties; attribute != nullptr; attribute = attribute->next) {
        xmlChar* value = xmlNodeListGetString(source->doc, attribute->children, 1);
        xmlNewNsProp(copy, Namespace(attribute->ns), attribute->name,
                     value == nullptr ? reinterpret_cast<const xmlChar*>("") : value);
        xmlFree(value);
      }
      return copy;
    }
    case XML_TEXT_NODE: {
      xmlNode* copy = NewText(View(source->content));
      copy->name = source->name;
      return copy;
    }
    case XML_CDATA_SECTION_NODE:
      return xmlNewCDataBlock(doc_, source->content, xmlStrlen(source->content));
    case XML_COMMENT_NODE:
      return xmlNewDocComment(doc_, source->content);
    case XML_PI_NODE:
      return xmlNewDocPI(doc_, source->name, source->content);
    case XML_DOCUMENT_FRAG_NODE:
      return xmlNewDocFragment(doc_);
    case XML_ATTRIBUTE_NODE: {
      xmlChar* value = xmlNodeListGetString(source->doc, source->children, 1);
      xmlAttr* copy = xmlNewDocProp(doc_, source->name, value);
      xmlFree(value);
      if (copy != nullptr) copy->ns = Namespace(source->ns);
      return AsNode(copy);
    }
    default:
      ThrowInvalidArgument();
  }
}

xmlNode* Tree::NewCopy(const xmlNode* source, bool deep) {
  NamespacePair last;
  xmlNode* top = CopyOne(source, last);
  if (top == nullptr) throw std::bad_alloc();
  if (!deep || source->type == XML_ATTRIBUTE_NODE) return top;
  // Walks both trees in step, without recursion: documents may be deep.
  const xmlNode* at = source;
  xmlNode* copy_at = top;
  while (true) {
    const bool descends =
        (at->type == XML_ELEMENT_NODE || at->type == XML_DOCUMENT_FRAG_NODE) && at->children != nullptr;
    if (descends) {
      at = at->children;
    } else {
      while (at != source && at->next == nullptr) {
        at = at->parent;
        copy_at = copy_at->parent;
      }
      if (at == source) return top;
      at = at->next;
      copy_at = copy_at->parent;
    }
    xmlNode* child =
        at->type == XML_DTD_NODE || at->type == XML_ENTITY_REF_NODE ? NewText("") : CopyOne(at, last);
    if (child == nullptr) throw std::bad_alloc();
    child->parent = copy_at;
    child->prev = copy_at->last;
    if (copy_at->last == nullptr) {
      copy_at->children = child;
    } else {
      copy_at->last->next = child;
    }
    copy_at->last = child;
    copy_at = child;
  }
}

void Tree::Loosen(xmlNode* node) {
  if (AnyHandleWithin(node)) {
    loose_.insert(node);
  } else if (node->type == XML_ATTRIBUTE_NODE) {
    xmlFreeProp(reinterpret_cast<xmlAttr*>(node));
  } else {
    xmlFreeNode(node);
  }
}

void Tree::Take(xmlNode* node) {
  Tree& from = Of(node);
  from.loose_.erase(node);
  if (&from != this) MoveHere(node);
}

void Tree::MoveHere(xmlNode* top) {
  Tree& from = Of(top);
  xmlDict* old_dict = from.doc_->dict;
  std::int64_t handles = 0;
  VisitAll(top, [&](xmlNode* node) {
    handles += static_cast<std::int64_t>(HandleCount(node));
    const bool named =
        node->type == XML_ELEMENT_NODE || node->type == XML_ATTRIBUTE_NODE || node->type == XML_PI_NODE;
    if (named && old_dict != nullptr && xmlDictOwns(old_dict, node->name) == 1) {
      node->name = xmlDictLookup(doc_->dict, node->name, -1);
    }
    if (node->type == XML_ATTRIBUTE_NODE) {
      auto* attribute = reinterpret_cast<xmlAttr*>(node);
      if (attribute->atype == XML_ATTRIBUTE_ID) xmlRemoveID(from.doc_, attribute);
      attribute->ns = Namespace(attribute->ns);
    } else if (node->type == XML_ELEMENT_NODE) {
      node->ns = Namespace(node->ns);
    } else if (node->content != nullptr && node->content != reinterpret_cast<xmlChar*>(&node->properties) &&
               old_dict != nullptr && xmlDictOwns(old_dict, node->content) == 1) {
      node->content = xmlStrdup(node->content);
    }
  });
  // The names are looked up in the old document's dictionary, so the document changes last.
  VisitAll(top, [&](xmlNode* node) { node->doc = doc_; });
  references_ += handles;
  from.references_ -= handles;
  if (from.references_ == 0) delete &from;
}

String Tree::Clean(std::string_view text) {
  if (IsClean(text)) return String(text);
  String clean;
  clean.reserve(text.size());
  std::size_t at = 0;
  while (at < text.size()) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte == '\r') {
      clean.push_back('\n');
      at += at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
      continue;
    }
    int length = static_cast<int>(text.size() - at > 4 ? 4 : text.size() - at);
    const int point = xmlGetUTF8Char(reinterpret_cast<const unsigned char*>(text.data()) + at, &length);
    const bool well_formed = point >= 0 && length > 0;
    const auto size = well_formed ? static_cast<std::size_t>(length) : 1;
    // xmlGetUTF8Char lets overlong forms pass.
    const bool shortest = well_formed && (size == 1 || (size == 2 && point >= 0x80) ||
                                          (size == 3 && point >= 0x800) || (size == 4 && point >= 0x10000));
    if (shortest && xmlIsCharQ(point)) {
      clean.append(text.substr(at, size));
    } else {
      clean.append("\xEF\xBF\xBD");
    }
    at += size;
  }
  return clean;
}

}  // namespace zelnor
