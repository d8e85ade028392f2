// The rules of Windows paths, as text; none of these functions accesses the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// A namespace of its own, because the rules of Linux paths have the same names and the tests link both.
namespace plimo::windows_paths {

// "folder\name"; a folder that ends in a separator gets no second one.
std::string joinPath(std::string_view folder, std::string_view name);
// The part after the last separator, "\" or "/".
std::string_view baseName(std::string_view path);
// All components but the last: "C:\" for an entry of a drive's root, empty for a bare name. The parent of a root is
// that root.
std::string parentPath(std::string_view path);
bool endsInSeparator(std::string_view path);
// True for "C:\..." and "\\server\share...", which do not depend on the current directory.
bool isAbsolutePath(std::string_view path);

// The absolute path without ".", "..", doubled separators and one at the end, except in a drive's root: "C:\a\b" or
// "\\server\share\a". Unlike those of the system, these rules keep dots and blanks at the end of names. Relative paths
// are below `currentDirectory`, or below the root of a drive that is not its own. Nullopt if the path names no file or
// folder: the empty path, a server without a share, a device ("\\.\...").
std::optional<std::string> absolutePath(std::string_view path, std::string_view currentDirectory);

// Of an absolute path:

// "C:\" or "\\server\share".
bool isRootPath(std::string_view absolute);
// True for the folder itself and everything below it, without regard to case.
bool folderContains(std::string_view folder, std::string_view absolute);
// The form without the system's own rules and limits: "\\?\C:\a" or "\\?\UNC\server\share\a". What no name may contain,
// a colon or a null character, becomes "?", which the system refuses; or a colon would name a stream of the file.
std::string extendedPath(std::string_view absolute);
// The inverse; a path in another form is returned unchanged.
std::string plainPath(std::string_view extended);

// True if a file can be created with this name: not empty, none of "*/:<>?\| and no control characters, not a device's
// name with or without an extension (CON, NUL, COM1, ...), at most 255 UTF-16 units. Source: "Naming Files, Paths, and
// Namespaces" in the documentation of Windows.
bool isAllowedName(std::string_view name);

}  // namespace plimo::windows_paths
