// What reaches the main window beside clicks: wheel, keys, dropped files, the system's changes of
// scale and colours; and what it tells a screen reader.

#include <algorithm>
#include <gtest/gtest.h>
#include <objbase.h>
#include <shlobj.h>
#include <string>
#include <vector>

#include "tests/ui/win32/desk.h"
#include "tests/ui/win32/screen_reader.h"

namespace tarnwell {
namespace {

class HandsAndEars : public testing::Test {
 protected:
  HandsAndEars() { CoInitialize(nullptr); }
  ~HandsAndEars() override { CoUninitialize(); }

  void OpenLandscape(const std::string& name = "a.bmp") {
    desk.StartWith(desk.folder.Write(name, Landscape(800, 600)), Wide(name));
    // The tip of the start, which takes the keyboard.
    HWND tip = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (tip = desk.Dialog(L"Tips")) != nullptr; }));
    PostMessageW(tip, WM_COMMAND, IDCANCEL, 0);
    ASSERT_TRUE(WaitFor([&] { return !IsWindowVisible(tip) && IsChild(desk.main(), Focus()); }));
  }
  static std::wstring Wide(const std::string& text) { return *Utf8ToWide(text); }
  HWND Part(const std::wstring& name) const { return desk.Control(name); }
  // The control with the keyboard, in the program's thread.
  HWND Focus() const {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(desk.main(), nullptr), &info);
    return info.hwndFocus;
  }
  void Press(WPARAM key) { PostMessageW(Focus(), WM_KEYDOWN, key, 0); }

  Desk desk{L"100"};
};

TEST_F(HandsAndEars, TheWheelTurnsWhatIsBelowThePointer) {
  OpenLandscape();
  const HWND preview = Part(L"Preview of the photo");
  desk.Wheel(preview, 3);
  ASSERT_TRUE(WaitFor([&] { return HearOf(preview).value == L"2.0\x00D7"; }));
  Screenshot(desk.main(), "preview enlarged");
  desk.Wheel(preview, -5);
  ASSERT_TRUE(WaitFor([&] { return HearOf(preview).value.empty(); }));

  // The panel scrolls although the focus is elsewhere.
  const HWND first = Part(L"Open/ Close Module: Camera and Mode");
  RECT before = {}, after = {};
  GetWindowRect(first, &before);
  desk.Wheel(Part(L"Open/ Close Module: Adjust Contrast"), -1);
  ASSERT_TRUE(WaitFor([&] {
    GetWindowRect(first, &after);
    return after.top == before.top - 48;
  }));
}

TEST_F(HandsAndEars, AScreenReaderHearsRoleValueAndState) {
  OpenLandscape();
  const struct {
    const wchar_t* part;
    const wchar_t* name;
    LONG role;
    const wchar_t* value;
    LONG state;
  } rows[] = {
      {L"&File", L"File", ROLE_SYSTEM_PUSHBUTTON, L"", 0},
      {L"Open", L"Open", ROLE_SYSTEM_PUSHBUTTON, L"", 0},
      {L"JPEG quality", L"JPEG quality", ROLE_SYSTEM_SLIDER, L"80", 0},
      {L"White limit", L"White limit", ROLE_SYSTEM_SLIDER, L"0", STATE_SYSTEM_UNAVAILABLE},
      {L"Use learnt corrections", L"Use learnt corrections", ROLE_SYSTEM_CHECKBUTTON, L"",
       STATE_SYSTEM_CHECKED},
      {L"Set white limit by hand", L"Set white limit by hand", ROLE_SYSTEM_CHECKBUTTON, L"", 0},
      {L"Open/ Close Module: Smart Photo Correction", L"Open/ Close Module: Smart Photo Correction",
       ROLE_SYSTEM_CHECKBUTTON, L"", STATE_SYSTEM_CHECKED},
      {L"New file name", L"New file name", ROLE_SYSTEM_COMBOBOX, L"\x2026/aA.bmp", 0},
  };
  for (const auto& row : rows) {
    const Heard heard = HearOf(Part(row.part));
    const std::string part = Desk::Narrowed(row.part);
    EXPECT_EQ(heard.name, row.name) << part;
    EXPECT_EQ(heard.role, row.role) << part;
    EXPECT_EQ(heard.value, row.value) << part << Desk::Narrowed(heard.value);
    EXPECT_EQ(heard.state & (STATE_SYSTEM_CHECKED | STATE_SYSTEM_UNAVAILABLE), row.state) << part;
  }
  // What is checked goes, and the slider that it puts in force with it.
  Click(Part(L"Set white limit by hand"));
  ASSERT_TRUE(WaitFor([&] {
    return (HearOf(Part(L"Set white limit by hand")).state & STATE_SYSTEM_CHECKED) != 0;
  }));
  EXPECT_EQ(HearOf(Part(L"White limit")).state & STATE_SYSTEM_UNAVAILABLE, 0);
}

// Tab goes through everything that can be used, round the window, and shows where it is; what a
// dialog took away it gives back.
TEST_F(HandsAndEars, TabReachesEveryControlAndTheFocusComesBackAfterADialog) {
  OpenLandscape();
  desk.OpenModule(L"Smart White Balance", L"Reference white");
  std::vector<HWND> wanted;
  for (const HWND child : ChildrenOf(desk.main())) {
    const bool stops = (GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP) != 0;
    if (stops && IsWindowVisible(child) && IsWindowEnabled(child)) wanted.push_back(child);
  }
  std::vector<HWND> reached;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const HWND before = Focus();
    reached.push_back(before);
    Press(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Focus() != before; })) << Desk::Narrowed(TextOf(before));
  }
  for (const HWND part : wanted) {
    EXPECT_EQ(std::count(reached.begin(), reached.end(), part), 1) << Desk::Narrowed(TextOf(part));
  }
  EXPECT_EQ(Focus(), reached.front()) << "once round";
  Screenshot(desk.main(), "main with the focus shown");

  for (int i = 0; i < 3; ++i) {
    const HWND before = Focus();
    Press(VK_TAB);
    ASSERT_TRUE(WaitFor([&] { return Focus() != before; }));
  }
  const HWND at = Focus();
  desk.PressAlt('Q');
  desk.Answer(L"Quick Launch bar?", IDNO);
  EXPECT_TRUE(WaitFor([&] { return Focus() == at; })) << Desk::Narrowed(TextOf(Focus()));
}

// Whoever asks is answered first: what is open beside the main window waits as well.
TEST_F(HandsAndEars, OtherWindowsWaitWhileOneAsks) {
  desk.StartWith(desk.folder.Write("a.bmp", Landscape(800, 600)), L"a.bmp");
  HWND tip = nullptr;
  ASSERT_TRUE(WaitFor([&] { return (tip = desk.Dialog(L"Tips")) != nullptr; }));
  const auto both = [&](bool enabled) {
    return (IsWindowEnabled(tip) != FALSE) == enabled &&
           (IsWindowEnabled(desk.main()) != FALSE) == enabled;
  };
  desk.PressAlt('Q');
  ASSERT_TRUE(WaitFor([&] { return desk.Find(kSystemDialog) != nullptr; }));
  EXPECT_TRUE(both(false)) << "a box of the system";
  desk.Answer(L"Quick Launch bar?", IDNO);
  EXPECT_TRUE(WaitFor([&] { return both(true); }));

  Click(Part(L"New..."));
  HWND asks = nullptr;
  ASSERT_TRUE(WaitFor([&] { return (asks = desk.Dialog(L"New Camera")) != nullptr; }));
  EXPECT_TRUE(both(false)) << "a window of the program";
  PostMessageW(asks, WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(WaitFor([&] { return both(true); }));
}

// A corrected preview follows the panel: the copied thumbnail is brighter without another command.
TEST_F(HandsAndEars, ACorrectedPreviewFollowsTheSliders) {
  OpenLandscape();
  desk.OpenModule(L"Adjust Brightness", L"Brightness");
  desk.Press(L"Preview");
  ASSERT_TRUE(WaitFor([&] { return desk.Says(desk.main(), L"corrected, not saved"); }));
  const HWND preview = Part(L"Preview of the photo");
  const auto level = [&] {
    const HDC screen = GetDC(nullptr);
    RECT rect = {};
    GetWindowRect(preview, &rect);
    const COLORREF colour =
        GetPixel(screen, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    ReleaseDC(nullptr, screen);
    return GetRValue(colour) + GetGValue(colour) + GetBValue(colour);
  };
  const int before = level();
  PostMessageW(Part(L"Brightness"), WM_KEYDOWN, VK_HOME, 0);
  EXPECT_TRUE(WaitFor([&] { return level() < before - 60; })) << before << " " << level();
}

TEST_F(HandsAndEars, ADroppedPhotoIsOpened) {
  desk.StartWith("", L"Tarnwell Pocket");
  const std::wstring path = Wide(desk.folder.Write("dropped \xD0\xAF.bmp", Landscape(40, 30)));
  DWORD process = 0;
  GetWindowThreadProcessId(desk.main(), &process);
  const HANDLE program = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, process);
  ASSERT_TRUE(program);
  // The list of dropped files lies in the memory of the program that gets it.
  DROPFILES head = {};
  head.pFiles = sizeof(head);
  head.fWide = TRUE;
  const std::size_t bytes = (path.size() + 2) * sizeof(wchar_t);
  void* there = VirtualAllocEx(program, nullptr, sizeof(head) + bytes, MEM_COMMIT, PAGE_READWRITE);
  ASSERT_TRUE(there);
  WriteProcessMemory(program, there, &head, sizeof(head), nullptr);
  WriteProcessMemory(program, static_cast<char*>(there) + sizeof(head), path.c_str(),
                     bytes - sizeof(wchar_t), nullptr);
  CloseHandle(program);
  PostMessageW(desk.main(), WM_DROPFILES, reinterpret_cast<WPARAM>(there), 0);
  EXPECT_TRUE(WaitFor([&] { return desk.TitleBegins(L"dropped \x042F.bmp - Tarnwell"); }));
}

TEST_F(HandsAndEars, TheWindowFollowsANewScaleAndDarkColours) {
  OpenLandscape();
  const HWND preview = Part(L"Preview of the photo");
  RECT window = {};
  GetWindowRect(desk.main(), &window);
  // As when the window is moved to a screen of 150 %: the message comes with its new place.
  const auto moved = [&](UINT dpi, int percent) {
    DWORD process = 0;
    GetWindowThreadProcessId(desk.main(), &process);
    const HANDLE program = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, process);
    RECT place = {0, 0, (window.right - window.left) * percent / 100,
                  (window.bottom - window.top) * percent / 100};
    void* there = VirtualAllocEx(program, nullptr, sizeof(place), MEM_COMMIT, PAGE_READWRITE);
    WriteProcessMemory(program, there, &place, sizeof(place), nullptr);
    CloseHandle(program);
    SendMessageW(desk.main(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(there));
  };
  const auto width = [&] {
    RECT rect = {};
    GetClientRect(preview, &rect);
    return rect.right;
  };
  moved(144, 150);
  EXPECT_TRUE(WaitFor([&] { return width() == 480; })) << width();
  Screenshot(desk.main(), "main after a change of scale");
  moved(96, 100);
  EXPECT_TRUE(WaitFor([&] { return width() == 320; })) << width();

  const wchar_t* key = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
  const auto set_light = [&](DWORD light) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, L"AppsUseLightTheme", REG_DWORD, &light, sizeof(light));
    SendMessageW(desk.main(), WM_SETTINGCHANGE, 0, 0);
  };
  const auto ground = [&] {
    RECT rect = {};
    GetWindowRect(preview, &rect);
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, rect.left - 10, rect.top + 20);
    ReleaseDC(nullptr, screen);
    return GetGValue(colour);
  };
  set_light(0);
  EXPECT_TRUE(WaitFor([&] { return ground() == 0x1E; })) << ground();
  Screenshot(desk.main(), "main after a change to dark");
  set_light(1);
  EXPECT_TRUE(WaitFor([&] { return ground() == 0xF5; })) << ground();
}

}  // namespace
}  // namespace tarnwell
