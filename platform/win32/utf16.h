#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell {

// The core speaks UTF-8, the wide calls of Windows UTF-16. Nothing when the text is not
// well-formed: a name that cannot be carried over and back must not silently become another one.
std::optional<std::wstring> Utf8ToWide(std::string_view text);
std::optional<std::string> WideToUtf8(std::wstring_view text);

}  // namespace tarnwell
