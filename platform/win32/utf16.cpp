#include "platform/win32/utf16.h"

#include <climits>
#include <windows.h>

namespace tarnwell {

std::optional<std::wstring> Utf8ToWide(std::string_view text) {
  if (text.empty()) return std::wstring();  // the call takes length 0 for an error
  if (text.size() > INT_MAX) return std::nullopt;
  const int length = static_cast<int>(text.size());
  const int needed =
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, nullptr, 0);
  if (needed <= 0) return std::nullopt;
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), needed);
  return wide;
}

std::optional<std::string> WideToUtf8(std::wstring_view text) {
  if (text.empty()) return std::string();
  if (text.size() > INT_MAX) return std::nullopt;
  const int length = static_cast<int>(text.size());
  const int needed = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), length,
                                         nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return std::nullopt;
  std::string narrow(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), length, narrow.data(), needed,
                      nullptr, nullptr);
  return narrow;
}

}  // namespace tarnwell
