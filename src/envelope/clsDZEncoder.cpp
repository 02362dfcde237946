#include "zelnor/envelope/clsDZEncoder.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/envelope/clsBase64.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/zip.h"

#include <utility>

namespace zelnor {
namespace {

// The date and time as a name: two archives of one second share it.
String TemporaryName(Date now, std::string_view extension) {
  String name = Replace(Replace(ToText(now), "/", ""), ":", "");
  name = Replace(name, " ", "Z");
  return name.append(extension);
}

// What is no UTF-8 comes from a program that wrote in its own code page.
String TextOf(std::string bytes) { return IsUtf8(bytes) ? std::move(bytes) : FromAnsi(bytes); }

}  // namespace

String clsDZEncoder::CompressAndEncodeData(String strXMLIn) {
  if (!strXMLIn.empty()) return PackAndEncode(std::move(strXMLIn));
  uncompressed_data_.clear();
  return {};
}

String clsDZEncoder::PackAndEncode(String strXMLIn, const String& earlier) {
  try {
    uncompressed_data_ = std::move(strXMLIn);
    std::string packed = clsBase64().DecodeBytes(earlier);
    if (packed.empty() || !UnzipsTo(packed, uncompressed_data_)) {
      const Date now = CurrentHost()->Now();
      packed = Zip(TemporaryName(now, ".xml"), uncompressed_data_, now);
    }
    compressed_data_ = FromAnsi(packed);
    encoded_data_ = clsBase64().EncodeBytes(packed);
    return encoded_data_;
  } catch (const ZipError& error) {
    return "Error occurred Zipping Data - Dynazip error number = " + std::to_string(error.Number());
  } catch (...) {
    return "Error in CompressAndEncodeData - " + CurrentError().Description();
  }
}

String clsDZEncoder::UncompressAndDecodeData(const String& strCompressedString) {
  try {
    encoded_data_ = strCompressedString;
    decoded_data_.clear();
    uncompressed_data_.clear();
    if (encoded_data_.empty()) return {};
    const std::string packed = clsBase64().DecodeBytes(encoded_data_);
    decoded_data_ = FromAnsi(packed);
    uncompressed_data_ = TextOf(Unzip(packed));
    return uncompressed_data_;
  } catch (const ZipError&) {
    return "Error occurred UnZipping Data";
  } catch (...) {
    return "Error in UncompressAndDecodeData - " + CurrentError().Description();
  }
}

String clsDZEncoder::CreateZipFileFromFiles(const std::vector<String>& strFilePaths) {
  try {
    const Date now = CurrentHost()->Now();
    String path =
        CreateFolder(WithTrailingSeparator(ProgramFolder()) + "temp\\" + TemporaryName(now, ".zip"));
    ZipFiles(strFilePaths, path, now);
    return path;
  } catch (...) {
    return {};
  }
}

}  // namespace zelnor
