#include "ui/display_colours.h"

#include "platform/win32/display_colours.h"

namespace tarnwell {
namespace {

// The file with the profile of the display; empty when it has none.
std::wstring ProfileOfDisplay(HWND window) {
  const HDC dc = GetDC(window);
  wchar_t file[MAX_PATH] = {};
  DWORD length = MAX_PATH;
  const bool known = dc != nullptr && GetICMProfileW(dc, &length, file);
  if (dc != nullptr) ReleaseDC(window, dc);
  return known ? file : L"";
}

}  // namespace

const ColourCube* ColoursOnScreen::For(HWND window, const SharedMetadata& metadata) {
  if (!metadata || metadata->colour_profile.empty()) return nullptr;
  std::wstring display = ProfileOfDisplay(window);
  if (metadata != metadata_ || display != display_) {
    metadata_ = metadata;
    display_ = std::move(display);
    cube_ = CubeForDisplay(metadata->colour_profile, display_);
  }
  return cube_.get();
}

}  // namespace tarnwell
