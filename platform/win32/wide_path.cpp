#include "platform/win32/wide_path.h"

#include <algorithm>
#include <array>
#include <windows.h>

#include "platform/win32/utf16.h"

namespace tarnwell {
namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kUncPrefix = L"\\\\?\\UNC\\";

// COM and LPT take a digit, also one of the superscript digits of the old code pages.
bool IsPortDigit(wchar_t c) {
  return (c >= L'1' && c <= L'9') || c == 0xB9 || c == 0xB2 || c == 0xB3;
}

bool NamesNoDiskFile(std::wstring_view path) {
  if (path.find(L'\0') != path.npos) return true;
  if (path.starts_with(L"\\\\.\\")) return true;
  const std::wstring_view rest = path.starts_with(kPrefix) ? path.substr(kPrefix.size()) : path;
  const std::size_t colon = rest.find(L':', 0);
  if (colon != rest.npos && (colon != 1 || rest.find(L':', 2) != rest.npos)) return true;
  return IsDeviceName(path);
}

}  // namespace

bool IsDeviceName(std::wstring_view path) {
  const std::size_t slash = path.find_last_of(L"\\/:");
  std::wstring name(slash == path.npos ? path : path.substr(slash + 1));
  name.resize(std::min(name.find(L'.'), name.size()));
  while (!name.empty() && name.back() == L' ') name.pop_back();
  for (wchar_t& c : name) {
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
  }
  if (name.size() == 4 && (name.starts_with(L"COM") || name.starts_with(L"LPT"))) {
    return IsPortDigit(name[3]);
  }
  constexpr std::array<std::wstring_view, 6> kDevices = {L"CON", L"PRN",    L"AUX",
                                                         L"NUL", L"CONIN$", L"CONOUT$"};
  return std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end();
}

std::wstring FullWidePath(const std::wstring& path) {
  const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (needed == 0) return {};
  std::wstring full(needed, L'\0');
  const DWORD length = GetFullPathNameW(path.c_str(), needed, full.data(), nullptr);
  if (length == 0 || length >= needed) return {};
  full.resize(length);
  return full;
}

std::optional<std::wstring> WidePath(const std::string& path) {
  const std::optional<std::wstring> wide = Utf8ToWide(path);
  if (!wide || NamesNoDiskFile(*wide)) return std::nullopt;
  if (wide->starts_with(kPrefix)) return wide;
  const std::wstring full = FullWidePath(*wide);
  if (full.size() < kLongPath) return wide;
  if (full.starts_with(L"\\\\")) return std::wstring(kUncPrefix) + full.substr(2);
  return std::wstring(kPrefix) + full;
}

}  // namespace tarnwell
