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

  void OpenLandscape() {
    desk.Start(desk.folder.Write("a.bmp", Landscape(800, 600)), L"a.bmp");
    desk.DismissTip();
    desk.Await([&] { return IsChild(desk.main(), Focus()) != FALSE; });
  }
  HWND Part(const std::wstring& name) const { return desk.Control(name); }
  // The control with the keyboard, in the program's thread.
  HWND Focus() const {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(desk.main(), nullptr), &info);
    return info.hwndFocus;
  }
  // Gives where the focus was before.
  HWND PressTab() const {
    const HWND before = Focus();
    PostMessageW(before, WM_KEYDOWN, VK_TAB, 0);
    desk.Await([&] { return Focus() != before; });
    return before;
  }
  static COLORREF ColourAt(int x, int y) {
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, x, y);
    ReleaseDC(nullptr, screen);
    return colour;
  }

  Desk desk;
};

TEST_F(HandsAndEars, TheWheelTurnsWhatIsBelowThePointer) {
  OpenLandscape();
  const HWND preview = Part(L"Preview of the photo");
  desk.Wheel(preview, 3);
  desk.Await([&] { return HearOf(preview).value == L"2.0\x00D7"; });
  Screenshot(desk.main(), "preview enlarged");
  desk.Wheel(preview, -5);
  desk.Await([&] { return HearOf(preview).value.empty(); });

  // The panel scrolls although the focus is elsewhere.
  const HWND first = Part(L"Open/ Close Module: Camera and Mode");
  const LONG before = PlaceOf(first).top;
  desk.Wheel(Part(L"Open/ Close Module: Adjust Contrast"), -1);
  desk.Await([&] { return PlaceOf(first).top == before - 48; });
}

TEST_F(HandsAndEars, AScreenReaderHearsRoleValueAndState) {
  OpenLandscape();
  const struct {
    const wchar_t* part;
    LONG role;
    const wchar_t* value;
    LONG state;
  } rows[] = {
      {L"&File", ROLE_SYSTEM_PUSHBUTTON, L"", 0},
      {L"Open", ROLE_SYSTEM_PUSHBUTTON, L"", 0},
      {L"JPEG quality", ROLE_SYSTEM_SLIDER, L"80", 0},
      {L"White limit", ROLE_SYSTEM_SLIDER, L"0", STATE_SYSTEM_UNAVAILABLE},
      {L"Use learnt corrections", ROLE_SYSTEM_CHECKBUTTON, L"", STATE_SYSTEM_CHECKED},
      {L"Set white limit by hand", ROLE_SYSTEM_CHECKBUTTON, L"", 0},
      {L"Open/ Close Module: Smart Photo Correction", ROLE_SYSTEM_CHECKBUTTON, L"",
       STATE_SYSTEM_CHECKED},
      {L"New file name", ROLE_SYSTEM_COMBOBOX, L"\x2026/aA.bmp", 0},
  };
  for (const auto& row : rows) {
    const Heard heard = HearOf(Part(row.part));
    std::wstring name = row.part;
    std::erase(name, L'&');
    EXPECT_EQ(heard.name, name);
    const std::string part = Narrowed(name);
    EXPECT_EQ(heard.role, row.role) << part;
    EXPECT_EQ(heard.value, row.value) << part << Narrowed(heard.value);
    EXPECT_EQ(heard.state & (STATE_SYSTEM_CHECKED | STATE_SYSTEM_UNAVAILABLE), row.state) << part;
  }
  // What is checked goes, and the slider that it puts in force with it.
  Click(Part(L"Set white limit by hand"));
  desk.Await(
      [&] { return (HearOf(Part(L"Set white limit by hand")).state & STATE_SYSTEM_CHECKED) != 0; });
  EXPECT_EQ(HearOf(Part(L"White limit")).state & STATE_SYSTEM_UNAVAILABLE, 0);
}

// Tab goes through everything that can be used, round the window, and shows where it is; what a
// dialog took away it gives back.
TEST_F(HandsAndEars, TabReachesEveryControlAndTheFocusComesBackAfterADialog) {
  OpenLandscape();
  desk.OpenModule(L"Smart White Balance", L"Reference white");
  std::vector<HWND> wanted, reached;
  for (const HWND child : ChildrenOf(desk.main())) {
    const bool stops = (GetWindowLongW(child, GWL_STYLE) & WS_TABSTOP) != 0;
    if (stops && IsWindowVisible(child) && IsWindowEnabled(child)) wanted.push_back(child);
  }
  while (reached.size() < wanted.size()) reached.push_back(PressTab());
  for (const HWND part : wanted) {
    EXPECT_EQ(std::count(reached.begin(), reached.end(), part), 1) << Narrowed(TextOf(part));
  }
  EXPECT_EQ(Focus(), reached.front()) << "once round";
  Screenshot(desk.main(), "main with the focus shown");

  for (int i = 0; i < 3; ++i) PressTab();
  const HWND at = Focus();
  desk.PressAlt('Q');
  desk.Answer(L"Quick Launch bar?", IDNO);
  desk.Await([&] { return Focus() == at; });
}

// Whoever asks is answered first: what is open beside the main window waits as well.
TEST_F(HandsAndEars, OtherWindowsWaitWhileOneAsks) {
  desk.Start(desk.folder.Write("a.bmp", Landscape(800, 600)), L"a.bmp");
  desk.Await([&] { return desk.Dialog(L"Tips") != nullptr; });
  const HWND tip = desk.Dialog(L"Tips");
  const auto both = [&](bool enabled) {
    return (IsWindowEnabled(tip) != FALSE) == enabled &&
           (IsWindowEnabled(desk.main()) != FALSE) == enabled;
  };
  desk.PressAlt('Q');
  desk.Await([&] { return desk.Find(kSystemDialog) != nullptr; });
  EXPECT_TRUE(both(false)) << "a box of the system";
  desk.Answer(L"Quick Launch bar?", IDNO);
  desk.Await([&] { return both(true); });

  Click(Part(L"New..."));
  desk.Await([&] { return desk.Dialog(L"New Camera") != nullptr; });
  EXPECT_TRUE(both(false)) << "a window of the program";
  PostMessageW(desk.Dialog(L"New Camera"), WM_COMMAND, IDCANCEL, 0);
  desk.Await([&] { return both(true); });
}

// A corrected preview follows the panel: the copied thumbnail is darker without another command.
TEST_F(HandsAndEars, ACorrectedPreviewFollowsTheSliders) {
  OpenLandscape();
  desk.OpenModule(L"Adjust Brightness", L"Brightness");
  desk.CorrectPreview();
  const auto level = [place = PlaceOf(Part(L"Preview of the photo"))] {
    const COLORREF colour =
        ColourAt((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    return GetRValue(colour) + GetGValue(colour) + GetBValue(colour);
  };
  const int before = level();
  PostMessageW(Part(L"Brightness"), WM_KEYDOWN, VK_HOME, 0);
  desk.Await([&] { return level() < before - 60; });
}

TEST_F(HandsAndEars, ADroppedPhotoIsOpened) {
  desk.Start("");
  const std::wstring path =
      *Utf8ToWide(desk.folder.Write("dropped \xD0\xAF.bmp", Landscape(40, 30)));
  // The list of dropped files lies in the memory of the program that gets it, ended by two zeros.
  DROPFILES head = {};
  head.pFiles = sizeof(head);
  head.fWide = TRUE;
  std::string list(reinterpret_cast<const char*>(&head), sizeof(head));
  list.append(reinterpret_cast<const char*>(path.c_str()), path.size() * sizeof(wchar_t));
  list.append(2 * sizeof(wchar_t), '\0');
  PostMessageW(desk.main(), WM_DROPFILES,
               reinterpret_cast<WPARAM>(desk.HandOver(list.data(), list.size())), 0);
  desk.Await([&] { return desk.TitleBegins(L"dropped \x042F.bmp - Tarnwell"); });
}

TEST_F(HandsAndEars, TheWindowFollowsANewScaleAndDarkColours) {
  OpenLandscape();
  const HWND preview = Part(L"Preview of the photo");
  const RECT window = PlaceOf(desk.main());
  // As when the window is moved to a screen of 150 %: the message comes with its new place.
  const auto moved = [&](UINT dpi, int percent) {
    const RECT place = {0, 0, (window.right - window.left) * percent / 100,
                        (window.bottom - window.top) * percent / 100};
    SendMessageW(desk.main(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(desk.HandOver(&place, sizeof(place))));
  };
  const auto width = [&] { return PlaceOf(preview).right - PlaceOf(preview).left; };
  moved(144, 150);
  desk.Await([&] { return width() == 480; });
  Screenshot(desk.main(), "main after a change of scale");
  moved(96, 100);
  desk.Await([&] { return width() == 320; });

  const wchar_t* key = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
  const auto set_light = [&](DWORD light) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, L"AppsUseLightTheme", REG_DWORD, &light, sizeof(light));
    SendMessageW(desk.main(), WM_SETTINGCHANGE, 0, 0);
  };
  const auto ground = [&] {
    return GetGValue(ColourAt(PlaceOf(preview).left - 10, PlaceOf(preview).top + 20));
  };
  set_light(0);
  desk.Await([&] { return ground() == 0x1E; });
  Screenshot(desk.main(), "main after a change to dark");
  set_light(1);
  desk.Await([&] { return ground() == 0xF5; });
}

// A key press reaches the menu's row: without a help page beside the program F1 says so. Esc leaves
// the menus and never the program.
TEST_F(HandsAndEars, KeysOfTheMenusWork) {
  desk.Start("");
  PostMessageW(desk.main(), WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageW(desk.main(), WM_KEYDOWN, VK_F1, 0);
  desk.Answer(L".html", IDOK);

  // From File with the right arrow to Edit, where P pastes: the clipboard holds no picture.
  desk.Await([] { return OpenClipboard(nullptr) != FALSE; });
  EmptyClipboard();
  CloseClipboard();
  Click(Part(L"&File"));
  desk.Await([&] { return desk.Find(kMenu) != nullptr; });
  const HWND file = desk.Find(kMenu);
  PostMessageW(desk.main(), WM_KEYDOWN, VK_RIGHT, 0);
  desk.Await([&] { return desk.Find(kMenu) != nullptr && desk.Find(kMenu) != file; });
  PostMessageW(desk.main(), WM_CHAR, L'p', 0);
  desk.Await([&] { return desk.Find(kSystemDialog) != nullptr; });
}

// What the keys set is kept as well.
TEST_F(HandsAndEars, TheWindowComesBackAtItsLargestWhereItWas) {
  for (int start = 0; start < 2; ++start) {
    desk.Start("");
    if (start == 0) ShowWindow(desk.main(), SW_MAXIMIZE);
    desk.Await([&] { return IsZoomed(desk.main()) != FALSE; });
    const HWND quality = Part(L"JPEG quality");
    PostMessageW(quality, WM_KEYDOWN, start == 0 ? VK_HOME : VK_RIGHT, 0);
    desk.Await([&] { return HearOf(quality).value == (start == 0 ? L"0" : L"1"); });
    const RECT place = PlaceOf(desk.main());
    std::string bounds = "\r\n1";
    for (const LONG number :
         {place.left, place.top, place.right - place.left, place.bottom - place.top}) {
      bounds += "\r\n" + std::to_string(number);
    }
    desk.Close();
    desk.AwaitEnd();
    const std::string kept = desk.folder.Read("TarnwellPocket.ini");
    EXPECT_TRUE(kept.ends_with(bounds + "\r\n")) << bounds << " in " << kept;
    // Value 1 has its knob at 2; the noise threshold at its default follows.
    const char* slider = start == 0 ? "\r\n0\r\n0\r\n72\r\n40\r\n" : "\r\n2\r\n1\r\n72\r\n40\r\n";
    EXPECT_NE(kept.find(slider), std::string::npos) << kept;
  }
}

}  // namespace
}  // namespace tarnwell
