#pragma once

/// @file
/// Run-time errors by number, and the standard handler in which nearly every operation ends them.
///
/// @code
/// bool clsStarter::CreateFromXML(const XmlNode& xmlNode) {
///   bool result = false;
///   Handled("clsStarter", "Function CreateFromXML", [&] {
///     start_date_ = ToDate(xmlNode.SelectSingleNode("StartDate").Text());
///     result = true;
///   });
///   return result;
/// }
/// @endcode

#include "zelnor/platform/values.h"

#include <exception>
#include <utility>

namespace zelnor {

/// The error number with which a lower layer hands on a text that it has already formatted (0x80040200).
inline constexpr Long kFormattedError = static_cast<Long>(0x80040200U);

/// An error known by its number.
class ZELNOR_API RuntimeError : public std::exception {
 public:
  /// An error with the platform's own description of that number, see DescriptionOf; the source is "ZELNOR".
  explicit RuntimeError(Long number);
  RuntimeError(Long number, String source, String description);

  Long Number() const { return number_; }
  const String& Source() const { return source_; }
  const String& Description() const { return description_; }

  /// The description.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  Long number_;
  String source_;
  String description_;
};

/// The platform's description of an error number; "Application-defined or object-defined error" for one it
/// doesn't know.
ZELNOR_API String DescriptionOf(Long number);

[[noreturn]] ZELNOR_API void ThrowInvalidArgument();  ///< error 5
[[noreturn]] ZELNOR_API void ThrowOverflow();         ///< error 6
[[noreturn]] ZELNOR_API void ThrowOutOfSubscript();   ///< error 9
[[noreturn]] ZELNOR_API void ThrowTypeMismatch();     ///< error 13
[[noreturn]] ZELNOR_API void ThrowFileNotFound();     ///< error 53
[[noreturn]] ZELNOR_API void ThrowObjectNotSet();     ///< error 91
[[noreturn]] ZELNOR_API void ThrowDuplicateKey();     ///< error 457

/// Returns the object, or raises error 91 when there is none.
template <class Pointer>
decltype(auto) Required(Pointer&& object) {
  if (!object) ThrowObjectNotSet();
  return *std::forward<Pointer>(object);
}

/// The exception at hand as a RuntimeError: std::bad_alloc is 7, any other foreign exception 440 with its own
/// text behind the description. Call it inside a catch block. Never raises an error itself.
ZELNOR_API RuntimeError CurrentError() noexcept;

/// The text of the standard handler: for an already formatted error its source, " : " and its description;
/// otherwise "Error in ZELNOR.dll::", the class, ": ", the member (such as "Function ToXML"), ": Error ", the
/// number, " - " and the description.
ZELNOR_API String ErrorText(const RuntimeError& error, std::string_view class_name, std::string_view member);

/// Shows an error's text in the host's message box, with `more` behind it. Never raises an error itself.
ZELNOR_API void ReportError(const RuntimeError& error, std::string_view class_name, std::string_view member,
                            std::string_view more = {}) noexcept;

/// The standard handler: runs `body`; an exception is reported and ends here. Returns whether `body` ran to
/// its end.
template <class Body>
bool Handled(std::string_view class_name, std::string_view member, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    ReportError(CurrentError(), class_name, member);
    return false;
  }
}

/// As ReportError, with the whole text of where the error came about.
ZELNOR_API void ReportErrorAt(const RuntimeError& error, std::string_view location) noexcept;

/// As Handled, with the whole text of where an error came about, such as "[ZELNOR.dll::clsSomething]:
/// Member".
template <class Body>
bool HandledAt(std::string_view location, Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    ReportErrorAt(CurrentError(), location);
    return false;
  }
}

/// Runs `body`; an error goes on to the caller with its number and description. Its source stays where it
/// begins with
/// "[" already, and is replaced by `bracketed` otherwise.
///
/// @param bracketed the whole new source, such as "[ZELNOR.dll::clsEmployee]: Employment"
template <class Body>
void PassedOn(std::string_view bracketed, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    const RuntimeError error = CurrentError();
    throw RuntimeError(error.Number(), error.Source().starts_with('[') ? error.Source() : String(bracketed),
                       error.Description());
  }
}

/// Runs `body`; an error goes on to the caller with `prefix` in front of its source, unless that already
/// begins with "[".
template <class Body>
void PassedOnWithPrefix(std::string_view prefix, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    const RuntimeError error = CurrentError();
    throw RuntimeError(error.Number(),
                       error.Source().starts_with('[') ? error.Source() : String(prefix) + error.Source(),
                       error.Description());
  }
}

}  // namespace zelnor
