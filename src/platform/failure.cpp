#include "zelnor/platform/failure.h"

#include "zelnor/platform/host.h"

#include <new>

namespace zelnor {
namespace {

constexpr std::string_view kComponent = "ZELNOR";

constexpr Long kOutOfMemory = 7;
constexpr Long kAutomationError = 440;

struct Described {
  Long number;
  std::string_view description;
};

constexpr Described kDescriptions[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {kOutOfMemory, "Out of memory"},
    {9, "Subscript out of range"},
    {13, "Type mismatch"},
    {53, "File not found"},
    {58, "File already exists"},
    {61, "Disk full"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {kAutomationError, "Automation error"},
    {457, "This key is already associated with an element of this collection"},
};

}  // namespace

RuntimeError::RuntimeError(Long number)
    : number_(number), source_(kComponent), description_(DescriptionOf(number)) {}

RuntimeError::RuntimeError(Long number, String source, String description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

String DescriptionOf(Long number) {
  for (const Described& each : kDescriptions) {
    if (each.number == number) return String(each.description);
  }
  return "Application-defined or object-defined error";
}

void ThrowInvalidArgument() { throw RuntimeError(5); }
void ThrowOverflow() { throw RuntimeError(6); }
void ThrowOutOfSubscript() { throw RuntimeError(9); }
void ThrowTypeMismatch() { throw RuntimeError(13); }
void ThrowFileNotFound() { throw RuntimeError(53); }
void ThrowObjectNotSet() { throw RuntimeError(91); }
void ThrowDuplicateKey() { throw RuntimeError(457); }

RuntimeError CurrentError() noexcept {
  // The outer handler catches what runs out of memory while the error itself is being written down. The texts
  // of error 7 are short enough to need no memory.
  try {
    try {
      throw;
    } catch (const RuntimeError& error) {
      return error;
    } catch (const std::bad_alloc&) {
      return RuntimeError(kOutOfMemory);
    } catch (const std::exception& error) {
      return RuntimeError(kAutomationError, String(kComponent),
                          DescriptionOf(kAutomationError) + ": " + error.what());
    } catch (...) {
      return RuntimeError(kAutomationError);
    }
  } catch (...) {
    return RuntimeError(kOutOfMemory);
  }
}

namespace {

String TextAt(const RuntimeError& error, std::string_view location) {
  if (error.Number() == kFormattedError) return error.Source() + " : " + error.Description();
  String text = "Error in ";
  text.append(location).append(": Error ").append(std::to_string(error.Number()));
  text.append(" - ").append(error.Description());
  return text;
}

}  // namespace

String ErrorText(const RuntimeError& error, std::string_view class_name, std::string_view member) {
  return TextAt(error, String("ZELNOR.dll::").append(class_name).append(": ").append(member));
}

void ReportErrorAt(const RuntimeError& error, std::string_view location) noexcept {
  try {
    CurrentHost()->MessageBox(TextAt(error, location), kOkOnly, String(kComponent));
  } catch (...) {
    // As below.
  }
}

void ReportError(const RuntimeError& error, std::string_view class_name, std::string_view member,
                 std::string_view more) noexcept {
  try {
    String text = ErrorText(error, class_name, member);
    text.append(more);
    CurrentHost()->MessageBox(text, kOkOnly, String(kComponent));
  } catch (...) {
    // A host that can't show the message must not turn a handled failure into a new one.
  }
}

}  // namespace zelnor
