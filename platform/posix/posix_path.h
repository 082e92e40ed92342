#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

// Paths at the edge of this system: the program spells them with backslashes, the system with
// slashes.
//
// A file name of this system may itself hold a backslash. The program could not tell it from a
// separator, so such a name cannot be addressed: it is left out of listings, and where a user names
// one it is carried as a zero byte, which no file name holds, up to the call that refuses it.

// `path` for calls of the system. Refused when a name in it holds a backslash (carried as told
// above), and when it is empty.
Result<std::string> ToSystemPath(const std::string& path);

// A path or name that the system gave, in the program's spelling. Every backslash is taken for part
// of a name.
std::string FromSystemPath(std::string_view system_path);

// `path` as the user writes it.
std::string DisplayPath(const std::string& path);

// `path` as the user or the program spelled it, made absolute against the current folder. Slashes
// and backslashes both separate, but where a file or folder exists whose name holds the very
// backslash that was written, that one is meant: the result is then a path that every call refuses.
// An absolute path in the program's spelling comes back as it is.
std::string AbsolutePath(const std::string& path);

// The folder of a system path, with its slash at the end; "./" for a bare name.
std::string SystemFolderOf(const std::string& system_path);

}  // namespace tarnwell
