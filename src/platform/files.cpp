#include "zelnor/platform/files.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/local_time.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace zelnor {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;
constexpr int kMaxLinks = 40;
constexpr int kMaxNameTries = 100;

/// An open file, closed at the latest when it goes out of scope.
class OpenedFile {
 public:
  explicit OpenedFile(int descriptor) : descriptor_(descriptor) {}
  OpenedFile(const OpenedFile&) = delete;
  OpenedFile& operator=(const OpenedFile&) = delete;
  ~OpenedFile() { Close(); }

  int Descriptor() const { return descriptor_; }

  /// Whether closing found nothing wrong; some file systems tell of a full disk only now.
  bool Close() {
    if (descriptor_ < 0) return true;
    return close(std::exchange(descriptor_, -1)) == 0;
  }

 private:
  int descriptor_;
};

/// The part behind the last "/" of a path in the system's own form.
std::string NamePart(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// The part up to and with the last "/"; empty when there is none.
std::string FolderPart(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// What is there under a path, links followed.
bool LookUp(const std::string& path, struct stat& found) { return stat(path.c_str(), &found) == 0; }

bool FolderIsThere(const std::string& folder) {
  struct stat found {};
  return LookUp(folder.empty() ? "." : folder, found) && S_ISDIR(found.st_mode);
}

bool IsRightsError(int error) { return error == EACCES || error == EPERM; }

/// EFBIG is the answer where the process may not write more, which is a full disk to whoever hears of it.
bool IsFullError(int error) { return error == ENOSPC || error == EDQUOT || error == EFBIG; }

[[noreturn]] void ThrowForReading(int error, const std::string& path) {
  if (error == ENOENT || error == ENOTDIR) throw RuntimeError(FolderIsThere(FolderPart(path)) ? 53 : 76);
  throw RuntimeError(IsRightsError(error) ? 70 : 75);
}

[[noreturn]] void ThrowForWriting(int error) {
  if (IsFullError(error)) throw RuntimeError(61);
  if (error == ENOENT || error == ENOTDIR) throw RuntimeError(76);
  throw RuntimeError(IsRightsError(error) ? 70 : 75);
}

/// Opens a plain file for reading. Anything else, a pipe for one, could keep the reader waiting for ever.
int OpenPlainFile(const std::string& path, struct stat& found) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) ThrowForReading(errno, path);
  if (fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode)) {
    close(descriptor);
    throw RuntimeError(75);
  }
  return descriptor;
}

/// Reads the next piece into the buffer; 0 at the end of the file.
std::size_t ReadPiece(const OpenedFile& file, char* buffer, std::size_t size) {
  while (true) {
    const ssize_t count = read(file.Descriptor(), buffer, size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throw RuntimeError(75);
  }
}

/// Where the bytes for a path really go: the path itself, or what the links under it point to in the end.
std::string BehindLinks(std::string path) {
  for (int links = 0; links < kMaxLinks; ++links) {
    std::array<char, 4096> target{};
    const ssize_t length = readlink(path.c_str(), target.data(), target.size());
    if (length < 0) return path;
    if (static_cast<std::size_t>(length) == target.size()) break;
    const std::string pointed(target.data(), static_cast<std::size_t>(length));
    path = pointed.starts_with('/') ? pointed : FolderPart(path) + pointed;
  }
  throw RuntimeError(75);
}

/// Root may write everywhere, and a file that somebody made read-only is meant to stay as it is all the same.
bool MayWrite(const std::string& path, const struct stat& found) {
  if (geteuid() == 0) return (found.st_mode & S_IWUSR) != 0;
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

void RefuseUnwritable(const std::string& path) {
  struct stat found {};
  if (!LookUp(path, found)) return;
  if (!S_ISREG(found.st_mode) || !MayWrite(path, found)) throw RuntimeError(75);
}

std::string TemporaryName() {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  std::random_device random;
  std::string name = ".zelnor-";
  for (int i = 0; i < 16; ++i) name += kDigits[random() % kDigits.size()];
  return name;
}

/// The file under its temporary name, until it is put in place or taken away again.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& folder) : file_(Create(folder, path_)) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!in_place_) unlink(path_.c_str());
  }

  /// Appends bytes. A failure is kept, since `write` of the caller may run under code that swallows
  /// exceptions.
  void Append(std::string_view bytes) {
    RaiseFailure();
    if (buffer_.size() + bytes.size() > kPieceBytes) Flush();
    if (bytes.size() < kPieceBytes) {
      buffer_.append(bytes);
    } else {
      WriteOut(bytes);
    }
  }

  void PutInPlace(const std::string& target) {
    RaiseFailure();
    Flush();
    StampExactly();
    if (!file_.Close()) ThrowForWriting(errno);
    if (rename(path_.c_str(), target.c_str()) != 0) ThrowForWriting(errno);
    in_place_ = true;
  }

 private:
  static int Create(const std::string& folder, std::string& path) {
    for (int tries = 0; tries < kMaxNameTries; ++tries) {
      path = folder + TemporaryName();
      const int descriptor =
          open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kFileMode);
      if (descriptor >= 0) return descriptor;
      if (errno != EEXIST) ThrowForWriting(errno);
    }
    throw RuntimeError(75);
  }

  // By itself the system stamps a file with its last timer tick, so that two writes within some milliseconds
  // would look like one to who compares times. Where the time can't be set that tick has to do.
  void StampExactly() const {
    timespec times[2] = {{0, UTIME_OMIT}, {}};
    if (clock_gettime(CLOCK_REALTIME, &times[1]) == 0) futimens(file_.Descriptor(), times);
  }

  void RaiseFailure() const {
    if (error_ != 0) ThrowForWriting(error_);
  }

  void Flush() {
    WriteOut(buffer_);
    buffer_.clear();
  }

  void WriteOut(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t count = write(file_.Descriptor(), bytes.data(), bytes.size());
      if (count >= 0) {
        bytes.remove_prefix(static_cast<std::size_t>(count));
      } else if (errno != EINTR) {
        error_ = errno;
        ThrowForWriting(error_);
      }
    }
  }

  std::string path_;
  OpenedFile file_;
  std::string buffer_;
  int error_ = 0;
  bool in_place_ = false;
};

bool IsNetworkPath(std::string_view path) { return path.starts_with("\\\\"); }

}  // namespace

String SystemPath(std::string_view path) {
  if (IsNetworkPath(path)) throw RuntimeError(76);
  if (path.find('\0') != std::string_view::npos) throw RuntimeError(75);
  String result(path);
  std::replace(result.begin(), result.end(), '\\', '/');
  return result;
}

bool EndsInSeparator(std::string_view path) { return !path.empty() && IsSeparator(path.back()); }

String WithTrailingSeparator(std::string_view path) {
  String result(path);
  if (!EndsInSeparator(path)) result += '\\';
  return result;
}

bool IsProgramRelative(std::string_view path) { return path.starts_with('\\') && !IsNetworkPath(path); }

String ResolveProgramPath(std::string_view path) {
  return IsProgramRelative(path) ? ProgramFolder().append(path) : String(path);
}

bool PlainFileExists(std::string_view path) {
  try {
    const String own = SystemPath(path);
    struct stat found {};
    return !NamePart(own).starts_with('.') && LookUp(own, found) && S_ISREG(found.st_mode);
  } catch (const RuntimeError&) {
    return false;
  }
}

bool FolderExists(std::string_view path) {
  if (path.empty() || (path.size() == 1 && IsSeparator(path.front()))) return true;
  try {
    struct stat found {};
    return LookUp(SystemPath(path), found) && S_ISDIR(found.st_mode);
  } catch (const RuntimeError&) {
    return false;
  }
}

void MakeFolder(std::string_view path) {
  if (mkdir(SystemPath(path).c_str(), kFolderMode) == 0) return;
  if (errno == ENOENT || errno == ENOTDIR) throw RuntimeError(76);
  throw RuntimeError(IsRightsError(errno) ? 70 : 75);
}

std::string ReadFile(std::string_view path) {
  struct stat found {};
  const OpenedFile file(OpenPlainFile(SystemPath(path), found));
  if (found.st_size > kMaxFileBytes) throw RuntimeError(7);
  std::string bytes;
  // One more than the size, so that the end of a file that doesn't grow meanwhile is seen without another
  // piece.
  std::size_t room = std::max(static_cast<std::size_t>(found.st_size) + 1, std::size_t{4096});
  while (true) {
    const std::size_t filled = bytes.size();
    bytes.resize(filled + room);
    const std::size_t count = ReadPiece(file, bytes.data() + filled, room);
    bytes.resize(filled + count);
    if (count == 0) return bytes;
    if (static_cast<std::int64_t>(bytes.size()) > kMaxFileBytes) throw RuntimeError(7);
    room = std::max(room - count, kPieceBytes);
  }
}

void WriteFile(std::string_view path, const std::function<void(const ByteSink&)>& write) {
  if (path.empty()) throw RuntimeError(75);
  const std::string own = SystemPath(path);
  RefuseUnwritable(own);
  const std::string target = BehindLinks(own);
  TemporaryFile file(FolderPart(target));
  write([&file](std::string_view bytes) { file.Append(bytes); });
  file.PutInPlace(target);
}

void WriteFile(std::string_view path, std::string_view bytes) {
  WriteFile(path, [bytes](const ByteSink& sink) { sink(bytes); });
}

void CopyFile(std::string_view from, std::string_view to) {
  struct stat found {};
  const OpenedFile source(OpenPlainFile(SystemPath(from), found));
  WriteFile(to, [&source](const ByteSink& sink) {
    std::string piece(kPieceBytes, '\0');
    while (const std::size_t count = ReadPiece(source, piece.data(), piece.size())) {
      sink(std::string_view(piece).substr(0, count));
    }
  });
}

void DeleteFile(std::string_view path) {
  if (unlink(SystemPath(path).c_str()) == 0) return;
  if (errno == ENOENT || errno == ENOTDIR) ThrowFileNotFound();
  if (errno == EISDIR) throw RuntimeError(75);
  throw RuntimeError(IsRightsError(errno) ? 70 : 75);
}

Date FileDate(std::string_view path) {
  struct stat found {};
  if (LookUp(SystemPath(path), found)) return LocalDate(found.st_mtim);
  if (errno == ENOENT || errno == ENOTDIR) ThrowFileNotFound();
  throw RuntimeError(IsRightsError(errno) ? 70 : 75);
}

std::vector<String> FileNames(std::string_view folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(SystemPath(folder).c_str()), &closedir);
  if (!opened) {
    if (errno == ENOENT || errno == ENOTDIR) throw RuntimeError(76);
    throw RuntimeError(IsRightsError(errno) ? 70 : 75);
  }
  std::vector<String> names;
  while (true) {
    errno = 0;
    const dirent* entry = readdir(opened.get());
    if (entry == nullptr) {
      if (errno != 0) throw RuntimeError(75);
      return names;
    }
    const std::string_view name = static_cast<const char*>(entry->d_name);
    struct stat found {};
    if (!name.starts_with('.') && fstatat(dirfd(opened.get()), entry->d_name, &found, 0) == 0 &&
        S_ISREG(found.st_mode)) {
      names.emplace_back(name);
    }
  }
}

}  // namespace zelnor
