// Starts the program itself and works it through its windows. Every step waits for the state that
// it brings about; the deadline only ends a test that would wait for ever.

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <windows.h>

#include "platform/win32/utf16.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

constexpr ULONGLONG kDeadlineMilliseconds = 120'000;

bool WaitFor(const std::function<bool()>& state) {
  const ULONGLONG deadline = GetTickCount64() + kDeadlineMilliseconds;
  while (!state()) {
    if (GetTickCount64() > deadline) return false;
    Sleep(20);
  }
  return true;
}

std::wstring TextOf(HWND window) {
  wchar_t text[512] = {};
  GetWindowTextW(window, text, 512);
  return text;
}

std::vector<HWND> ChildrenOf(HWND window) {
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
  ~Program() {
    if (!process_.hProcess) return;
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
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

  // The program's visible top-level window of this class; null while there is none.
  HWND Find(const wchar_t* class_name) const {
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, class_name, nullptr));) {
      DWORD process = 0;
      GetWindowThreadProcessId(window, &process);
      if (process == process_.dwProcessId && IsWindowVisible(window)) return window;
    }
    return nullptr;
  }

  // The control of the main window with this name; null when there is none.
  HWND Control(const std::wstring& name) const {
    for (const HWND child : ChildrenOf(Find(L"TarnwellPocket"))) {
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

void Click(HWND control) { PostMessageW(control, BM_CLICK, 0, 0); }

TEST(MainWindow, OpensThePhotoCorrectsThePreviewAndAsksWhenClosed) {
  Program program(L"150");
  const std::string photo =
      program.folder.Write("\xD0\xA4\xD0\xBE\xD1\x82\xD0\xBE.jpg", kBaselineJpeg);
  ASSERT_TRUE(program.Start(photo));
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"TarnwellPocket") != nullptr; }));
  const HWND window = program.Find(L"TarnwellPocket");
  ASSERT_TRUE(WaitFor([&] { return TextOf(window).find(L"\x0424\x043E\x0442\x043E") == 0; }))
      << "the photo's name never came into the title";

  // The window is made for the scale that was asked for.
  RECT preview = {};
  GetClientRect(program.Control(L"Preview of the photo"), &preview);
  EXPECT_EQ(preview.right, 480);

  // Whoever cannot see the window can still read it.
  for (const HWND child : ChildrenOf(window)) {
    if (!IsWindowVisible(child)) continue;
    RECT place = {};
    GetWindowRect(child, &place);
    EXPECT_NE(TextOf(child), L"") << "a part at " << place.left << ", " << place.top;
  }

  const HWND preview_button = program.Control(L"Preview");
  ASSERT_TRUE(WaitFor([&] { return IsWindowEnabled(preview_button) != FALSE; }));
  Click(preview_button);
  ASSERT_TRUE(WaitFor([&] {
    for (const HWND child : ChildrenOf(window)) {
      if (TextOf(child).find(L"corrected, not saved") != std::wstring::npos) return true;
    }
    return false;
  })) << "the preview was never corrected";

  PostMessageW(window, WM_CLOSE, 0, 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") != nullptr; })) << "nobody asked";
  const HWND question = program.Find(L"#32770");
  EXPECT_EQ(TextOf(question), L"Tarnwell Pocket");
  PostMessageW(question, WM_COMMAND, IDNO, 0);
  DWORD code = STILL_ACTIVE;
  ASSERT_TRUE(WaitFor([&] { return program.Ended(code); }));
  EXPECT_EQ(code, 0u);
  EXPECT_TRUE(program.folder.Holds("TarnwellPocket.ini"));
}

TEST(MainWindow, AModuleOpensAndClosesItsControls) {
  Program program(L"100");
  ASSERT_TRUE(program.Start(""));
  ASSERT_TRUE(WaitFor([&] { return program.Control(L"Brightness") != nullptr; }));
  const HWND slider = program.Control(L"Brightness");
  const HWND expand = program.Control(L"Open/ Close Module: Adjust Brightness");
  ASSERT_TRUE(expand);
  const auto shown = [&] { return (GetWindowLongW(slider, GWL_STYLE) & WS_VISIBLE) != 0; };
  EXPECT_FALSE(shown());
  Click(expand);
  ASSERT_TRUE(WaitFor(shown));
  Click(expand);
  ASSERT_TRUE(WaitFor([&] { return !shown(); }));
}

// A key press reaches the menu's row: without a help file beside the program F1 says so.
TEST(MainWindow, KeysOfTheMenusWork) {
  Program program(L"100");
  ASSERT_TRUE(program.Start(""));
  ASSERT_TRUE(WaitFor([&] { return program.Control(L"Brightness") != nullptr; }));
  PostMessageW(program.Find(L"TarnwellPocket"), WM_KEYDOWN, VK_F1, 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") != nullptr; }));
  PostMessageW(program.Find(L"#32770"), WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") == nullptr; }));
}

// The slider hears its keys, and what they set is kept.
TEST(MainWindow, ASliderIsMovedByKeys) {
  Program program(L"100");
  ASSERT_TRUE(program.Start(""));
  ASSERT_TRUE(WaitFor([&] { return program.Control(L"JPEG quality") != nullptr; }));
  const HWND slider = program.Control(L"JPEG quality");
  PostMessageW(slider, WM_KEYDOWN, VK_HOME, 0);
  PostMessageW(slider, WM_KEYDOWN, VK_RIGHT, 0);
  PostMessageW(program.Find(L"TarnwellPocket"), WM_CLOSE, 0, 0);
  DWORD code = STILL_ACTIVE;
  ASSERT_TRUE(WaitFor([&] { return program.Ended(code); }));
  // Value 1 has its knob at 2; the noise threshold at its default follows.
  const std::string kept = program.folder.Read("TarnwellPocket.ini");
  EXPECT_NE(kept.find("\r\n2\r\n1\r\n72\r\n40\r\n"), std::string::npos) << kept;
}

}  // namespace
}  // namespace tarnwell
