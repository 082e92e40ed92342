// Brings up every window of the program, light and dark, at two scales: nothing in it is cut off,
// everything has a name, and each leaves a screenshot to look at.

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/ui/win32/desk.h"

namespace tarnwell {
namespace {

struct Appearance {
  const wchar_t* scale;
  const wchar_t* theme;
};

class EveryWindow : public testing::TestWithParam<Appearance> {
 protected:
  EveryWindow() { SetEnvironmentVariableW(L"TARNWELL_THEME", GetParam().theme); }
  ~EveryWindow() override { SetEnvironmentVariableW(L"TARNWELL_THEME", nullptr); }

  std::string Named(const std::string& name) const {
    return name + " " + Narrowed(GetParam().theme) + " " + Narrowed(GetParam().scale);
  }

  // Every part that is shown has a name and lies whole in the window around it; a scrolled panel
  // holds more than it shows.
  void LookAt(HWND window, const std::string& name) {
    Screenshot(window, Named(name));
    for (const HWND child : ChildrenOf(window)) {
      if (!IsWindowVisible(child)) continue;
      const RECT part = PlaceOf(child);
      RECT around = {};
      GetClientRect(GetParent(child), &around);
      MapWindowPoints(GetParent(child), nullptr, reinterpret_cast<POINT*>(&around), 2);
      const std::string text = name + ": " + Narrowed(TextOf(child));
      EXPECT_TRUE(part.left >= around.left && part.right <= around.right) << text;
      EXPECT_TRUE(TextOf(child) == L"Modules" ||
                  (part.top >= around.top && part.bottom <= around.bottom))
          << text;
      wchar_t class_name[32] = {};
      GetClassNameW(child, class_name, 32);
      // A field's text is what stands in it; its name is the label before it.
      EXPECT_TRUE(lstrcmpiW(class_name, L"Edit") == 0 || !TextOf(child).empty()) << text;
    }
  }
  // A dialog by its title, which is looked at and put away.
  void LookAtDialog(const std::wstring& title, const std::string& name, UINT message = WM_COMMAND) {
    HWND dialog = nullptr;
    desk.Await([&] { return (dialog = desk.Dialog(title)) != nullptr; });
    LookAt(dialog, name);
    PostMessageW(dialog, message, message == WM_COMMAND ? IDCANCEL : 0, 0);
    desk.Await([&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
  }
  // A row of a menu by its letter, after a picture of the menu.
  void ChooseRow(const wchar_t* menu, wchar_t letter, const std::string& picture) {
    Click(desk.Control(menu));
    desk.Await([&] { return desk.Find(kMenu) != nullptr; });
    Screenshot(desk.Find(kMenu), Named(picture));
    PostMessageW(desk.main(), WM_CHAR, letter, 0);
    desk.Await([&] { return desk.Find(kMenu) == nullptr; });
  }
  Desk desk{GetParam().scale};
};

TEST_P(EveryWindow, IsWholeAndNamed) {
  desk.Start("");
  desk.Await([&] { return desk.Control(L"Do not show &any tips", kDialog) != nullptr; });
  Click(desk.Control(L"Do not show &any tips", kDialog));
  LookAtDialog(L"Tips", "tips");
  LookAt(desk.main(), "main without a photo");
  desk.ChoosePhoto(desk.folder.Write("valley.bmp", Landscape(1200, 900)));
  desk.AwaitEnabled(L"Preview");
  desk.CorrectPreview();
  desk.Await([&] { return !desk.Find(kDialog); });
  LookAt(desk.main(), "main");

  desk.OpenModule(L"Smart White Balance", L"Reference white");
  desk.OpenModule(L"Adjust Hue", L"Hue");
  desk.OpenModule(L"Rotation", L"Turn clockwise");
  LookAt(desk.main(), "main with more modules");

  ChooseRow(L"&Help", L'a', "help menu");
  LookAtDialog(L"About Tarnwell Pocket", "about");
  ChooseRow(L"O&ptions", L'p', "options menu");
  LookAtDialog(L"Photo Open Mode", "photo open mode");
  Click(desk.Control(L"New..."));
  LookAtDialog(L"New Camera", "new camera");
  Click(desk.Control(L"Manage..."));
  LookAtDialog(L"Manage Skin Tones", "skin tones");
  Click(desk.Control(L"Save White Balance Setting"));
  LookAtDialog(L"Save White Balance Setting", "save white balance");
  Click(desk.Control(L"White pixel of the photo"));
  LookAtDialog(L"Zoom", "zoom to pick white", WM_CLOSE);
  desk.Close();
  desk.Answer(L"valley.bmp?", IDNO);
  desk.AwaitEnd();
}

// Where parts lie does not depend on their colours, nor colours on the scale: TARNWELL_LOOKS=all
// takes the pictures that two looks leave out.
std::vector<Appearance> Looks() {
  std::vector<Appearance> looks = {{L"100", L"light"}, {L"200", L"dark"}};
  if (std::getenv("TARNWELL_LOOKS")) {
    looks.insert(looks.end(), {{L"100", L"dark"}, {L"200", L"light"}});
  }
  return looks;
}

INSTANTIATE_TEST_SUITE_P(Looks, EveryWindow, testing::ValuesIn(Looks()));

}  // namespace
}  // namespace tarnwell
