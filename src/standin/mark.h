#pragma once

#include <string>

namespace zelnor::standin {

/// The IRmark that a message should hold, in Base64: the SHA-1 of its `Body` without the `IRmark`, in
/// canonical form. Empty when the message has no `Body`.
std::string MarkOf(const std::string& message);

/// A mark in Base32, as receipts show it; empty for a text that is no mark.
std::string Base32OfMark(const std::string& base64);

}  // namespace zelnor::standin
