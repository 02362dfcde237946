#pragma once

#include "zelnor/platform/values.h"

#include <vector>

namespace zelnor {

/// Packs a text into the Base64 of a zip archive and back, and files into an archive on the disk. Texts are
/// packed and unpacked in memory: no temporary file is made. A failure comes back as the text, which then
/// begins with "Error"; nothing is raised.
///
/// @code
/// clsDZEncoder coder;
/// const String packed = coder.CompressAndEncodeData("<Employee></Employee>");
/// const String text = clsDZEncoder().UncompressAndDecodeData(packed);
/// @endcode
class ZELNOR_API clsDZEncoder {
 public:
  /// The Base64 text of a zip archive with one entry, which holds the text in UTF-8 at the highest level of
  /// compression and is named after the host's date and time, such as "05042017Z101112.xml". Stores
  /// UncompressedData, CompressedData and EncodedData. An empty text gives an empty text. After a failure
  /// "Error occurred Zipping Data - Dynazip error number = " and libzip's number, or "Error in
  /// CompressAndEncodeData - " and a description.
  String CompressAndEncodeData(String strXMLIn);

  /// The text in the one file of a zip archive, or in a gzip stream, given in Base64. Bytes that are no UTF-8
  /// are taken as Windows-1252. Stores EncodedData, DecodedData and UncompressedData. An empty text gives an
  /// empty text. After a failure (see Unzip for what is refused) "Error occurred UnZipping Data", or "Error
  /// in UncompressAndDecodeData - " and a description.
  String UncompressAndDecodeData(const String& strCompressedString);

  /// Packs files into a new zip in the folder `temp` of the program's folder, which is made when missing, and
  /// returns its path. The entries bear the files' names without their folders. Empty after a failure, a
  /// missing file among them. The caller deletes the zip.
  String CreateZipFileFromFiles(const std::vector<String>& strFilePaths);

  /// As CompressAndEncodeData, but an empty text is packed as any other. `earlier`, a result of this
  /// function, is given once more when it holds the same text: an archive bears the time at which it was
  /// made, and a document that is written again must keep its mark.
  ZELNOR_INTERNAL String PackAndEncode(String strXMLIn, const String& earlier = {});

  /// Whether archives can be made and read: always.
  bool IsDLLInstalled() const { return true; }

  /// The text that was packed, or unpacked, last.
  ///@{
  String UncompressedData() const { return uncompressed_data_; }
  void UncompressedData(String value) { uncompressed_data_ = std::move(value); }
  ///@}

  /// The archive that was packed last, a character of Windows-1252 for each byte.
  ///@{
  String CompressedData() const { return compressed_data_; }
  void CompressedData(String value) { compressed_data_ = std::move(value); }
  ///@}

  /// The Base64 text that was made, or given, last.
  ///@{
  String EncodedData() const { return encoded_data_; }
  void EncodedData(String value) { encoded_data_ = std::move(value); }
  ///@}

  /// The archive that the last given Base64 text stood for, a character of Windows-1252 for each byte.
  ///@{
  String DecodedData() const { return decoded_data_; }
  void DecodedData(String value) { decoded_data_ = std::move(value); }
  ///@}

 private:
  String uncompressed_data_;
  String compressed_data_;
  String encoded_data_;
  String decoded_data_;
};

}  // namespace zelnor
