#include "zelnor/platform/program_folder.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"

#include <array>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <link.h>
#include <memory>
#include <mutex>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace zelnor {
namespace {

namespace fs = std::filesystem;

struct GivenFolder {
  std::mutex mutex;
  String path;
};

/// What SetProgramFolder gave. Never destroyed, since objects that outlive the library's end may ask for it.
GivenFolder& Given() {
  static auto* given = new GivenFolder;
  return *given;
}

String WithoutTrailingSeparators(String path) {
  while (path.size() > 1 && EndsInSeparator(path)) path.pop_back();
  return path;
}

String Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? String() : String(value);
}

/// The folder of the file that holds this function: the shared library, or the program that it is linked
/// into. Empty where that can't be found out.
String FolderOfThisLibrary() {
  Dl_info info{};
  link_map* map = nullptr;
  if (dladdr1(reinterpret_cast<const void*>(&FolderOfThisLibrary), &info, reinterpret_cast<void**>(&map),
              RTLD_DL_LINKMAP) == 0) {
    return {};
  }
  // The program itself bears no name there, and the name that it was called by need not be a path.
  const bool is_program = map == nullptr || *map->l_name == '\0';
  std::error_code error;
  const fs::path file = fs::canonical(is_program ? "/proc/self/exe" : map->l_name, error);
  return error ? String() : file.parent_path().string();
}

/// Found out once, since a relative name would mean another file after a change of the current folder.
const String& LibraryFolder() {
  static const auto* folder = new String(FolderOfThisLibrary());
  return *folder;
}

String PersonsHome() {
  String home = Environment("HOME");
  if (!home.empty()) return home;
  std::array<char, 16384> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
  return found == nullptr || found->pw_dir == nullptr ? String() : String(found->pw_dir);
}

String DataHome() {
  const String home = Environment("XDG_DATA_HOME");
  // A relative path there is to be ignored, so says the rule that the variable comes from.
  return home.starts_with('/') ? WithoutTrailingSeparators(home) : PersonsHome() + "/.local/share";
}

/// The folders in which installed data may lie, the likeliest first: beside the library (an installation may
/// have been moved; the library lies in lib or in lib and a folder for the machine's kind; a build folder
/// looks like an installation), where it was built to be installed, where packages put it.
std::vector<String> DataFolders() {
  std::vector<String> folders;
  if (!LibraryFolder().empty()) {
    folders.push_back(LibraryFolder() + "/../share/zelnor");
    folders.push_back(LibraryFolder() + "/../../share/zelnor");
  }
  folders.emplace_back(ZELNOR_INSTALLED_DATA);
  folders.emplace_back("/usr/share/zelnor");
  return folders;
}

/// A file of that name counts as missing here; making the folder will tell.
bool IsMissingOrEmpty(const fs::path& folder) { return !fs::is_directory(folder) || fs::is_empty(folder); }

void MakeFolderWithParents(const fs::path& folder) {
  if (folder.empty() || fs::is_directory(folder)) return;
  MakeFolderWithParents(folder.parent_path());
  MakeFolder(folder.string());
}

void CopyTree(const fs::path& from, const fs::path& to) {
  MakeFolder(to.string());
  for (const auto& entry : fs::directory_iterator(from)) {
    const fs::path target = to / entry.path().filename();
    if (entry.is_directory()) {
      CopyTree(entry.path(), target);
    } else if (entry.is_regular_file()) {
      CopyFile(entry.path().string(), target.string());
    }
  }
}

void CopyData(const fs::path& from, const fs::path& to) {
  CopyTree(from / "xsd", to / "xsd");
  for (const auto& entry : fs::directory_iterator(from)) {
    if (entry.is_regular_file() && entry.path().extension() == ".xsl") {
      CopyFile(entry.path().string(), (to / entry.path().filename()).string());
    }
  }
}

/// A folder that is half full would never be furnished again.
void CopyAllOrNothing(const fs::path& from, const fs::path& to) {
  try {
    CopyData(from, to);
  } catch (...) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(to, ignored)) fs::remove_all(entry.path(), ignored);
    throw;
  }
}

}  // namespace

String ProgramFolder() {
  {
    GivenFolder& given = Given();
    const std::lock_guard lock(given.mutex);
    if (!given.path.empty()) return given.path;
  }
  const String home = Environment("ZELNOR_HOME");
  if (!home.empty()) return WithoutTrailingSeparators(home);
  const String& beside = LibraryFolder();
  if (!beside.empty() && (PlainFileExists(beside + "/rti.config") || FolderExists(beside + "/xsd")))
    return beside;
  return DataHome() + "/zelnor";
}

void SetProgramFolder(std::string_view path) {
  GivenFolder& given = Given();
  const std::lock_guard lock(given.mutex);
  given.path = WithoutTrailingSeparators(String(path));
}

bool FurnishFolder(const String& folder, const std::vector<String>& sources) {
  try {
    const fs::path target = SystemPath(folder);
    if (!IsMissingOrEmpty(target)) return false;
    for (const String& source : sources) {
      if (FolderExists(source + "/xsd")) {
        MakeFolderWithParents(target);
        CopyAllOrNothing(source, target);
        return true;
      }
    }
    return false;
  } catch (const fs::filesystem_error&) {
    throw RuntimeError(75);
  }
}

bool FurnishProgramFolder() { return FurnishFolder(ProgramFolder(), DataFolders()); }

}  // namespace zelnor
