// Starts the program itself and works it through its windows, as a person would. Every step waits
// for the state that it brings about; the deadline only ends a test that would wait for ever.
#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

#include "platform/win32/utf16.h"
#include "tests/support/bmp_builder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tiny_pictures.h"
#include "tests/ui/win32/screenshot.h"

namespace tarnwell {

inline constexpr ULONGLONG kDeadlineMilliseconds = 120'000;

inline constexpr wchar_t kMain[] = L"TarnwellPocket";
inline constexpr wchar_t kDialog[] = L"TarnwellDialog";
inline constexpr wchar_t kSystemDialog[] = L"#32770";
inline constexpr wchar_t kMenu[] = L"#32768";

inline std::wstring TextOf(HWND window) {
  wchar_t text[512] = {};
  GetWindowTextW(window, text, 512);
  return text;
}

inline std::string Narrowed(const std::wstring& text) { return WideToUtf8(text).value_or("?"); }

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

// Everything that can be read in a window, a line each.
inline std::wstring WordsIn(HWND window) {
  std::wstring words = TextOf(window);
  for (const HWND child : ChildrenOf(window)) {
    if (IsWindowVisible(child)) words += L"\n" + TextOf(child);
  }
  return words;
}

inline bool Says(HWND window, const std::wstring& words) {
  return WordsIn(window).find(words) != std::wstring::npos;
}

inline void Click(HWND control) { PostMessageW(control, BM_CLICK, 0, 0); }

inline RECT PlaceOf(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  return place;
}

// A bitmap with gentle slopes in it, large enough to have a smaller preview.
inline std::string Landscape(int width, int height) {
  std::string pixels;
  for (int y = height; y-- > 0;) {
    for (int x = 0; x < width; ++x) {
      const int sky = y < height / 2 ? 90 : 0;
      pixels += static_cast<char>(60 + sky + 40 * x / width);
      pixels += static_cast<char>(70 + sky / 2 + 60 * y / height);
      pixels += static_cast<char>(80 + 70 * y / height);
    }
    pixels.append((4 - width * 3 % 4) % 4, '\0');
  }
  return BuildBmp({.width = width, .height = height, .data = pixels});
}

// A copy of the program in a folder of its own, past its first start, with what a person does to
// it.
class Desk {
 public:
  explicit Desk(const wchar_t* scale = L"100") {
    wchar_t self[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    const auto built = std::filesystem::path(self).parent_path().parent_path() / TARNWELL_PROGRAM;
    std::filesystem::copy_file(built, folder.SystemPath("TarnwellPocket.exe"));
    folder.Write("TarnwellPocket.exe.manifest", "x");
    SetEnvironmentVariableW(L"TARNWELL_SCALE", scale);
  }
  ~Desk() { Kill(); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // Ends the test when the state never comes, and says what stood on the screen instead.
  void Await(const std::function<bool()>& state) const {
    const ULONGLONG deadline = GetTickCount64() + kDeadlineMilliseconds;
    while (!state()) {
      if (GetTickCount64() > deadline) throw std::runtime_error("waited in vain; " + OnScreen());
      Sleep(20);
    }
  }

  // Another copy may be at work; `process` is told which one this is.
  void Launch(const std::string& photo, PROCESS_INFORMATION& process) const {
    std::wstring words = L"\"" + *Utf8ToWide(folder.File("TarnwellPocket.exe")) + L"\"";
    if (!photo.empty()) words += L" \"" + *Utf8ToWide(photo) + L"\"";
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    ASSERT_TRUE(CreateProcessW(nullptr, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &start, &process));
  }
  void Start(const std::string& photo, const std::wstring& title = L"Tarnwell Pocket") {
    Launch(photo, process_);
    Await([&] { return TitleBegins(title); });
    // A photo that is being opened has its name before it is there.
    if (!photo.empty()) AwaitEnabled(L"Preview");
  }
  // Puts the tip of the start away, which takes the keyboard.
  void DismissTip() {
    Await([&] { return Dialog(L"Tips") != nullptr; });
    PostMessageW(Dialog(L"Tips"), WM_COMMAND, IDCANCEL, 0);
    Await([&] { return Dialog(L"Tips") == nullptr; });
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
  void Close() const { PostMessageW(FindWindowW(kMain, nullptr), WM_CLOSE, 0, 0); }
  void AwaitEnd() {
    Await([&] { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; });
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_.hProcess, &code);
    EXPECT_EQ(code, 0u);
    Kill();
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
  HWND main() const { return Find(kMain); }
  // The shown window of this title beside the main one; null while there is none.
  HWND Dialog(const std::wstring& title) const {
    const HWND found = FindWindowW(kDialog, title.c_str());
    return found && IsWindowVisible(found) ? found : nullptr;
  }
  // The control with this name of the program's window of a class; null when there is none.
  HWND Control(const std::wstring& name, const wchar_t* class_name = kMain) const {
    for (const HWND child : ChildrenOf(Find(class_name))) {
      if (TextOf(child) == name) return child;
    }
    return nullptr;
  }
  bool TitleBegins(const std::wstring& name) const { return TextOf(main()).starts_with(name); }

  void AwaitEnabled(const std::wstring& button) const {
    Await([&] { return IsWindowEnabled(Control(button)) != FALSE; });
  }
  void AwaitWords(const std::wstring& words) const {
    Await([&] { return Says(main(), words); });
  }
  void Press(const std::wstring& button) const {
    AwaitEnabled(button);
    Click(Control(button));
  }
  void CorrectPreview() const {
    Press(L"Preview");
    AwaitWords(L"corrected, not saved");
  }
  // `part` is one of the parts that the module shows while it is open.
  void OpenModule(const std::wstring& title, const std::wstring& part) const {
    Click(Control(L"Open/ Close Module: " + title));
    Await([&] { return IsWindowVisible(Control(part)) != FALSE; });
  }
  void PressAlt(char letter) const { PostMessageW(main(), WM_SYSKEYDOWN, letter, 1 << 29); }

  // Answers the message box that says `words`, after a picture of it.
  void Answer(const std::wstring& words, int button, const std::string& picture = {}) const {
    HWND box = nullptr;
    Await([&] {
      box = Find(kSystemDialog);
      return box && Says(box, words);
    });
    if (!picture.empty()) Screenshot(box, picture);
    PostMessageW(box, WM_COMMAND, button, 0);
    Await([&] { return !IsWindow(box) || !IsWindowVisible(box); });
  }
  // Names a file in the system's dialog that opens a photo.
  void ChoosePhoto(const std::string& path, const std::string& picture = {}) const {
    PressAlt('O');
    HWND dialog = nullptr, field = nullptr;
    Await([&] {
      dialog = Find(kSystemDialog);
      if (!dialog || TextOf(dialog) != L"Open Photo") return false;
      for (const HWND child : ChildrenOf(dialog)) {
        wchar_t name[16] = {};
        GetClassNameW(child, name, 16);
        if (IsWindowVisible(child) && lstrcmpiW(name, L"Edit") == 0) field = child;
      }
      return field != nullptr;
    });
    if (!picture.empty()) Screenshot(dialog, picture);
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Utf8ToWide(path)->c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    Await([&] { return !IsWindow(dialog); });
  }
  // The wheel over a window's middle, by so many notches.
  void Wheel(HWND window, int notches) const {
    const RECT place = PlaceOf(window);
    const int x = (place.left + place.right) / 2, y = (place.top + place.bottom) / 2;
    SetCursorPos(x, y);
    PostMessageW(main(), WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), MAKELPARAM(x, y));
  }
  // Puts bytes into the program's memory, for messages that point to some.
  void* HandOver(const void* bytes, std::size_t size) const {
    void* there = VirtualAllocEx(process_.hProcess, nullptr, size, MEM_COMMIT, PAGE_READWRITE);
    WriteProcessMemory(process_.hProcess, there, bytes, size, nullptr);
    return there;
  }

  TempFolder folder;

 private:
  std::string OnScreen() const {
    std::string words = "on the screen:";
    for (const wchar_t* class_name : {kMain, kDialog, kSystemDialog, kMenu}) {
      if (const HWND window = Find(class_name)) words += "\n---\n" + Narrowed(WordsIn(window));
    }
    return words;
  }

  PROCESS_INFORMATION process_ = {};
};

}  // namespace tarnwell
