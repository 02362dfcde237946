#pragma once

#include "zelnor/platform/values.h"

#include <string_view>

namespace zelnor {

/// A handler of parser events, with the members of a content handler, an error handler, a handler of schema
/// declarations and a locator. The content and declaration handlers do nothing; the error handlers note where
/// the parser stood. Nothing in the system makes one.
class ZELNOR_API clsSAXValidator {
 public:
  /// Where a parser stands.
  struct Locator {
    Long lineNumber = 0;    ///< from 1
    Long columnNumber = 0;  ///< from 1
    String publicId;
    String systemId;
  };

  /// @name Content handler
  ///@{
  void documentLocator(const Locator* locator) { locator_ = locator; }
  void startDocument() {}
  void endDocument() {}
  void startPrefixMapping(std::string_view /*prefix*/, std::string_view /*uri*/) {}
  void endPrefixMapping(std::string_view /*prefix*/) {}
  void startElement(std::string_view /*namespace_uri*/, std::string_view /*local_name*/,
                    std::string_view /*qualified_name*/) {}
  void endElement(std::string_view /*namespace_uri*/, std::string_view /*local_name*/,
                  std::string_view /*qualified_name*/) {}
  void characters(std::string_view /*text*/) {}
  void ignorableWhitespace(std::string_view /*text*/) {}
  void processingInstruction(std::string_view /*target*/, std::string_view /*data*/) {}
  void skippedEntity(std::string_view /*name*/) {}
  ///@}

  /// @name Error handler
  /// The message with the position of the locator in front of it.
  ///@{
  String error(const Locator& locator, std::string_view message) const { return Formatted(locator, message); }
  String fatalError(const Locator& locator, std::string_view message) const {
    return Formatted(locator, message);
  }
  String ignorableWarning(const Locator& locator, std::string_view message) const {
    return Formatted(locator, message);
  }
  ///@}

  /// @name Handler of schema declarations
  ///@{
  void schemaElementDecl(std::string_view /*name*/) {}
  ///@}

  /// @name Locator
  /// That of the parser; zero and empty before one was given.
  ///@{
  Long lineNumber() const { return locator_ == nullptr ? 0 : locator_->lineNumber; }
  Long columnNumber() const { return locator_ == nullptr ? 0 : locator_->columnNumber; }
  String publicId() const { return locator_ == nullptr ? String() : locator_->publicId; }
  String systemId() const { return locator_ == nullptr ? String() : locator_->systemId; }
  ///@}

 private:
  static String Formatted(const Locator& locator, std::string_view message);

  const Locator* locator_ = nullptr;
};

}  // namespace zelnor
