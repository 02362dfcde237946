#pragma once

/// @file
/// The files of cases in tests/rules/.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "validation/rule_scene.h"

namespace zelnor::test {

inline const std::filesystem::path kRules = std::filesystem::path(ZELNOR_TEST_DATA) / "rules";

/// The codes of which some rows need no case.
inline const std::filesystem::path kExempt = kRules / "exempt.json";

inline String Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("can't read " + path.string());
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

/// A file of cases.
struct RuleFile {
  String name;  ///< without its ending
  Json content;
};

/// All of them, by their names.
inline std::vector<RuleFile> RuleFiles() {
  std::vector<std::filesystem::path> paths;
  for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(kRules)) {
    if (entry.path().extension() == ".json" && entry.path() != kExempt) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<RuleFile> files;
  for (const std::filesystem::path& path : paths) {
    try {
      files.push_back({path.stem().string(), Json::parse(Content(path), nullptr, true, true)});
    } catch (const std::exception& error) {
      throw std::runtime_error(path.string() + ": " + error.what());
    }
  }
  return files;
}

}  // namespace zelnor::test
