#pragma once

#include <string>
#include <string_view>

#include "platform/win32/utf16.h"

namespace tarnwell {

// Texts for windows and back. What is not well-formed cannot be shown and becomes empty.
inline std::wstring Wide(std::string_view text) { return Utf8ToWide(text).value_or(L""); }
inline std::string Narrow(std::wstring_view text) { return WideToUtf8(text).value_or(""); }

}  // namespace tarnwell
