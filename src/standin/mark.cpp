#include "zelnor/standin/mark.h"

#include <array>
#include <cstring>
#include <memory>
#include <openssl/evp.h>
#include <vector>

#include <libxml/c14n.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

// This goes its own way from the message's bytes to the mark, so that a fault in the library's own marks
// shows.

namespace zelnor::standin {
namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

bool IsNamed(const xmlNode* node, const char* name) {
  return node->type == XML_ELEMENT_NODE && std::strcmp(reinterpret_cast<const char*>(node->name), name) == 0;
}

xmlNode* Child(xmlNode* parent, const char* name) {
  for (xmlNode* child = parent == nullptr ? nullptr : parent->children; child != nullptr;
       child = child->next) {
    if (IsNamed(child, name)) return child;
  }
  return nullptr;
}

// The namespaces in scope appear on the start tag of a canonical part.
void DeclareScope(xmlDoc* from, xmlNode* body, xmlNode* copy) {
  const std::unique_ptr<xmlNs*, void (*)(xmlNs**)> scope(xmlGetNsList(from, body),
                                                         [](xmlNs** list) { xmlFree(list); });
  for (xmlNs* const* ns = scope.get(); ns != nullptr && *ns != nullptr; ++ns) {
    bool declared = false;
    for (const xmlNs* each = copy->nsDef; each != nullptr; each = each->next) {
      declared = declared || xmlStrEqual(each->prefix, (*ns)->prefix) == 1;
    }
    if (!declared) xmlNewNs(copy, (*ns)->href, (*ns)->prefix);
  }
}

}  // namespace

std::string MarkOf(const std::string& message) {
  const Document document(
      xmlReadMemory(message.data(), static_cast<int>(message.size()), nullptr, nullptr,
                    XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
      xmlFreeDoc);
  xmlNode* body = document ? Child(xmlDocGetRootElement(document.get()), "Body") : nullptr;
  if (body == nullptr) return {};
  if (xmlNode* mark = Child(Child(Child(body, "IRenvelope"), "IRheader"), "IRmark")) {
    xmlUnlinkNode(mark);
    xmlFreeNode(mark);
  }
  const Document part(xmlNewDoc(nullptr), xmlFreeDoc);
  xmlNode* copy = xmlDocCopyNode(body, part.get(), 1);
  DeclareScope(document.get(), body, copy);
  xmlDocSetRootElement(part.get(), copy);
  xmlChar* canonical = nullptr;
  const int length = xmlC14NDocDumpMemory(part.get(), nullptr, XML_C14N_1_0, nullptr, 0, &canonical);
  if (length < 0) return {};
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  EVP_Digest(canonical, static_cast<std::size_t>(length), digest.data(), &size, EVP_sha1(), nullptr);
  xmlFree(canonical);
  std::array<unsigned char, 64> text{};
  const int written = EVP_EncodeBlock(text.data(), digest.data(), static_cast<int>(size));
  return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(written)};
}

std::string Base32OfMark(const std::string& base64) {
  constexpr std::size_t kMarkLength = 28;
  constexpr std::size_t kDigestLength = 20;
  if (base64.size() != kMarkLength) return {};
  std::array<unsigned char, kMarkLength> digest{};
  const auto* text = reinterpret_cast<const unsigned char*>(base64.data());
  if (EVP_DecodeBlock(digest.data(), text, static_cast<int>(base64.size())) < 0) return {};
  std::string base32;
  unsigned bits = 0;
  int count = 0;
  for (std::size_t at = 0; at < kDigestLength; ++at) {
    bits = bits << 8 | digest[at];
    for (count += 8; count >= 5; count -= 5) {
      base32 += "ABCDEFGHIJKLMNOPQRSTUVWXYZ234567"[bits >> (count - 5) & 31U];
    }
  }
  return base32;
}

}  // namespace zelnor::standin
