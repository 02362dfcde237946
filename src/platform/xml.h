#pragma once

/// @file
/// The XML document object model. Handles (XmlNode, XmlDocument) are cheap to copy and behave like
/// references: all copies mean the same node, and a node keeps its document alive. A default handle holds no
/// object; using one raises error 91. An operation that the model refuses (a bad name, a bad XPath, removing
/// a node that is no child) raises error 5.
///
/// Nothing is ever fetched: external entities are refused, external subsets ignored.
///
/// @code
/// XmlDocument doc;
/// if (!doc.LoadXML("<a><b>1</b></a>")) std::cerr << doc.ParseError().reason;
/// String one = doc.SelectSingleNode("a/b").Text();
/// @endcode

#include "zelnor/platform/values.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

// The DOM library's own structures, unknown to the users of this header.
struct _xmlNode;  // NOLINT(bugprone-reserved-identifier)
struct _xmlNs;    // NOLINT(bugprone-reserved-identifier)

namespace zelnor {

class XmlDocument;
class XmlSchemaCollection;

/// Bounds on what a parse accepts; beyond them it fails with an error that says so.
inline constexpr std::int64_t kMaxXmlBytes = 256LL * 1024 * 1024;
inline constexpr int kMaxXmlDepth = 2048;

/// The kinds of node.
enum class XmlNodeType : std::int32_t {
  Element = 1,
  Attribute = 2,
  Text = 3,
  CData = 4,
  EntityReference = 5,
  ProcessingInstruction = 7,
  Comment = 8,
  Document = 9,
  DocumentType = 10,
  DocumentFragment = 11
};

/// Why a parse or a validation failed; all zero and empty after a success.
struct ZELNOR_API XmlParseError {
  Long errorCode = 0;  ///< one stable non-zero code per kind of failure
  Long filepos = 0;    ///< byte position in the input, from 0
  Long line = 0;       ///< from 1
  Long linepos = 0;    ///< column, from 1
  String reason;       ///< one or more plain sentences ending in a line feed
  String
      srcText;  ///< the source line at fault cut at 256 characters; after a failed validation the node's path
  String url;   ///< the file that was loaded
};

/// A node of a document: element, attribute, text, comment, processing instruction, document or fragment.
class ZELNOR_API XmlNode {
 public:
  class ChildRange;

  /// No object.
  XmlNode() = default;
  XmlNode(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
  XmlNode(const XmlNode& other);
  XmlNode(XmlNode&& other) noexcept;
  XmlNode& operator=(const XmlNode& other);
  XmlNode& operator=(XmlNode&& other) noexcept;
  ~XmlNode();

  /// Whether there is an object.
  explicit operator bool() const { return node_ != nullptr; }

  /// Whether both handles mean the same node.
  friend bool operator==(const XmlNode& a, const XmlNode& b) { return a.node_ == b.node_ && a.ns_ == b.ns_; }

  XmlNodeType NodeType() const;
  bool IsElement() const { return node_ != nullptr && NodeType() == XmlNodeType::Element; }

  /// The name with its prefix; "#document", "#text", "#comment", "#cdata-section", "#document-fragment" for
  /// nodes without one.
  String NodeName() const;

  /// The name without prefix; empty for a text, comment or document node. The view lives as long as the node.
  std::string_view BaseName() const;

  /// Empty where there is none.
  String Prefix() const;
  String NamespaceURI() const;

  /// The text of all descendants, trimmed of white space at both ends unless white space is preserved
  /// (PreserveWhiteSpace of the document, or xml:space="preserve"). The value of an attribute.
  String Text() const;

  /// Replaces all children by one text (none for an empty text). Line ends become line feeds, and a character
  /// that XML forbids becomes U+FFFD.
  void Text(std::string_view value) const;

  /// The node as XML text: attributes in double quotes, nothing added between nodes, an empty element as
  /// `<a></a>`. A node on its own also carries the declarations that it needs from its ancestors.
  String Xml() const;

  /// Calls `sink` with that text in pieces, without ever holding it whole. The subtree `leave_out`, if given,
  /// is not written. With `as_loaded` the text is that of the node after a load that doesn't preserve white
  /// space: without the text nodes of white space alone.
  using Sink = std::function<void(std::string_view piece)>;
  void WriteXml(const Sink& sink, const XmlNode& leave_out = nullptr, bool as_loaded = false) const;

  XmlDocument OwnerDocument() const;
  XmlNode ParentNode() const;
  XmlNode FirstChild() const;
  XmlNode LastChild() const;
  XmlNode NextSibling() const;
  XmlNode PreviousSibling() const;
  bool HasChildNodes() const;

  /// The children in order, for a range-for. The list may change behind the node that the loop stands on.
  ChildRange ChildNodes() const;

  /// Appends a node as the last child, taking it from where it was; a node of another document is adopted. Of
  /// a fragment its children are appended. Returns the node.
  XmlNode AppendChild(const XmlNode& child) const;

  /// Inserts a node before a child; with no child given, appends it. Returns the node.
  XmlNode InsertBefore(const XmlNode& child, const XmlNode& before) const;

  /// Takes a child out and returns it.
  XmlNode RemoveChild(const XmlNode& child) const;

  /// Puts `replacement` where `child` is, and returns `child`, taken out.
  XmlNode ReplaceChild(const XmlNode& replacement, const XmlNode& child) const;

  /// A copy without parent, in the same document.
  XmlNode CloneNode(bool deep) const;

  /// The attributes in order, namespace declarations first. A processing instruction `xml` or
  /// `xml-stylesheet` shows its pseudo-attributes through the four operations below, and no nodes here.
  std::vector<XmlNode> Attributes() const;

  /// The attribute's node by its name with prefix, `xmlns` and `xmlns:p` among them; no object when absent.
  XmlNode AttributeNode(std::string_view name) const;

  /// The attribute's value, or nothing when absent.
  std::optional<String> Attribute(std::string_view name) const;

  /// Makes the attribute or replaces its value. Setting `xmlns` changes the declaration and what new children
  /// inherit, and not the element's own NamespaceURI.
  void Attribute(std::string_view name, std::string_view value) const;

  /// Removes the attribute, if there.
  void RemoveAttribute(std::string_view name) const;

  /// Appends a new element in the given namespace and returns it. An empty namespace gives an element without
  /// one.
  XmlNode AppendElement(std::string_view name, std::string_view namespace_uri) const;

  /// Appends a new element in the namespace that new children of this node take: that of its `xmlns`
  /// attribute, else its own NamespaceURI, else none.
  XmlNode AppendElement(std::string_view name) const;

  /// Appends a node's `xml` text, to be written as it stands, instead of a copy of the node: for large
  /// subtrees that are kept to be written alone. A text node to readers. Error 91 without a node, 5 where
  /// this is no element.
  void AppendWritten(const XmlNode& copied) const;

  /// Whether this node was made by AppendWritten.
  bool IsWritten() const;

  /// The namespace that new children of this element take; see AppendElement. Empty for other kinds of node.
  String ChildNamespace() const;

  /// The first child of this base name; no object when there is none.
  XmlNode FindChild(std::string_view base_name) const;

  /// XPath 1.0. A name without prefix matches names without namespace; prefixes are those of the document's
  /// SelectionNamespaces. Raises error 5 for an expression that is none or gives no nodes.
  std::vector<XmlNode> SelectNodes(std::string_view xpath) const;
  XmlNode SelectSingleNode(std::string_view xpath) const;

  /// Descendant elements of this name (with its prefix), in document order; "*" for all.
  std::vector<XmlNode> GetElementsByTagName(std::string_view name) const;

  /// The path of the element by base names, with positions where siblings share a name:
  /// /GovTalkMessage/Body/IRenvelope/FullPaymentSubmission/Employee[3]
  String Path() const;

  /// For the use of the document model itself.
  struct Access;

 private:
  friend struct Access;
  XmlNode(_xmlNode* node, _xmlNs* ns);

  _xmlNode* node_ = nullptr;  // an attribute is a node of this kind, too
  _xmlNs* ns_ = nullptr;      // set: this handle means the declaration of that namespace on node_
};

/// A document. Copies of the handle mean the same document; loading replaces the content for all of them,
/// while nodes of the former content stay alive for whoever holds them.
class ZELNOR_API XmlDocument {
 public:
  /// A new empty document.
  XmlDocument();
  /// No object.
  XmlDocument(std::nullptr_t);  // NOLINT(google-explicit-constructor)
  explicit operator bool() const { return state_ != nullptr; }
  friend bool operator==(const XmlDocument& a, const XmlDocument& b) { return a.state_ == b.state_; }

  /// The document as a node, the parent of its document element.
  XmlNode Node() const;
  operator XmlNode() const { return Node(); }  // NOLINT(google-explicit-constructor)

  /// No object for a document without one.
  XmlNode DocumentElement() const;

  /// Parses text; the encoding that a declaration in it names is ignored. False, with ParseError set and the
  /// document empty, when it isn't well formed.
  bool LoadXML(std::string_view text) const;

  /// Parses bytes, honouring the encoding that they declare. `url` is shown in ParseError.
  bool LoadBytes(std::string_view bytes, std::string_view url = {}) const;

  /// Parses a file, without holding its bytes whole. A file that can't be read is a parse error as well.
  bool Load(std::string_view path) const;

  /// What the last load or validation found.
  const XmlParseError& ParseError() const;

  /// Writes exactly the Xml text in the document's encoding (that of its declaration, else UTF-8), without a
  /// byte order mark, as files.h tells.
  void Save(std::string_view path) const;

  /// See XmlNode::Xml.
  String Xml() const { return Node().Xml(); }

  /// Whether text nodes of white space alone are kept on load and texts are left untrimmed. False at first.
  bool PreserveWhiteSpace() const;
  void PreserveWhiteSpace(bool value) const;

  /// Stored for callers that expect them; parsing is always synchronous, never validates by itself and never
  /// fetches anything.
  void Async(bool value) const;
  void ValidateOnParse(bool value) const;
  void ResolveExternals(bool value) const;

  /// Binds prefixes for SelectNodes, in the form `xmlns:ns="http://..." xmlns:b='...'`. Error 5 for any other
  /// form.
  void SelectionNamespaces(std::string_view declarations) const;

  /// The schemas that Validate uses.
  void Schemas(std::shared_ptr<const XmlSchemaCollection> schemas) const;

  /// Validates the document against its schemas. True when it is valid; otherwise ParseError holds the first
  /// error in document order, with position 0, an empty url and the path of the node at fault as srcText.
  bool Validate() const;

  /// New nodes of this document, without parent. A name that is none raises error 5.
  XmlNode CreateElement(std::string_view name) const;
  XmlNode CreateNode(XmlNodeType type, std::string_view name, std::string_view namespace_uri) const;
  XmlNode CreateTextNode(std::string_view text) const;
  XmlNode CreateComment(std::string_view text) const;
  XmlNode CreateCDataSection(std::string_view text) const;
  XmlNode CreateProcessingInstruction(std::string_view target, std::string_view data) const;
  XmlNode CreateDocumentFragment() const;

  /// A deep or shallow copy of a node of any document, made in this document, without parent.
  XmlNode ImportNode(const XmlNode& node, bool deep) const;

  /// Shorthands for the operations of Node.
  XmlNode AppendChild(const XmlNode& child) const { return Node().AppendChild(child); }
  XmlNode RemoveChild(const XmlNode& child) const { return Node().RemoveChild(child); }
  bool HasChildNodes() const { return Node().HasChildNodes(); }
  std::vector<XmlNode> SelectNodes(std::string_view xpath) const { return Node().SelectNodes(xpath); }
  XmlNode SelectSingleNode(std::string_view xpath) const { return Node().SelectSingleNode(xpath); }
  std::vector<XmlNode> GetElementsByTagName(std::string_view name) const {
    return Node().GetElementsByTagName(name);
  }

  /// For the use of the document model itself.
  struct State;
  explicit XmlDocument(std::shared_ptr<State> state) : state_(std::move(state)) {}
  const std::shared_ptr<State>& StateOf() const { return state_; }

 private:
  std::shared_ptr<State> state_;
};

/// The children of a node, for a range-for.
class ZELNOR_API XmlNode::ChildRange {
 public:
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = XmlNode;
    using difference_type = std::ptrdiff_t;
    using pointer = const XmlNode*;
    using reference = const XmlNode&;

    Iterator() = default;
    explicit Iterator(XmlNode first) : at_(std::move(first)) {}
    const XmlNode& operator*() const { return at_; }
    const XmlNode* operator->() const { return &at_; }
    Iterator& operator++() {
      at_ = at_.NextSibling();
      return *this;
    }
    void operator++(int) { ++*this; }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.at_ == b.at_; }

   private:
    XmlNode at_;
  };

  explicit ChildRange(XmlNode first) : first_(std::move(first)) {}
  Iterator begin() const { return Iterator(first_); }
  Iterator end() const { return Iterator(); }

 private:
  XmlNode first_;
};

/// Schema documents by target namespace, compiled at the first validation. An `import` inside a schema is
/// answered from the collection by its namespace, whatever its schemaLocation says; nothing is fetched.
class ZELNOR_API XmlSchemaCollection {
 public:
  XmlSchemaCollection();
  ~XmlSchemaCollection();
  XmlSchemaCollection(const XmlSchemaCollection&) = delete;
  XmlSchemaCollection& operator=(const XmlSchemaCollection&) = delete;

  /// Adds a schema document under its namespace, replacing an earlier one.
  void Add(std::string_view namespace_uri, const XmlDocument& schema);

  /// The number of schemas.
  Long Length() const;

  struct Data;
  Data& DataOf() const { return *data_; }

 private:
  std::unique_ptr<Data> data_;
};

/// The reader and writer behind PrettyPrintXML: parses the text and writes it again as the `xml` text does,
/// with
/// `<?xml version="1.0" encoding="utf-8" standalone="no"?>` and a line end in front unless the declaration is
/// omitted. White space is kept. Raises error 440 with the parser's reason for text that isn't well formed.
ZELNOR_API String RewriteXml(std::string_view text, bool omit_declaration);

}  // namespace zelnor
