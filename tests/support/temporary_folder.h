#pragma once

/// @file
/// A folder for one test, gone with all that is in it at the test's end.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace zelnor::test {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zelnor-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = std::filesystem::canonical(pattern);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// The folder's absolute path, without a trailing separator.
  std::string Path() const { return path_.string(); }

  /// The path of something in the folder.
  std::string At(const std::string& name) const { return (path_ / name).string(); }

  /// Makes a file, and the folders above it, by other means than those under test. Returns its path.
  std::string Put(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return At(name);
  }

  /// The bytes of a file, by other means than those under test; empty when it is not there.
  std::string Get(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  /// How many entries the folder has, hidden ones too.
  std::size_t Count() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace zelnor::test
