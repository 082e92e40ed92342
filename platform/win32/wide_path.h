#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell {

// Windows cuts plain paths off at 260 characters, and at 248 for folders.
inline constexpr std::size_t kLongPath = 248;

// The form in which a UTF-8 path is handed to a wide call. A path that is 248 characters or longer
// once made absolute gets the \\?\ prefix (\\?\UNC\ on a network share), which lifts the limit.
// Nothing for a path that names no file of the disk: malformed UTF-8, a zero byte, a device (NUL,
// COM1.txt, \\.\...), a stream within a file (a.jpg:b).
std::optional<std::wstring> WidePath(const std::string& path);

// The absolute form of `path` without a prefix; empty when the system cannot tell.
std::wstring FullWidePath(const std::wstring& path);

// Whether the last part of `path` is one of the names that Windows keeps for devices in every
// folder, with whatever extension.
bool IsDeviceName(std::wstring_view path);

}  // namespace tarnwell
