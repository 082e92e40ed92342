#include "ui/host_clipboard.h"

namespace tarnwell {
namespace {

BITMAPINFO InfoFor(int width, int height) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // rows from the top, as the program keeps them
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

HBITMAP BitmapOf(const PixelView& picture) {
  const BITMAPINFO info = InfoFor(picture.width, picture.height);
  HDC screen = GetDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, picture.width, picture.height);
  const bool filled = bitmap && SetDIBits(screen, bitmap, 0, picture.height, picture.data, &info,
                                          DIB_RGB_COLORS) == picture.height;
  ReleaseDC(nullptr, screen);
  if (bitmap && !filled) DeleteObject(bitmap);
  return filled ? bitmap : nullptr;
}

Picture PictureOf(HBITMAP bitmap) {
  BITMAP size = {};
  if (!GetObjectW(bitmap, sizeof(size), &size)) return nullptr;
  const auto pixels = TryMakePixels(size.bmWidth, size.bmHeight);
  if (!pixels) return nullptr;
  BITMAPINFO info = InfoFor(size.bmWidth, size.bmHeight);
  HDC screen = GetDC(nullptr);
  const int rows = GetDIBits(screen, bitmap, 0, size.bmHeight, pixels->mutable_view().data, &info,
                             DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  if (rows != size.bmHeight) return nullptr;
  return pixels;
}

// Other programs hold the clipboard for a moment, those that keep its history at every change of
// it. So this waits for it, up to half a second.
bool OpenClipboardSoon(HWND owner) {
  constexpr int kTries = 20;
  constexpr DWORD kPauseMilliseconds = 25;
  for (int i = 0; i < kTries; ++i) {
    if (OpenClipboard(owner)) return true;
    Sleep(kPauseMilliseconds);
  }
  return false;
}

}  // namespace

bool HostClipboard::SetPicture(const PixelView& picture) {
  if (picture.empty() || !OpenClipboardSoon(owner)) return false;
  const HBITMAP bitmap = EmptyClipboard() ? BitmapOf(picture) : nullptr;
  const bool taken = bitmap && SetClipboardData(CF_BITMAP, bitmap);
  CloseClipboard();
  // A bitmap that the clipboard took is its own.
  if (bitmap && !taken) DeleteObject(bitmap);
  return taken;
}

Picture HostClipboard::GetPicture() {
  if (!IsClipboardFormatAvailable(CF_BITMAP) || !OpenClipboardSoon(owner)) return nullptr;
  const auto bitmap = static_cast<HBITMAP>(GetClipboardData(CF_BITMAP));
  Picture picture = bitmap ? PictureOf(bitmap) : nullptr;
  CloseClipboard();
  return picture;
}

}  // namespace tarnwell
