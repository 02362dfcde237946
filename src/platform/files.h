#pragma once

/// @file
/// Files, folders and paths. Both "\" and "/" separate the parts of a path; texts keep the separator that
/// they came with, and a path is converted to the system's own form only when a file is touched.
///
/// All that is written here is for its owner alone: files 0600, folders 0700. A file is written whole to a
/// temporary name beside its target and renamed, so that a crash leaves the old file or the new one. A path
/// that begins with two backslashes is a network path: error 76, and it is never touched.

#include "zelnor/platform/values.h"

#include <functional>
#include <string_view>
#include <vector>

namespace zelnor {

/// The path in the system's own form. Raises error 76 for a network path.
ZELNOR_API String SystemPath(std::string_view path);

/// Whether the character separates parts of a path.
constexpr bool IsSeparator(char c) { return c == '\\' || c == '/'; }

/// True when the text ends in "\" or "/".
ZELNOR_API bool EndsInSeparator(std::string_view path);

/// The path with "\" behind it unless it ends in a separator already.
ZELNOR_API String WithTrailingSeparator(std::string_view path);

/// True for a path that is relative to the program's folder: one that begins with a single "\".
ZELNOR_API bool IsProgramRelative(std::string_view path);

/// A path of a setting: with a leading "\" relative to the program's folder, else as it stands.
ZELNOR_API String ResolveProgramPath(std::string_view path);

/// A plain file of that name is there, and its name doesn't begin with ".". False for empty text and after
/// any error.
ZELNOR_API bool PlainFileExists(std::string_view path);

/// The folder is there. An empty text or a lone separator counts as there.
ZELNOR_API bool FolderExists(std::string_view path);

/// Makes one folder; its parent must be there (error 76). Error 75 when it is there already or can't be made,
/// error 70 without the right to.
ZELNOR_API void MakeFolder(std::string_view path);

/// The bytes of a file. Errors 53, 70, 75, 76; `limit` in bytes, beyond it error 7 ... see kMaxFileBytes.
ZELNOR_API std::string ReadFile(std::string_view path);

/// Calls `write` with a sink for the bytes and puts the file in place when it returns; when it throws, the
/// target stays as it was. Errors 61, 70, 75, 76.
using ByteSink = std::function<void(std::string_view bytes)>;
ZELNOR_API void WriteFile(std::string_view path, const std::function<void(const ByteSink&)>& write);

/// Writes the bytes whole.
ZELNOR_API void WriteFile(std::string_view path, std::string_view bytes);

/// Copies a file over the target, if need be. Errors as ReadFile and WriteFile.
ZELNOR_API void CopyFile(std::string_view from, std::string_view to);

/// Deletes a file, read-only ones too. Error 53 when it is not there.
ZELNOR_API void DeleteFile(std::string_view path);

/// The file's modification time, local, with the file system's full resolution. Error 53 when it is not
/// there.
ZELNOR_API Date FileDate(std::string_view path);

/// The names of the plain files in a folder that don't begin with ".", in no particular order. Error 76 when
/// the folder is not there.
ZELNOR_API std::vector<String> FileNames(std::string_view folder);

/// The program's folder, without a trailing separator: what SetProgramFolder gave; else the environment's
/// `ZELNOR_HOME`; else the folder of the shared library if an `rti.config` or an `xsd` folder lies there;
/// else
/// `$XDG_DATA_HOME/zelnor` (`~/.local/share/zelnor`).
ZELNOR_API String ProgramFolder();

/// Gives the library its program's folder. An empty text goes back to the rule of ProgramFolder.
ZELNOR_API void SetProgramFolder(std::string_view path);

/// Fills the program's folder when it is missing or empty with the installed `xsd` folder and style sheet.
/// Returns whether anything was copied. The classes themselves never call it.
ZELNOR_API bool FurnishProgramFolder();

}  // namespace zelnor
