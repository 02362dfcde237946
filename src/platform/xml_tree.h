#pragma once

/// @file
/// What stands behind the handles of xml.h: one libxml2 document with all that belongs to it. Internal to the
/// platform.
///
/// How nodes stay alive: every handle counts on its node (in libxml2's `_private` field) and on the tree. A
/// node that is taken out of the tree is "loose": it is freed as soon as no handle means it or one of its
/// descendants, at the latest with the tree. An element's `ns` always points to a namespace that the tree
/// owns, never to a declaration
/// (`nsDef`), so that declarations can come and go and nodes can move.

#include "zelnor/platform/xml.h"

#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <libxml/parser.h>
#include <libxml/tree.h>

namespace zelnor {

/// A libxml2 document and what belongs to it. Deletes itself with the last reference.
class Tree {
 public:
  Tree();
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;

  static Tree& Of(const xmlNode* node) { return *static_cast<Tree*>(node->doc->_private); }

  xmlDoc* Doc() const { return doc_; }

  /// Takes over a document that a parser made.
  void Adopt(xmlDoc* doc);

  void AddReference() { ++references_; }
  void DropReference();

  /// One handle more or less on a node of this tree.
  void Hold(xmlNode* node);
  void Release(xmlNode* node);

  /// The tree's namespace of this address and prefix (empty for none); nullptr for an empty address.
  xmlNs* Namespace(std::string_view uri, std::string_view prefix);

  /// The same namespace in this tree.
  xmlNs* Namespace(const xmlNs* ns);

  /// Makes the nodes of a subtree point to namespaces of this tree.
  void OwnNamespaces(xmlNode* top);

  /// A new node of this tree, without parent.
  xmlNode* NewElement(std::string_view name, xmlNs* ns);
  xmlNode* NewText(std::string_view text);
  xmlNode* NewCopy(const xmlNode* source, bool deep);

  /// Makes a node that has just lost its parent loose, or frees it when nobody holds it.
  void Loosen(xmlNode* node);

  /// A loose node gets a parent again, and comes from another tree if need be.
  void Take(xmlNode* node);

  /// Keeps a declaration that was taken from its element for handles that may still mean it.
  void Keep(xmlNs* declaration) { kept_declarations_.push_back(declaration); }

  /// The text in the form that a node holds: line feeds alone, and nothing that XML forbids.
  static String Clean(std::string_view text);

  bool preserve_white_space = false;
  std::weak_ptr<XmlDocument::State> state;

 private:
  ~Tree();

  void MoveHere(xmlNode* top);

  /// A namespace of another tree and the same in this one, for as long as the other can't change.
  struct NamespacePair {
    const xmlNs* theirs = nullptr;
    xmlNs* ours = nullptr;
  };
  xmlNode* CopyOne(const xmlNode* source, NamespacePair& last);

  xmlDoc* doc_ = nullptr;
  std::int64_t references_ = 0;
  std::vector<xmlNs*> namespaces_;
  std::vector<xmlNs*> kept_declarations_;
  std::unordered_set<xmlNode*> loose_;
};

/// The document behind an XmlDocument: which tree it shows now, and its properties.
struct XmlDocument::State {
  State();
  explicit State(Tree* shown);
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State();

  /// Shows another tree, which inherits the properties that a tree needs.
  void Show(Tree* shown);

  Tree* tree;
  XmlParseError parse_error;
  std::vector<std::pair<String, String>> selection_namespaces;
  std::shared_ptr<const XmlSchemaCollection> schemas;
};

/// The way from handles to nodes and back.
struct XmlNode::Access {
  static xmlNode* Raw(const XmlNode& handle) { return handle.node_; }
  static xmlNs* Declaration(const XmlNode& handle) { return handle.ns_; }
  static XmlNode Handle(xmlNode* node, xmlNs* ns = nullptr) { return {node, ns}; }
};

/// Where a parse takes its bytes from: gives up to `size` bytes, 0 at the end, a negative number after an
/// error.
using XmlReader = std::function<int(char* buffer, int size)>;

/// What a parse is given.
struct XmlParseRequest {
  XmlReader read;
  String url;
  bool text = false;  // the encoding that a declaration names is ignored: the input is UTF-8
  bool preserve_white_space = false;
};

/// Parses into a new tree; nullptr and `error` filled when the input is refused.
Tree* ParseXml(const XmlParseRequest& request, XmlParseError& error);

/// Whether a text is white space alone, and so isn't kept by a load that doesn't preserve it.
bool IsBlank(const xmlNode* text);

/// The same of a text in a tree, where xml:space="preserve" may keep it.
bool IsDroppedOnLoad(const xmlNode* text);

/// The next node of a walk through the subtree of `top` in document order; nullptr behind its end.
xmlNode* NextInSubtree(xmlNode* node, const xmlNode* top);

inline std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

inline const xmlChar* Chars(const String& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

}  // namespace zelnor
