#include <algorithm>
#include <bit>
#include <cstdint>
#include <shlobj.h>
#include <windows.h>

#include "platform/system.h"
#include "platform/win32/external_jpeg_library.h"
#include "platform/win32/temporary_files.h"
#include "platform/win32/utf16.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_picture_codec.h"

namespace tarnwell {
std::unique_ptr<Files> MakeSystemFiles() { return std::make_unique<Win32Files>(); }

std::unique_ptr<PictureCodec> MakeSystemPictureCodec() {
  return std::make_unique<Win32PictureCodec>();
}

std::unique_ptr<JpegLibrary> MakeSystemJpegLibrary() {
  return ChooseJpegLibrary(kExternalJpegLibrary);
}

std::unique_ptr<Clock> MakeSystemClock() { return std::make_unique<Win32Clock>(); }

std::string SystemDataFolder() {
  wchar_t* folder = nullptr;
  std::string path;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DEFAULT, nullptr, &folder))) {
    path = WideToUtf8(folder).value_or("");
  }
  CoTaskMemFree(folder);
  if (path.empty()) return path;
  if (!path.ends_with('\\')) path += '\\';
  return path + "Tarnwell Pocket\\";
}

int SystemProcessorCount() {
  DWORD_PTR ours = 0, all = 0;
  if (!GetProcessAffinityMask(GetCurrentProcess(), &ours, &all)) return 1;
  return std::max(1, std::popcount(static_cast<std::uint64_t>(ours)));
}

std::uint64_t SystemMemoryBytes() {
  MEMORYSTATUSEX memory = {};
  memory.dwLength = sizeof memory;
  if (!GlobalMemoryStatusEx(&memory)) return 0;
  // A program of 32 bits reaches less than the machine may have.
  return std::min(memory.ullTotalPhys, memory.ullTotalVirtual);
}

int SystemTerminalColumns() {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info)) {
    return kUsualTerminalColumns;
  }
  return info.srWindow.Right - info.srWindow.Left + 1;
}

int DeleteStrayTemporaries(const std::string& folder) { return DeleteStraysIn(folder); }

}  // namespace tarnwell
