#include "zelnor/platform/zip.h"

#include "zelnor/platform/failure.h"
#include "zelnor/platform/files.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <zlib.h>

#include <zip.h>

namespace zelnor {
namespace {

constexpr zip_uint32_t kHighestLevel = 9;
constexpr std::size_t kPiece = std::size_t{1} << 16;

[[noreturn]] void Throw(zip_error_t* error) {
  const int number = zip_error_code_zip(error);
  if (number == ZIP_ER_MEMORY) throw std::bad_alloc();
  throw ZipError(number, String(zip_error_strerror(error)) + ".");
}

[[noreturn]] void Refuse(int number, const char* text) { throw ZipError(number, text); }

struct FreeSource {
  void operator()(zip_source_t* source) const { zip_source_free(source); }
};
struct DiscardArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseEntry {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Source = std::unique_ptr<zip_source_t, FreeSource>;
using Archive = std::unique_ptr<zip_t, DiscardArchive>;
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

// libzip's record of what went wrong where there is no archive yet to ask.
class OpenError {
 public:
  OpenError() { zip_error_init(&error_); }
  OpenError(const OpenError&) = delete;
  OpenError& operator=(const OpenError&) = delete;
  ~OpenError() { zip_error_fini(&error_); }
  zip_error_t* Get() { return &error_; }

 private:
  zip_error_t error_;
};

// A source in memory; without bytes one to write to. The bytes must outlive it.
Source InMemory(std::string_view bytes) {
  OpenError error;
  Source source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, error.Get()));
  if (!source) Throw(error.Get());
  return source;
}

// Opens the archive in a source, which lives on behind it.
Archive Open(const Source& source, int flags) {
  OpenError error;
  zip_source_keep(source.get());
  Archive archive(zip_open_from_source(source.get(), flags, error.Get()));
  if (!archive) {
    zip_source_free(source.get());
    Throw(error.Get());
  }
  return archive;
}

std::size_t MostUnpacked(std::size_t packed) {
  return std::min(kMaxUnpackedBytes, std::max(kFreelyUnpackedBytes, packed * kMaxUnpackedRatio));
}

// Takes what comes out of an archive.
struct Sink {
  // The size that the archive tells, before anything comes; good for a guess.
  std::function<void(std::size_t size)> expect;
  std::function<void(std::string_view piece)> take;
};

// Hands pieces on until they are more than is allowed.
class Bounded {
 public:
  Bounded(const Sink& sink, std::size_t packed) : sink_(sink), left_(MostUnpacked(packed)) {}

  std::size_t Left() const { return left_; }

  void Take(std::string_view piece) {
    if (piece.size() > left_) Refuse(ZIP_ER_INVAL, "The archive unpacks to more than is allowed.");
    left_ -= piece.size();
    sink_.take(piece);
  }

 private:
  const Sink& sink_;
  std::size_t left_;
};

// ---- packing

// The date in the archive's own form, which begins with 1980 and ends with 2107.
void SetDate(zip_t* archive, zip_uint64_t index, Date written) {
  const int year = std::clamp(written.Year(), 1980, 2107);
  const int day = (year - 1980) << 9 | written.Month() << 5 | written.Day();
  const int time = written.Hour() << 11 | written.Minute() << 5 | written.Second() / 2;
  if (zip_file_set_dostime(archive, index, static_cast<zip_uint16_t>(time), static_cast<zip_uint16_t>(day),
                           0) != 0) {
    Throw(zip_get_error(archive));
  }
}

// Adds an entry; the archive takes the source over.
void Add(const Archive& archive, std::string_view name, Source source, Date written) {
  const zip_int64_t index = zip_file_add(archive.get(), String(name).c_str(), source.get(), ZIP_FL_ENC_GUESS);
  if (index < 0) Throw(zip_get_error(archive.get()));
  (void)source.release();
  const auto entry = static_cast<zip_uint64_t>(index);
  if (zip_set_file_compression(archive.get(), entry, ZIP_CM_DEFLATE, kHighestLevel) != 0) {
    Throw(zip_get_error(archive.get()));
  }
  SetDate(archive.get(), entry, written);
}

// Packs what was added, which happens only now.
void Close(Archive& archive) {
  if (zip_close(archive.get()) != 0) Throw(zip_get_error(archive.get()));
  (void)archive.release();
}

std::string BytesOf(const Source& source) {
  zip_stat_t about;
  zip_stat_init(&about);
  if (zip_source_stat(source.get(), &about) != 0 || zip_source_open(source.get()) != 0) {
    Throw(zip_source_error(source.get()));
  }
  std::string bytes(about.size, '\0');
  const zip_int64_t count = zip_source_read(source.get(), bytes.data(), bytes.size());
  zip_source_close(source.get());
  if (count < 0 || static_cast<std::size_t>(count) != bytes.size()) Throw(zip_source_error(source.get()));
  return bytes;
}

// ---- unpacking

bool IsFolder(zip_t* archive, zip_uint64_t index) {
  const char* name = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
  return name != nullptr && String(name).ends_with('/');
}

// The position of the one file, folders aside.
zip_uint64_t OnlyFile(zip_t* archive) {
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0));
  zip_uint64_t found = count;
  for (zip_uint64_t i = 0; i < count; ++i) {
    if (IsFolder(archive, i)) continue;
    if (found != count) Refuse(ZIP_ER_INVAL, "The archive holds more than one file.");
    found = i;
  }
  if (found == count) Refuse(ZIP_ER_INVAL, "The archive holds no file.");
  return found;
}

void FromZip(std::string_view packed, const Sink& sink) {
  const Source source = InMemory(packed);
  const Archive archive = Open(source, ZIP_RDONLY);
  const zip_uint64_t index = OnlyFile(archive.get());
  Bounded bounded(sink, packed.size());
  zip_stat_t about;
  zip_stat_init(&about);
  if (zip_stat_index(archive.get(), index, 0, &about) != 0) Throw(zip_get_error(archive.get()));
  if ((about.valid & ZIP_STAT_SIZE) != 0) {
    if (about.size > bounded.Left()) Refuse(ZIP_ER_INVAL, "The archive unpacks to more than is allowed.");
    sink.expect(about.size);
  }
  const Entry entry(zip_fopen_index(archive.get(), index, 0));
  if (!entry) Throw(zip_get_error(archive.get()));
  std::array<char, kPiece> piece;
  zip_int64_t count = 0;
  while ((count = zip_fread(entry.get(), piece.data(), piece.size())) > 0) {
    bounded.Take({piece.data(), static_cast<std::size_t>(count)});
  }
  if (count < 0) Throw(zip_file_get_error(entry.get()));
}

bool IsGzip(std::string_view packed) { return packed.starts_with("\x1F\x8B"); }

// zlib's state of one unpacking.
class Inflater {
 public:
  explicit Inflater(std::string_view packed) {
    constexpr int kGzipWindow = 15 + 16;
    if (inflateInit2(&state_, kGzipWindow) != Z_OK) throw std::bad_alloc();
    state_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    state_.avail_in = static_cast<uInt>(packed.size());
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() { inflateEnd(&state_); }

  // The next unpacked bytes; empty at the end of the last member.
  std::string_view Next() {
    while (true) {
      if (ended_ && state_.avail_in == 0) return {};
      if (ended_) inflateReset(&state_);
      state_.next_out = reinterpret_cast<Bytef*>(piece_.data());
      state_.avail_out = static_cast<uInt>(piece_.size());
      const int status = inflate(&state_, Z_NO_FLUSH);
      if (status == Z_MEM_ERROR) throw std::bad_alloc();
      if (status == Z_BUF_ERROR) Refuse(ZIP_ER_EOF, "The archive is cut short.");
      if (status != Z_OK && status != Z_STREAM_END) Refuse(ZIP_ER_ZLIB, "The archive is damaged.");
      ended_ = status == Z_STREAM_END;
      const std::size_t count = piece_.size() - state_.avail_out;
      if (count > 0) return {piece_.data(), count};
    }
  }

 private:
  z_stream state_{};
  bool ended_ = false;
  std::array<char, kPiece> piece_;
};

// The size that the last member's end names; good for a guess.
std::size_t SizeAtEnd(std::string_view packed) {
  std::size_t size = 0;
  for (int i = 1; i <= 4; ++i) {
    size = size << 8 | static_cast<unsigned char>(packed[packed.size() - static_cast<std::size_t>(i)]);
  }
  return size;
}

void FromGzip(std::string_view packed, const Sink& sink) {
  constexpr std::size_t kShortest = 18;
  if (packed.size() < kShortest) Refuse(ZIP_ER_EOF, "The archive is cut short.");
  if (packed.size() > kMaxUnpackedBytes) Refuse(ZIP_ER_INVAL, "The archive is larger than is allowed.");
  Bounded bounded(sink, packed.size());
  sink.expect(std::min(SizeAtEnd(packed), bounded.Left()));
  Inflater inflater(packed);
  for (std::string_view piece = inflater.Next(); !piece.empty(); piece = inflater.Next()) bounded.Take(piece);
}

void From(std::string_view packed, const Sink& sink) {
  if (IsGzip(packed)) {
    FromGzip(packed, sink);
  } else {
    FromZip(packed, sink);
  }
}

}  // namespace

std::string Zip(std::string_view name, std::string_view bytes, Date written) {
  if (bytes.size() > kMaxUnpackedBytes) Refuse(ZIP_ER_INVAL, "The bytes are too many to be unpacked again.");
  const Source target = InMemory({});
  Archive archive = Open(target, ZIP_CREATE | ZIP_TRUNCATE);
  Add(archive, name, InMemory(bytes), written);
  Close(archive);
  std::string packed = BytesOf(target);
  if (bytes.size() > MostUnpacked(packed.size())) {
    Refuse(ZIP_ER_INVAL, "The bytes pack so well that they would not be unpacked again.");
  }
  return packed;
}

std::string Unzip(std::string_view packed) {
  std::string unpacked;
  From(packed, {.expect = [&](std::size_t size) { unpacked.reserve(size); },
                .take = [&](std::string_view piece) { unpacked.append(piece); }});
  return unpacked;
}

bool UnzipsTo(std::string_view packed, std::string_view bytes) {
  bool same = true;
  try {
    From(packed, {.expect = [](std::size_t) {},
                  .take =
                      [&](std::string_view piece) {
                        same = same && bytes.starts_with(piece);
                        if (same) bytes.remove_prefix(piece.size());
                      }});
  } catch (const ZipError&) {
    return false;
  }
  return same && bytes.empty();
}

void ZipFiles(const std::vector<String>& files, std::string_view archive, Date written) {
  const Source target = InMemory({});
  Archive packing = Open(target, ZIP_CREATE | ZIP_TRUNCATE);
  for (const String& file : files) {
    if (!PlainFileExists(file)) ThrowFileNotFound();
    OpenError error;
    Source source(zip_source_file_create(SystemPath(file).c_str(), 0, -1, error.Get()));
    if (!source) Throw(error.Get());
    const std::size_t last = file.find_last_of("\\/");
    Add(packing, last == String::npos ? file : file.substr(last + 1), std::move(source), written);
  }
  Close(packing);
  WriteFile(archive, BytesOf(target));
}

}  // namespace zelnor
