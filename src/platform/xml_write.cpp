#include "zelnor/platform/failure.h"
#include "zelnor/platform/xml_tree.h"

#include <algorithm>
#include <array>

#include <libxml/parserInternals.h>

namespace zelnor {
namespace {

constexpr std::size_t kPieceSize = 1 << 16;
constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

// The characters that can't always stand as themselves.
constexpr std::array<bool, 256> kMayNeedReference = [] {
  std::array<bool, 256> table{};
  for (const char c : {'&', '<', '>', '"', '\r', '\n', '\t'}) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

// Writes nodes as XML text, declaring each namespace exactly where it comes into scope.
class Writer {
 public:
  Writer(const XmlNode::Sink& sink, const xmlNode* leave_out, bool as_loaded)
      : sink_(sink), leave_out_(leave_out), as_loaded_(as_loaded) {
    text_.reserve(kPieceSize + 4096);
  }

  void Write(const xmlNode* top) {
    const xmlNode* node = top;
    while (true) {
      if (node != leave_out_ && Open(node) && node->children != nullptr) {
        node = node->children;
        continue;
      }
      while (true) {
        if (node != leave_out_) Close(node);
        if (node == top) return Flush();
        if (node->next != nullptr) {
          node = node->next;
          break;
        }
        node = node->parent;
      }
    }
  }

 private:
  struct Binding {
    std::string_view prefix;
    std::string_view uri;
    const xmlNode* element;
  };

  // Writes what comes before the children. Returns whether the node has children of its own to write.
  bool Open(const xmlNode* node) {
    switch (node->type) {
      case XML_ELEMENT_NODE:
        OpenElement(node);
        return true;
      case XML_DOCUMENT_NODE:
      case XML_HTML_DOCUMENT_NODE:
      case XML_DOCUMENT_FRAG_NODE:
        return true;
      case XML_TEXT_NODE:
        if (node->name == xmlStringTextNoenc) {
          Flush();
          sink_(View(node->content));
          break;
        }
        if (!as_loaded_ || !IsDroppedOnLoad(node)) Escaped(View(node->content), false);
        break;
      case XML_CDATA_SECTION_NODE:
        CData(View(node->content));
        break;
      case XML_COMMENT_NODE:
        text_.append("<!--").append(View(node->content)).append("-->");
        break;
      case XML_PI_NODE:
        text_.append("<?").append(View(node->name));
        if (!View(node->content).empty()) text_.append(" ").append(View(node->content));
        text_.append("?>");
        break;
      case XML_ATTRIBUTE_NODE:
        Attribute(reinterpret_cast<const xmlAttr*>(node));
        break;
      case XML_DTD_NODE:
        DocumentType(node);
        break;
      default:
        break;
    }
    FlushWhenFull();
    return false;
  }

  void Close(const xmlNode* node) {
    if (node->type != XML_ELEMENT_NODE) return;
    text_.append("</");
    Name(node->ns, node->name);
    text_.push_back('>');
    while (!scope_.empty() && scope_.back().element == node) scope_.pop_back();
    FlushWhenFull();
  }

  void OpenElement(const xmlNode* element) {
    text_.push_back('<');
    Name(element->ns, element->name);
    for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
      Declare(element, View(ns->prefix), View(ns->href));
    }
    Need(element, element->ns);
    for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
      if (attribute->ns != nullptr && attribute->ns->prefix != nullptr) Need(element, attribute->ns);
    }
    for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
      text_.push_back(' ');
      Attribute(attribute);
    }
    text_.push_back('>');
    FlushWhenFull();
  }

  std::string_view InScope(std::string_view prefix) const {
    const auto found = std::find_if(scope_.rbegin(), scope_.rend(),
                                    [&](const Binding& each) { return each.prefix == prefix; });
    return found == scope_.rend() ? std::string_view() : found->uri;
  }

  bool DeclaredOn(const xmlNode* element, std::string_view prefix) const {
    for (auto binding = scope_.rbegin(); binding != scope_.rend() && binding->element == element; ++binding) {
      if (binding->prefix == prefix) return true;
    }
    return false;
  }

  void Declare(const xmlNode* element, std::string_view prefix, std::string_view uri) {
    if (InScope(prefix) == uri) return;
    scope_.push_back({prefix, uri, element});
    text_.append(prefix.empty() ? " xmlns" : " xmlns:").append(prefix).append("=\"");
    Escaped(uri, true);
    text_.push_back('"');
  }

  // An element's own declaration of a prefix stands, also where its name was made in another namespace.
  void Need(const xmlNode* element, const xmlNs* ns) {
    if (ns != nullptr && ns == settled_ && scope_.size() == settled_size_) return;
    NeedByName(element, ns);
    settled_ = ns;
    settled_size_ = scope_.size();
  }

  void NeedByName(const xmlNode* element, const xmlNs* ns) {
    const std::string_view prefix = ns == nullptr ? std::string_view() : View(ns->prefix);
    const std::string_view uri = ns == nullptr ? std::string_view() : View(ns->href);
    if (prefix == "xml" && uri == kXmlNamespace) return;
    if (InScope(prefix) == uri || DeclaredOn(element, prefix)) return;
    if (ns == nullptr && HasOwnDefault(element)) return;
    Declare(element, prefix, uri);
  }

  static bool HasOwnDefault(const xmlNode* element) {
    for (const xmlNs* ns = element->nsDef; ns != nullptr; ns = ns->next) {
      if (ns->prefix == nullptr) return true;
    }
    return false;
  }

  void Name(const xmlNs* ns, const xmlChar* name) {
    if (ns != nullptr && ns->prefix != nullptr) text_.append(View(ns->prefix)).push_back(':');
    text_.append(View(name));
  }

  void Attribute(const xmlAttr* attribute) {
    Name(attribute->ns, attribute->name);
    text_.append("=\"");
    for (const xmlNode* part = attribute->children; part != nullptr; part = part->next) {
      Escaped(View(part->content), true);
    }
    text_.push_back('"');
  }

  // White space that a parser would change on the way back in stands as a character reference.
  static std::string_view ReferenceOf(char c, bool in_attribute) {
    switch (c) {
      case '&':
        return "&amp;";
      case '<':
        return "&lt;";
      case '>':
        return in_attribute ? "" : "&gt;";
      case '"':
        return in_attribute ? "&quot;" : "";
      case '\r':
        return "&#xD;";
      case '\n':
        return in_attribute ? "&#xA;" : "";
      case '\t':
        return in_attribute ? "&#x9;" : "";
      default:
        return {};
    }
  }

  void Escaped(std::string_view text, bool in_attribute) {
    std::size_t plain_from = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (!kMayNeedReference[static_cast<unsigned char>(text[i])]) continue;
      const std::string_view reference = ReferenceOf(text[i], in_attribute);
      if (reference.empty()) continue;
      text_.append(text.substr(plain_from, i - plain_from)).append(reference);
      plain_from = i + 1;
    }
    text_.append(text.substr(plain_from));
  }

  // A section can't hold its own end; such a text is cut into two sections.
  void CData(std::string_view text) {
    text_.append("<![CDATA[");
    for (std::size_t end = text.find("]]>"); end != std::string_view::npos; end = text.find("]]>")) {
      text_.append(text.substr(0, end + 2)).append("]]><![CDATA[");
      text.remove_prefix(end + 2);
    }
    text_.append(text).append("]]>");
  }

  void DocumentType(const xmlNode* node) {
    xmlBuffer* buffer = xmlBufferCreate();
    if (buffer == nullptr) throw std::bad_alloc();
    xmlNodeDump(buffer, node->doc, const_cast<xmlNode*>(node), 0, 0);
    text_.append(View(xmlBufferContent(buffer)));
    xmlBufferFree(buffer);
  }

  void FlushWhenFull() {
    if (text_.size() >= kPieceSize) Flush();
  }

  void Flush() {
    if (!text_.empty()) sink_(text_);
    text_.clear();
  }

  const XmlNode::Sink& sink_;
  const xmlNode* leave_out_;
  bool as_loaded_;
  String text_;
  std::vector<Binding> scope_;
  const xmlNs* settled_ = nullptr;  // the namespace that was looked at last, with the scope's size then
  std::size_t settled_size_ = 0;
};

}  // namespace

void XmlNode::WriteXml(const Sink& sink, const XmlNode& leave_out, bool as_loaded) const {
  const xmlNode* node = node_;
  if (node == nullptr) ThrowObjectNotSet();
  if (ns_ != nullptr) return sink(NodeName() + "=\"" + Text() + "\"");
  Writer(sink, Access::Raw(leave_out), as_loaded).Write(node);
}

String XmlNode::Xml() const {
  String text;
  WriteXml([&](std::string_view piece) { text.append(piece); });
  return text;
}

}  // namespace zelnor
