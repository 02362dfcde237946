#include "floors/include_check.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace zelnor::floors {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "zelnor/";

/// A floor, from the ground up, and what it is called.
enum class Floor {
  kPlatform,
  kCommon,
  kEnvelopeLeaves,
  kDocuments,
  kEnvelopeTop,
  kValidation,
  kGateway,
  kController,
  kWholeLibrary,  ///< a header that gathers the library's others
  kStandin,       ///< on platform and common alone; for the program
  kDesktop,       ///< beside controller
  kReport,        ///< beside controller
  kCli,
};

struct Place {
  std::string_view beginning;  ///< of the file's path in the tree
  Floor floor;
};

constexpr std::array kPlaces = {
    Place{"platform/", Floor::kPlatform},
    Place{"common/", Floor::kCommon},
    Place{"envelope/clsGTM", Floor::kEnvelopeLeaves},
    Place{"envelope/clsKey", Floor::kEnvelopeLeaves},
    Place{"envelope/clsIRMark", Floor::kEnvelopeLeaves},
    Place{"envelope/clsManifest", Floor::kEnvelopeLeaves},
    Place{"envelope/clsBase64", Floor::kEnvelopeLeaves},
    Place{"envelope/clsSHA256", Floor::kEnvelopeLeaves},
    Place{"envelope/clsDZEncoder", Floor::kEnvelopeLeaves},
    Place{"envelope/word_blocks", Floor::kEnvelopeLeaves},
    Place{"documents/", Floor::kDocuments},
    Place{"envelope/clsGovTalkMessage", Floor::kEnvelopeTop},
    Place{"envelope/clsSHA1", Floor::kEnvelopeTop},
    Place{"validation/", Floor::kValidation},
    Place{"gateway/", Floor::kGateway},
    Place{"controller/", Floor::kController},
    Place{"standin/", Floor::kStandin},
    Place{"desktop/", Floor::kDesktop},
    Place{"report/", Floor::kReport},
    Place{"cli/", Floor::kCli},
};

std::optional<Floor> FloorOf(std::string_view file) {
  if (file.find('/') == std::string_view::npos) return Floor::kWholeLibrary;
  for (const Place& place : kPlaces) {
    if (file.starts_with(place.beginning)) return place.floor;
  }
  return std::nullopt;
}

/// Whether a file of one floor may include a file of another.
bool StandsOn(Floor upper, Floor lower) {
  if (upper == lower) return true;
  switch (upper) {
    case Floor::kCli:
      return true;
    case Floor::kStandin:
      return lower == Floor::kPlatform || lower == Floor::kCommon;
    case Floor::kDesktop:
    case Floor::kReport:
      return lower < Floor::kController;
    default:
      return lower < upper;
  }
}

/// The files of the tree, relative to its root and in order.
std::vector<std::string> Files(const fs::path& root) {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const fs::path extension = entry.path().extension();
    if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp")) {
      files.push_back(entry.path().lexically_relative(root).generic_string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string_view SkipBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// What an #include line has between its quotes; nothing for any other line.
std::optional<std::string> QuotedInclude(std::string_view line) {
  line = SkipBlanks(line);
  if (!line.starts_with('#')) return std::nullopt;
  line = SkipBlanks(line.substr(1));
  if (!line.starts_with("include")) return std::nullopt;
  line = SkipBlanks(line.substr(std::string_view("include").size()));
  // The project's own files in angle brackets are its own all the same.
  const bool bracketed = line.starts_with('<') && line.substr(1).starts_with(kPrefix);
  if (!bracketed && !line.starts_with('"')) return std::nullopt;
  line.remove_prefix(1);
  return std::string(line.substr(0, line.find_first_of("\">")));
}

/// The file of the tree that an #include line names, whether or not it is there.
std::optional<std::string> TargetInTree(const Include& include) {
  if (!include.target.starts_with(kPrefix)) return std::nullopt;
  return include.target.substr(kPrefix.size());
}

/// Walks the files along their includes and notes each ring that it comes upon.
class RingFinder {
 public:
  explicit RingFinder(const fs::path& root) {
    for (const Include& include : ReadIncludes(root)) {
      if (const auto target = TargetInTree(include)) targets_[include.file].push_back(*target);
    }
    for (const auto& [file, targets] : targets_) Walk(file);
  }

  const std::vector<std::string>& Found() const { return found_; }

 private:
  void Walk(const std::string& file) {
    const auto open = std::find(way_.begin(), way_.end(), file);
    if (open != way_.end()) {
      std::string ring;
      for (auto step = open; step != way_.end(); ++step) ring += *step + " -> ";
      found_.push_back(ring + file);
      return;
    }
    if (!seen_.insert(file).second) return;
    way_.push_back(file);
    const auto targets = targets_.find(file);
    if (targets != targets_.end()) {
      for (const std::string& target : targets->second) Walk(target);
    }
    way_.pop_back();
  }

  std::map<std::string, std::vector<std::string>> targets_;
  std::set<std::string> seen_;
  std::vector<std::string> way_;
  std::vector<std::string> found_;
};

}  // namespace

std::string Include::Text() const { return file + ":" + std::to_string(line) + ": " + target; }

std::vector<Include> ReadIncludes(const fs::path& root) {
  std::vector<Include> includes;
  for (const std::string& file : Files(root)) {
    std::ifstream stream(root / file);
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
      if (const auto target = QuotedInclude(line)) includes.push_back({file, number, *target});
    }
  }
  return includes;
}

std::vector<std::string> FilesWithoutFloor(const fs::path& root) {
  std::vector<std::string> files = Files(root);
  std::erase_if(files, [](const std::string& file) { return FloorOf(file).has_value(); });
  return files;
}

std::vector<std::string> IncludesOutsideTheTree(const fs::path& root) {
  std::vector<std::string> lines;
  for (const Include& include : ReadIncludes(root)) {
    const auto target = TargetInTree(include);
    if (!target || !fs::is_regular_file(root / *target)) lines.push_back(include.Text());
  }
  return lines;
}

std::vector<std::string> IncludesNotDownward(const fs::path& root) {
  std::vector<std::string> lines;
  for (const Include& include : ReadIncludes(root)) {
    const auto target = TargetInTree(include);
    if (!target) continue;
    const auto upper = FloorOf(include.file);
    const auto lower = FloorOf(*target);
    if (upper && lower && !StandsOn(*upper, *lower)) lines.push_back(include.Text());
  }
  return lines;
}

std::vector<std::string> Rings(const fs::path& root) { return RingFinder(root).Found(); }

}  // namespace zelnor::floors
