#pragma once

/// @file
/// Reads the #include lines of a source tree and tells which of them break the rules of the house: a floor
/// stands on the floors below it, and on nothing else.

#include <filesystem>
#include <string>
#include <vector>

namespace zelnor::floors {

/// One #include line of the project's own files, such as `#include "zelnor/common/record.h"`.
struct Include {
  std::string file;    ///< relative to the tree's root: "documents/clsStarter.h"
  int line = 0;        ///< counted from 1
  std::string target;  ///< as it is written between the quotes

  /// "documents/clsStarter.h:7: zelnor/common/record.h"
  std::string Text() const;
};

/// All #include lines with quotes in the tree's *.h and *.cpp files, by file and line.
std::vector<Include> ReadIncludes(const std::filesystem::path& root);

/// The files of the tree, relative to its root, that belong to no floor.
std::vector<std::string> FilesWithoutFloor(const std::filesystem::path& root);

/// The lines that don't name a file of the tree from its root ("zelnor/...").
std::vector<std::string> IncludesOutsideTheTree(const std::filesystem::path& root);

/// The lines that include a file of a floor above, or of one that the including floor doesn't stand on.
std::vector<std::string> IncludesNotDownward(const std::filesystem::path& root);

/// The rings of files that include each other, directly or through others; each as "a.h -> b.h -> a.h".
std::vector<std::string> Rings(const std::filesystem::path& root);

}  // namespace zelnor::floors
