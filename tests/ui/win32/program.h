// Starts the program itself and works it through its windows. Every step waits for the state that
// it brings about; the deadline only ends a test that would wait for ever.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>
#include <windows.h>

#include "platform/win32/utf16.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {

inline constexpr ULONGLONG kDeadlineMilliseconds = 120'000;

inline bool WaitFor(const std::function<bool()>& state) {
  const ULONGLONG deadline = GetTickCount64() + kDeadlineMilliseconds;
  while (!state()) {
    if (GetTickCount64() > deadline) return false;
    Sleep(20);
  }
  return true;
}

inline std::wstring TextOf(HWND window) {
  wchar_t text[512] = {};
  GetWindowTextW(window, text, 512);
  return text;
}

inline std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM list) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

// A copy of the program in a folder of its own, past its first start.
class Program {
 public:
  explicit Program(const wchar_t* scale) {
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const auto built = std::filesystem::path(self).parent_path().parent_path() / TARNWELL_PROGRAM;
    const auto copy = std::filesystem::path(*Utf8ToWide(folder.File("TarnwellPocket.exe")));
    std::filesystem::copy_file(built, copy);
    folder.Write("TarnwellPocket.exe.manifest", "x");
    SetEnvironmentVariableW(L"TARNWELL_SCALE", scale);
  }
  ~Program() { Kill(); }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool Start(const std::string& photo) {
    std::wstring words = L"\"" + *Utf8ToWide(folder.File("TarnwellPocket.exe")) + L"\"";
    if (!photo.empty()) words += L" \"" + *Utf8ToWide(photo) + L"\"";
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    return CreateProcessW(nullptr, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process_);
  }

  // Ends it at once, wherever it is; it can be started again.
  void Kill() {
    if (!process_.hProcess) return;
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    process_ = {};
  }

  // The program's visible top-level window of this class; null while there is none.
  HWND Find(const wchar_t* class_name) const {
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, class_name, nullptr));) {
      DWORD process = 0;
      GetWindowThreadProcessId(window, &process);
      if (process == process_.dwProcessId && IsWindowVisible(window)) return window;
    }
    return nullptr;
  }

  // The control with this name of the program's window of a class; null when there is none.
  HWND Control(const std::wstring& name, const wchar_t* class_name = L"TarnwellPocket") const {
    for (const HWND child : ChildrenOf(Find(class_name))) {
      if (TextOf(child) == name) return child;
    }
    return nullptr;
  }

  bool Ended(DWORD& code) const {
    return GetExitCodeProcess(process_.hProcess, &code) && code != STILL_ACTIVE;
  }

  TempFolder folder;

 private:
  PROCESS_INFORMATION process_ = {};
};

inline void Click(HWND control) { PostMessageW(control, BM_CLICK, 0, 0); }

}  // namespace tarnwell
