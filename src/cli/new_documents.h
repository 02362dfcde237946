#pragma once

#include <array>
#include <string_view>

namespace zelnor::cli {

/// A document to start from.
struct NewDocument {
  std::string_view type;  ///< such as "fps"
  std::string_view text;
};

/// The files of `samples/new`, which the build puts into the program.
extern const std::array<NewDocument, 5> kNewDocuments;

}  // namespace zelnor::cli
