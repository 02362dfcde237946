#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/xml_tree.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <libxml/encoding.h>
#include <libxml/xmlIO.h>

namespace zelnor {
namespace {

XmlDocument::State& Required(const XmlDocument& document) {
  if (!document) ThrowObjectNotSet();
  return *document.StateOf();
}

// Gives out the bytes of a text piece by piece.
XmlReader ReaderOf(std::string_view text) {
  return [text](char* buffer, int size) mutable {
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(size));
    std::memcpy(buffer, text.data(), count);
    text.remove_prefix(count);
    return static_cast<int>(count);
  };
}

bool LoadInto(XmlDocument::State& state, const XmlParseRequest& request) {
  Tree* tree = ParseXml(request, state.parse_error);
  const bool loaded = tree != nullptr;
  if (!loaded) {
    tree = new Tree;
    tree->AddReference();
    tree->preserve_white_space = request.preserve_white_space;
  }
  state.Show(tree);
  tree->DropReference();
  return loaded;
}

XmlNode Loose(Tree& tree, xmlNode* node) {
  if (node == nullptr) throw std::bad_alloc();
  XmlNode handle = XmlNode::Access::Handle(node);
  tree.Loosen(node);
  return handle;
}

// The encoding that the document's declaration names; empty for UTF-8 and for none.
String DeclaredEncoding(const XmlDocument& document) {
  const XmlNode first = document.Node().FirstChild();
  if (!first || first.NodeType() != XmlNodeType::ProcessingInstruction || first.BaseName() != "xml")
    return {};
  const String encoding = UpperCase(first.Attribute("encoding").value_or(""));
  if (encoding == "UTF-8" || encoding == "UTF8" || encoding == "US-ASCII") return {};
  return encoding == "UTF-16" ? "UTF-16LE" : encoding;  // "UTF-16" alone would begin with a byte order mark
}

int WriteToSink(void* sink, const char* bytes, int count) {
  try {
    (*static_cast<const ByteSink*>(sink))({bytes, static_cast<std::size_t>(count)});
    return count;
  } catch (...) {
    return -1;
  }
}

void WriteEncoded(const XmlDocument& document, const String& encoding, const ByteSink& sink) {
  xmlCharEncodingHandler* handler = xmlFindCharEncodingHandler(encoding.c_str());
  if (handler == nullptr) ThrowInvalidArgument();
  xmlOutputBuffer* output =
      xmlOutputBufferCreateIO(WriteToSink, nullptr, const_cast<ByteSink*>(&sink), handler);
  if (output == nullptr) throw std::bad_alloc();
  document.Node().WriteXml([&](std::string_view piece) {
    xmlOutputBufferWrite(output, static_cast<int>(piece.size()), piece.data());
  });
  if (xmlOutputBufferClose(output) < 0) throw RuntimeError(75);
}

}  // namespace

XmlDocument::State::State() : State(new Tree) {}

XmlDocument::State::State(Tree* shown) : tree(shown) { tree->AddReference(); }

XmlDocument::State::~State() { tree->DropReference(); }

void XmlDocument::State::Show(Tree* shown) {
  shown->AddReference();
  shown->preserve_white_space = tree->preserve_white_space;
  shown->state = tree->state;
  tree->state.reset();
  std::swap(tree, shown);
  shown->DropReference();
}

XmlDocument::XmlDocument() : state_(std::make_shared<State>()) { state_->tree->state = state_; }

XmlDocument::XmlDocument(std::nullptr_t) {}

XmlNode XmlDocument::Node() const {
  return XmlNode::Access::Handle(reinterpret_cast<xmlNode*>(Required(*this).tree->Doc()));
}

XmlNode XmlDocument::DocumentElement() const {
  xmlNode* root = xmlDocGetRootElement(Required(*this).tree->Doc());
  return root == nullptr ? XmlNode() : XmlNode::Access::Handle(root);
}

bool XmlDocument::LoadXML(std::string_view text) const {
  State& state = Required(*this);
  return LoadInto(state, {.read = ReaderOf(text),
                          .url = {},
                          .text = true,
                          .preserve_white_space = state.tree->preserve_white_space});
}

bool XmlDocument::LoadBytes(std::string_view bytes, std::string_view url) const {
  State& state = Required(*this);
  return LoadInto(state, {.read = ReaderOf(bytes),
                          .url = String(url),
                          .text = false,
                          .preserve_white_space = state.tree->preserve_white_space});
}

bool XmlDocument::Load(std::string_view path) const {
  State& state = Required(*this);
  String reason;
  int file = -1;
  try {
    const String system_path = SystemPath(path);
    file = open(system_path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0) {
      reason = "The file could not be opened: " + String(std::strerror(errno)) + ".\n";
    } else if (S_ISDIR(status.st_mode)) {
      reason = "The path names a folder, not a file.\n";
    } else if (S_ISREG(status.st_mode) && status.st_size > kMaxXmlBytes) {
      reason = "The document is larger than " + std::to_string(kMaxXmlBytes / 1024 / 1024) +
               " MB and was not read.\n";
    }
  } catch (const RuntimeError& error) {
    reason = error.Description() + ".\n";
  }
  if (!reason.empty()) {
    if (file >= 0) close(file);
    LoadInto(state, {.read = [](char*, int) { return -1; },
                     .url = String(path),
                     .text = false,
                     .preserve_white_space = state.tree->preserve_white_space});
    state.parse_error.reason = reason;
    return false;
  }
  const bool loaded = LoadInto(state, {.read =
                                           [file](char* buffer, int size) {
                                             ssize_t count = 0;
                                             do {
                                               count = read(file, buffer, static_cast<std::size_t>(size));
                                             } while (count < 0 && errno == EINTR);
                                             return static_cast<int>(count);
                                           },
                                       .url = String(path),
                                       .text = false,
                                       .preserve_white_space = state.tree->preserve_white_space});
  close(file);
  return loaded;
}

const XmlParseError& XmlDocument::ParseError() const { return Required(*this).parse_error; }

void XmlDocument::Save(std::string_view path) const {
  Required(*this);
  const String encoding = DeclaredEncoding(*this);
  WriteFile(path, [&](const ByteSink& sink) {
    if (encoding.empty()) {
      Node().WriteXml(sink);
    } else {
      WriteEncoded(*this, encoding, sink);
    }
  });
}

bool XmlDocument::PreserveWhiteSpace() const { return Required(*this).tree->preserve_white_space; }
void XmlDocument::PreserveWhiteSpace(bool value) const { Required(*this).tree->preserve_white_space = value; }

void XmlDocument::Async(bool /*value*/) const { Required(*this); }
void XmlDocument::ValidateOnParse(bool /*value*/) const { Required(*this); }
void XmlDocument::ResolveExternals(bool /*value*/) const { Required(*this); }

void XmlDocument::SelectionNamespaces(std::string_view declarations) const {
  State& state = Required(*this);
  XmlDocument parsed;
  if (!parsed.LoadXML("<a " + String(declarations) + "/>")) ThrowInvalidArgument();
  state.selection_namespaces.clear();
  for (const XmlNode& declaration : parsed.DocumentElement().Attributes()) {
    if (!StartsWith(declaration.NodeName(), "xmlns:")) ThrowInvalidArgument();
    state.selection_namespaces.emplace_back(declaration.BaseName(), declaration.Text());
  }
}

void XmlDocument::Schemas(std::shared_ptr<const XmlSchemaCollection> schemas) const {
  Required(*this).schemas = std::move(schemas);
}

XmlNode XmlDocument::CreateElement(std::string_view name) const {
  return CreateNode(XmlNodeType::Element, name, {});
}

XmlNode XmlDocument::CreateNode(XmlNodeType type, std::string_view name,
                                std::string_view namespace_uri) const {
  Tree& tree = *Required(*this).tree;
  const String whole_name(name);
  const bool named = type == XmlNodeType::Element || type == XmlNodeType::Attribute;
  if (named && xmlValidateQName(Chars(whole_name), 0) != 0) ThrowInvalidArgument();
  const std::size_t colon = name.find(':');
  const std::string_view prefix =
      colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
  const std::string_view base = colon == std::string_view::npos ? name : name.substr(colon + 1);
  if (named && !prefix.empty() && namespace_uri.empty()) ThrowInvalidArgument();
  switch (type) {
    case XmlNodeType::Element:
      return Loose(tree, tree.NewElement(base, tree.Namespace(namespace_uri, prefix)));
    case XmlNodeType::Text:
      return CreateTextNode({});
    case XmlNodeType::Comment:
      return CreateComment({});
    case XmlNodeType::CData:
      return CreateCDataSection({});
    case XmlNodeType::ProcessingInstruction:
      return CreateProcessingInstruction(name, {});
    case XmlNodeType::DocumentFragment:
      return CreateDocumentFragment();
    default:
      ThrowInvalidArgument();
  }
}

XmlNode XmlDocument::CreateTextNode(std::string_view text) const {
  Tree& tree = *Required(*this).tree;
  return Loose(tree, tree.NewText(Tree::Clean(text)));
}

XmlNode XmlDocument::CreateComment(std::string_view text) const {
  Tree& tree = *Required(*this).tree;
  const String clean = Tree::Clean(text);
  if (clean.find("--") != String::npos || clean.ends_with('-')) ThrowInvalidArgument();
  return Loose(tree, xmlNewDocComment(tree.Doc(), Chars(clean)));
}

XmlNode XmlDocument::CreateCDataSection(std::string_view text) const {
  Tree& tree = *Required(*this).tree;
  const String clean = Tree::Clean(text);
  return Loose(tree, xmlNewCDataBlock(tree.Doc(), Chars(clean), static_cast<int>(clean.size())));
}

XmlNode XmlDocument::CreateProcessingInstruction(std::string_view target, std::string_view data) const {
  Tree& tree = *Required(*this).tree;
  const String name(target);
  const String clean = Tree::Clean(data);
  if (xmlValidateNCName(Chars(name), 0) != 0 || clean.find("?>") != String::npos) ThrowInvalidArgument();
  return Loose(tree, xmlNewDocPI(tree.Doc(), Chars(name), Chars(clean)));
}

XmlNode XmlDocument::CreateDocumentFragment() const {
  Tree& tree = *Required(*this).tree;
  return Loose(tree, xmlNewDocFragment(tree.Doc()));
}

XmlNode XmlDocument::ImportNode(const XmlNode& node, bool deep) const {
  Tree& tree = *Required(*this).tree;
  const xmlNode* source = XmlNode::Access::Raw(node);
  if (source == nullptr) ThrowObjectNotSet();
  if (XmlNode::Access::Declaration(node) != nullptr) ThrowInvalidArgument();
  return Loose(tree, tree.NewCopy(source, deep));
}

String RewriteXml(std::string_view text, bool omit_declaration) {
  XmlDocument document;
  document.PreserveWhiteSpace(true);
  if (!document.LoadXML(text)) {
    throw RuntimeError(440, "ZELNOR", "Automation error: " + document.ParseError().reason);
  }
  String written;
  if (!omit_declaration) written = "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\n";
  for (const XmlNode& child : document.Node().ChildNodes()) {
    const bool declaration =
        child.NodeType() == XmlNodeType::ProcessingInstruction && child.BaseName() == "xml";
    if (!declaration) child.WriteXml([&](std::string_view piece) { written.append(piece); });
  }
  return written;
}

}  // namespace zelnor
