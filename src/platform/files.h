#pragma once

/// @file
/// Files, folders and paths. Both "\" and "/" separate the parts of a path; texts keep the separator that
/// they came with, and a path is converted to the system's own form only when a file is touched.
///
/// All that is written here is for its owner alone: files 0600, folders 0700. A file is written whole to a
/// temporary name beside its target, beginning with ".", and renamed, so that a crash of the program leaves
/// the old file or the new one. A target that is a symbolic link stays one: what it points to is written. A
/// path that begins with two backslashes is a network path: error 76, and it is never touched.
///
/// @code
/// WriteFile(WithTrailingSeparator(folder) + "answer.xml", [&](const ByteSink& sink) {
///   for (const std::string& piece : pieces) sink(piece);
/// });
/// @endcode

#include "zelnor/platform/values.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace zelnor {

/// The largest file that ReadFile takes, in bytes: as much as the largest archive may unpack to.
inline constexpr std::int64_t kMaxFileBytes = std::int64_t{1} << 30;

/// The path in the system's own form: "/" for "\". Nothing else is changed, so that a leading "\" gives an
/// absolute path; see ResolveProgramPath. Raises error 76 for a network path, error 75 for a text that holds
/// a null character.
ZELNOR_API String SystemPath(std::string_view path);

/// Whether the character separates parts of a path.
constexpr bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// True when the text ends in "\" or "/".
ZELNOR_API bool EndsInSeparator(std::string_view path);

/// The path with "\" behind it unless it ends in a separator already; an empty text gives "\".
ZELNOR_API String WithTrailingSeparator(std::string_view path);

/// True for a path that is relative to the program's folder: one that begins with a single "\".
ZELNOR_API bool IsProgramRelative(std::string_view path);

/// A path of a setting: with a leading "\" relative to the program's folder, else as it stands.
ZELNOR_API String ResolveProgramPath(std::string_view path);

/// A plain file of that name, or a link to one, is there, and its name doesn't begin with ".". False for
/// empty text, for a network path and after any error.
ZELNOR_API bool PlainFileExists(std::string_view path);

/// The folder is there, whatever its name begins with. An empty text or a lone separator counts as there.
/// False for a network path and after any error.
ZELNOR_API bool FolderExists(std::string_view path);

/// Makes one folder; its parent must be there (error 76). Error 75 when it is there already or can't be made,
/// error 70 without the right to.
ZELNOR_API void MakeFolder(std::string_view path);

/// The bytes of a file. Error 53 when it is not there, 76 when its folder is not there, 70 without the right
/// to read, 75 when it is no plain file or can't be read, 7 when it is larger than kMaxFileBytes.
ZELNOR_API std::string ReadFile(std::string_view path);

/// Takes the next bytes of a file that is being written.
using ByteSink = std::function<void(std::string_view bytes)>;

/// Calls `write` with a sink for the bytes and puts the file in place when it returns; when it throws, the
/// target stays as it was and nothing is left beside it. Error 61 when the disk or the quota is full, 70
/// without the right to write in the folder, 76 when the folder is not there, 75 for any other trouble: a
/// target without the right to write (its owner's right, where the program runs as root), a folder, no plain
/// file. A failed sink raises its error again at the end where `write` swallowed it.
ZELNOR_API void WriteFile(std::string_view path, const std::function<void(const ByteSink&)>& write);

/// Writes the bytes whole.
ZELNOR_API void WriteFile(std::string_view path, std::string_view bytes);

/// Copies a file of any size, over the target where there is one. Errors as ReadFile and WriteFile.
ZELNOR_API void CopyFile(std::string_view from, std::string_view to);

/// Deletes a file, read-only ones too; of a symbolic link the link. Error 53 when it is not there, 70 without
/// the right to change its folder, 75 for a folder and for any other trouble.
ZELNOR_API void DeleteFile(std::string_view path);

/// The file's modification time, local, as finely as a Date can hold it (about a microsecond). Error 53 when
/// it is not there, 70 without the right to look, 75 for other trouble.
ZELNOR_API Date FileDate(std::string_view path);

/// The names of the plain files in a folder, links to such among them, that don't begin with ".", in no
/// particular order. Error 76 when the folder is not there, 70 without the right to read it, 75 for other
/// trouble.
ZELNOR_API std::vector<String> FileNames(std::string_view folder);

/// The program's folder, without a trailing separator: what SetProgramFolder gave; else the environment's
/// `ZELNOR_HOME`; else the folder of the shared library if an `rti.config` or an `xsd` folder lies there;
/// else
/// `$XDG_DATA_HOME/zelnor` (`~/.local/share/zelnor`). It need not be there.
ZELNOR_API String ProgramFolder();

/// Gives the library its program's folder. An empty text goes back to the rule of ProgramFolder.
ZELNOR_API void SetProgramFolder(std::string_view path);

/// Fills the program's folder when it is missing or empty with the installed `xsd` folder and the style
/// sheets beside it; run from a build folder, with those of the source tree. Returns whether anything was
/// copied, and False also where there is nothing to copy. After a failure what was copied is taken away
/// again. Errors as MakeFolder and CopyFile. The classes themselves never call it.
ZELNOR_API bool FurnishProgramFolder();

}  // namespace zelnor
