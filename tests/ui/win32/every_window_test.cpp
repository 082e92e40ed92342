// Brings up every window of the program, light and dark, at several scales: nothing in it is cut
// off, everything has a name, and each leaves a screenshot to look at.

#include <gtest/gtest.h>
#include <string>

#include "tests/ui/win32/desk.h"

namespace tarnwell {
namespace {

struct Appearance {
  const wchar_t* scale;
  const wchar_t* theme;
};

class EveryWindow : public testing::TestWithParam<Appearance> {
 protected:
  void SetUp() override {
    SetEnvironmentVariableW(L"TARNWELL_THEME", GetParam().theme);
    desk = std::make_unique<Desk>(GetParam().scale);
  }
  void TearDown() override { SetEnvironmentVariableW(L"TARNWELL_THEME", nullptr); }

  std::string Named(const std::string& name) const {
    return name + " " + Desk::Narrowed(GetParam().theme) + " " + Desk::Narrowed(GetParam().scale);
  }

  // Every part that is shown has a name and lies whole in the window around it; a scrolled panel
  // holds more than it shows.
  void LookAt(HWND window, const std::string& name) {
    ASSERT_TRUE(window) << name;
    Screenshot(window, Named(name));
    for (const HWND child : ChildrenOf(window)) {
      if (!IsWindowVisible(child)) continue;
      RECT part = {}, around = {};
      GetWindowRect(child, &part);
      GetClientRect(GetParent(child), &around);
      MapWindowPoints(GetParent(child), nullptr, reinterpret_cast<POINT*>(&around), 2);
      const std::string text = name + ": " + Desk::Narrowed(TextOf(child));
      EXPECT_GE(part.left, around.left) << text;
      EXPECT_LE(part.right, around.right) << text;
      if (TextOf(child) != L"Modules") {
        EXPECT_GE(part.top, around.top) << text;
        EXPECT_LE(part.bottom, around.bottom) << text;
      }
      wchar_t class_name[32] = {};
      GetClassNameW(child, class_name, 32);
      // A field's text is what stands in it; its name is the label before it.
      EXPECT_TRUE(lstrcmpiW(class_name, L"Edit") == 0 || !TextOf(child).empty()) << text;
    }
  }
  HWND Dialog(const std::wstring& title) {
    HWND found = nullptr;
    EXPECT_TRUE(WaitFor([&] { return (found = desk->Dialog(title)) != nullptr; }))
        << Desk::Narrowed(title);
    return found;
  }
  void Dismiss(HWND dialog) {
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }));
  }
  // A row of a menu by its letter, after a picture of the menu.
  void ChooseRow(const wchar_t* menu, wchar_t letter, const std::string& picture) {
    Click(desk->Control(menu));
    ASSERT_TRUE(WaitFor([&] { return desk->Find(L"#32768") != nullptr; }));
    Screenshot(desk->Find(L"#32768"), Named(picture));
    PostMessageW(desk->main(), WM_CHAR, letter, 0);
    ASSERT_TRUE(WaitFor([&] { return desk->Find(L"#32768") == nullptr; }));
  }
  std::unique_ptr<Desk> desk;
};

TEST_P(EveryWindow, IsWholeAndNamed) {
  desk->StartWith("", L"Tarnwell Pocket");
  if (const HWND tip = Dialog(L"Tips")) {
    LookAt(tip, "tips");
    Click(desk->Control(L"Do not show &any tips", kDialog));
    Dismiss(tip);
  }
  LookAt(desk->main(), "main without a photo");
  desk->PressAlt('O');
  desk->ChooseFile(L"Open Photo", desk->folder.Write("valley.bmp", Landscape(1200, 900)));
  desk->WaitEnabled(L"Preview");
  desk->Press(L"Preview");
  ASSERT_TRUE(WaitFor(
      [&] { return desk->Says(desk->main(), L"corrected, not saved") && !desk->Find(kDialog); }));
  LookAt(desk->main(), "main");

  desk->OpenModule(L"Smart White Balance", L"Reference white");
  desk->OpenModule(L"Adjust Hue", L"Hue");
  desk->OpenModule(L"Rotation", L"Turn clockwise");
  LookAt(desk->main(), "main with more modules");

  ChooseRow(L"&Help", L'a', "help menu");
  const HWND about = Dialog(L"About Tarnwell Pocket");
  LookAt(about, "about");
  Dismiss(about);
  ChooseRow(L"O&ptions", L'p', "options menu");
  const HWND open_mode = Dialog(L"Photo Open Mode");
  LookAt(open_mode, "photo open mode");
  Dismiss(open_mode);
  Click(desk->Control(L"New..."));
  const HWND camera = Dialog(L"New Camera");
  LookAt(camera, "new camera");
  Dismiss(camera);
  Click(desk->Control(L"Manage..."));
  const HWND skin = Dialog(L"Manage Skin Tones");
  LookAt(skin, "skin tones");
  Dismiss(skin);
  Click(desk->Control(L"Save White Balance Setting"));
  const HWND white = Dialog(L"Save White Balance Setting");
  LookAt(white, "save white balance");
  Dismiss(white);

  Click(desk->Control(L"White pixel of the photo"));
  const HWND zoom = Dialog(L"Zoom");
  LookAt(zoom, "zoom to pick white");
  PostMessageW(zoom, WM_CLOSE, 0, 0);
  desk->Close();
  desk->Answer(L"valley.bmp?", IDNO);
  desk->WaitForEnd();
}

INSTANTIATE_TEST_SUITE_P(Looks, EveryWindow,
                         testing::Values(Appearance{L"100", L"light"}, Appearance{L"200", L"light"},
                                         Appearance{L"100", L"dark"}, Appearance{L"150", L"dark"},
                                         Appearance{L"200", L"dark"}));

}  // namespace
}  // namespace tarnwell
