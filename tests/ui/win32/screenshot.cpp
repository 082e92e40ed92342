#include "tests/ui/win32/screenshot.h"

#include <filesystem>
#include <vector>
#include <wincodec.h>
#include <wrl/client.h>

#include "platform/win32/utf16.h"

namespace tarnwell {
namespace {

using Microsoft::WRL::ComPtr;

std::filesystem::path Folder() {
  wchar_t self[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  // The test program lies in PRESET/tests of the build folder.
  return std::filesystem::path(self).parent_path().parent_path().parent_path() / "screenshots";
}

// The pixels of a part of the screen, rows from the top; empty when the system gives none.
std::vector<BYTE> PixelsOfScreen(const RECT& part, int width, int height) {
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  std::vector<BYTE> pixels(static_cast<std::size_t>(width) * height * 4);
  const bool copied = BitBlt(memory, 0, 0, width, height, screen, part.left, part.top, SRCCOPY);
  SelectObject(memory, before);
  const bool read = copied && GetDIBits(screen, bitmap, 0, height, pixels.data(), &info,
                                        DIB_RGB_COLORS) == height;
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (!read) pixels.clear();
  return pixels;
}

// A window that has just come up is not painted yet: what stays the same for a while counts.
std::vector<BYTE> SteadyPixels(const RECT& part, int width, int height) {
  constexpr int kTries = 20;
  constexpr DWORD kMilliseconds = 150;
  std::vector<BYTE> pixels = PixelsOfScreen(part, width, height);
  for (int i = 0; i < kTries; ++i) {
    Sleep(kMilliseconds);
    std::vector<BYTE> next = PixelsOfScreen(part, width, height);
    std::swap(pixels, next);
    if (pixels == next) break;
  }
  return pixels;
}

void WritePng(const std::filesystem::path& path, std::vector<BYTE>& pixels, UINT width,
              UINT height) {
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  WICPixelFormatGUID format = GUID_WICPixelFormat32bppBGR;
  const UINT stride = width * 4;
  const bool opened =
      SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_PPV_ARGS(&factory))) &&
      SUCCEEDED(factory->CreateStream(&stream)) &&
      SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
      SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder)) &&
      SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
      SUCCEEDED(encoder->CreateNewFrame(&frame, nullptr)) && SUCCEEDED(frame->Initialize(nullptr));
  if (!opened) return;
  ComPtr<IWICBitmap> bitmap;
  const bool written = SUCCEEDED(factory->CreateBitmapFromMemory(width, height, format, stride,
                                                                 static_cast<UINT>(pixels.size()),
                                                                 pixels.data(), &bitmap)) &&
                       SUCCEEDED(frame->WriteSource(bitmap.Get(), nullptr)) &&
                       SUCCEEDED(frame->Commit());
  if (written) encoder->Commit();
}

}  // namespace

void Screenshot(HWND window, const std::string& name) {
  RECT part = {};
  if (!window || !GetWindowRect(window, &part)) return;
  const int width = part.right - part.left;
  const int height = part.bottom - part.top;
  if (width <= 0 || height <= 0) return;
  const bool entered = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  std::vector<BYTE> pixels = SteadyPixels(part, width, height);
  std::error_code ignored;
  std::filesystem::create_directories(Folder(), ignored);
  const std::filesystem::path path = Folder() / (*Utf8ToWide(name) + L".png");
  if (!pixels.empty()) WritePng(path, pixels, width, height);
  if (entered) CoUninitialize();
}

}  // namespace tarnwell
