#include "ui/look.h"

#include <dwmapi.h>
#include <initializer_list>

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

std::string Environment(const wchar_t* name) {
  wchar_t value[32] = {};
  const DWORD length = GetEnvironmentVariableW(name, value, 32);
  return length > 0 && length < 32 ? Narrow(value) : "";
}

bool SystemIsDark() {
  DWORD light = 1;
  DWORD size = sizeof(light);
  RegGetValueW(HKEY_CURRENT_USER,
               L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0;
}

int CALLBACK FontIsThere(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool HasFont(HDC screen, const wchar_t* name) {
  LOGFONTW wanted = {};
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(wanted.lfFaceName, name, LF_FACESIZE);
  bool found = false;
  EnumFontFamiliesExW(screen, &wanted, FontIsThere, reinterpret_cast<LPARAM>(&found), 0);
  return found;
}

// The first of the fonts that is installed, each with Latin, Greek and Cyrillic letters.
const wchar_t* FontName() {
  HDC screen = GetDC(nullptr);
  const wchar_t* chosen = L"Tahoma";
  for (const wchar_t* name : {L"Segoe UI", L"Noto Sans", L"Liberation Sans", L"DejaVu Sans"}) {
    if (!HasFont(screen, name)) continue;
    chosen = name;
    break;
  }
  ReleaseDC(nullptr, screen);
  return chosen;
}

// Smooth letters in any case; in colour fringes only where the user has them everywhere.
DWORD FontQuality() {
  UINT type = 0;
  const bool known = SystemParametersInfoW(SPI_GETFONTSMOOTHINGTYPE, 0, &type, 0);
  return known && type == FE_FONTSMOOTHINGCLEARTYPE ? CLEARTYPE_QUALITY : ANTIALIASED_QUALITY;
}

struct FaceInfo {
  int height;  // of the letters with their accents, at 96 dpi
  int weight;
};
constexpr std::array<FaceInfo, kFaceCount> kFaces = {{
    {14, FW_NORMAL},
    {14, FW_SEMIBOLD},
    {12, FW_NORMAL},
    {18, FW_SEMIBOLD},
}};

}  // namespace

Fonts::Fonts(Scale scale) { Rescale(scale); }
Fonts::~Fonts() { Release(); }

void Fonts::Release() {
  for (HFONT& font : fonts_) {
    if (font) DeleteObject(font);
    font = nullptr;
  }
}

void Fonts::Rescale(Scale scale) {
  Release();
  const wchar_t* name = FontName();
  const DWORD quality = FontQuality();
  for (int face = 0; face < kFaceCount; ++face) {
    fonts_[face] = CreateFontW(-scale.Px(kFaces[face].height), 0, 0, 0, kFaces[face].weight, FALSE,
                               FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                               CLIP_DEFAULT_PRECIS, quality, VARIABLE_PITCH, name);
  }
}

Look::Look(Scale with_scale) : scale(with_scale), fonts(with_scale) { ReadTheme(); }

void Look::Rescale(Scale with_scale) {
  scale = with_scale;
  fonts.Rescale(with_scale);
}

void Look::ReadTheme() { theme = ChooseTheme(Environment(L"TARNWELL_THEME"), SystemIsDark()); }

Scale StartScale() {
  return ForcedScale(Environment(L"TARNWELL_SCALE"), {static_cast<int>(GetDpiForSystem())});
}

Scale ScaleOf(HWND window) {
  return ForcedScale(Environment(L"TARNWELL_SCALE"), {static_cast<int>(GetDpiForWindow(window))});
}

SIZE TextSize(const Look& look, Face face, const std::wstring& text) {
  HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, look.fonts.Get(face));
  SIZE size = {};
  GetTextExtentPoint32W(screen, text.data(), static_cast<int>(text.size()), &size);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return size;
}

void ThemeTitleBar(HWND window, const Theme& theme) {
  constexpr DWORD kUseDarkTitleBar = 20;
  const BOOL dark = theme.dark;
  DwmSetWindowAttribute(window, kUseDarkTitleBar, &dark, sizeof(dark));
}

}  // namespace tarnwell
