#pragma once

/// @file
/// Zip archives, packed and unpacked in memory. A failure is a ZipError with libzip's own number.
///
/// @code
/// const std::string packed = Zip("pay.xml", text, CurrentHost()->Now());
/// const std::string text = Unzip(packed);
/// @endcode

#include "zelnor/platform/values.h"

#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace zelnor {

/// How much an archive may unpack to.
inline constexpr std::size_t kMaxUnpackedBytes = std::size_t{1} << 30;

/// Up to this size an archive may unpack to any multiple of its own.
inline constexpr std::size_t kFreelyUnpackedBytes = std::size_t{64} << 20;

/// Beyond that size an archive may unpack to this multiple of its own at most.
inline constexpr std::size_t kMaxUnpackedRatio = 200;

/// A failed operation on an archive. The text is one plain sentence.
class ZELNOR_API ZipError : public std::runtime_error {
 public:
  ZipError(int number, const String& text) : std::runtime_error(text), number_(number) {}

  /// libzip's number of the failure, such as 19 for bytes that are no archive.
  int Number() const { return number_; }

 private:
  int number_;
};

/// An archive with one entry, at the highest level of compression. Refuses (number 18) bytes that Unzip would
/// refuse to give back.
///
/// @param name the entry's bare file name
/// @param written the date that the entry bears; a year that archives can't hold becomes the nearest one
ZELNOR_API std::string Zip(std::string_view name, std::string_view bytes, Date written);

/// The bytes of the one file in a zip archive, folders aside, or of a gzip stream of one or more members.
/// Which of the two it is shows in the bytes. Raises ZipError for anything else: damaged, cut short or
/// encrypted, no file or more than one (number 18), or one that unpacks to more than kMaxUnpackedBytes, or to
/// more than kFreelyUnpackedBytes and kMaxUnpackedRatio times its own size (number 18).
ZELNOR_API std::string Unzip(std::string_view packed);

/// Whether Unzip would give exactly these bytes, found out without holding them a second time. False for what
/// it refuses.
ZELNOR_API bool UnzipsTo(std::string_view packed, std::string_view bytes);

/// Packs files into a new archive, over the file of that path where there is one. Entries bear bare file
/// names, so that two files of the same name are refused (number 10). A file that is missing raises error 53;
/// writing the archive raises errors as WriteFile.
ZELNOR_API void ZipFiles(const std::vector<String>& files, std::string_view archive, Date written);

}  // namespace zelnor
