#include "zelnor/standin/packed.h"

#include "zelnor/platform/zip.h"

#include <algorithm>
#include <openssl/evp.h>
#include <optional>
#include <string_view>

namespace zelnor::standin {
namespace {

/// The bytes of a Base64 text; nothing for a text that is none. White space is passed over.
std::optional<std::string> Decoded(std::string text) {
  std::erase_if(text, [](char c) { return std::string_view(" \t\r\n").find(c) != std::string_view::npos; });
  std::string bytes(text.size() / 4 * 3, '\0');
  const int length =
      EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes.data()),
                      reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
  if (text.empty() || text.size() % 4 != 0 || length < 0) return std::nullopt;
  const auto padding = static_cast<std::size_t>(std::count(text.end() - 2, text.end(), '='));
  bytes.resize(static_cast<std::size_t>(length) - padding);
  return bytes;
}

/// The part of the section, which is a child of the body's root; no object where there is none.
XmlNode PartOf(const XmlNode& root) {
  for (const XmlNode& section : root.ChildNodes()) {
    if (XmlNode part = section.IsElement() ? section.FindChild("CompressedPart") : nullptr) return part;
  }
  return nullptr;
}

}  // namespace

std::string Unpack(const XmlDocument& body) {
  const XmlNode part = PartOf(body.DocumentElement());
  if (!part) return {};
  const std::optional<std::string> packed = Decoded(part.Text());
  if (!packed) return "The CompressedPart is no Base64.";
  std::string text;
  try {
    text = Unzip(*packed);
  } catch (const ZipError& error) {
    return std::string("The CompressedPart can't be unpacked: ") + error.what();
  }
  XmlDocument employees;
  // Employees without a namespace of their own are those of the section.
  if (!employees.LoadXML("<Employees xmlns=\"" + std::string(part.NamespaceURI()) + "\">" + text +
                         "</Employees>")) {
    return "The CompressedPart holds no employees: " + employees.ParseError().reason;
  }
  const XmlNode section = part.ParentNode();
  for (const XmlNode& employee : employees.DocumentElement().ChildNodes()) {
    section.InsertBefore(body.ImportNode(employee, true), part);
  }
  section.RemoveChild(part);
  return {};
}

}  // namespace zelnor::standin
