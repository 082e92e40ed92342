#include <gtest/gtest.h>
#include <string>

#include "tests/support/tiny_pictures.h"
#include "tests/ui/win32/program.h"

namespace tarnwell {
namespace {

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

// A key press reaches the menu's row: without a help page beside the program F1 says so. Esc leaves
// the menus and never the program.
TEST(MainWindow, KeysOfTheMenusWork) {
  Program program(L"100");
  ASSERT_TRUE(program.Start(""));
  ASSERT_TRUE(WaitFor([&] { return program.Control(L"Brightness") != nullptr; }));
  const HWND window = program.Find(L"TarnwellPocket");
  PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageW(window, WM_KEYDOWN, VK_F1, 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") != nullptr; }));
  PostMessageW(program.Find(L"#32770"), WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") == nullptr; }));

  // From File with the right arrow to Edit, where P pastes: the clipboard holds no picture.
  OpenClipboard(nullptr);
  EmptyClipboard();
  CloseClipboard();
  Click(program.Control(L"&File"));
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32768") != nullptr; }));
  const HWND file = program.Find(L"#32768");
  PostMessageW(window, WM_KEYDOWN, VK_RIGHT, 0);
  ASSERT_TRUE(WaitFor([&] {
    const HWND menu = program.Find(L"#32768");
    return menu != nullptr && menu != file;
  }));
  PostMessageW(window, WM_CHAR, L'p', 0);
  ASSERT_TRUE(WaitFor([&] { return program.Find(L"#32770") != nullptr; }));
}

TEST(MainWindow, ComesBackAtItsLargestWhereItWas) {
  Program program(L"100");
  std::string bounds;
  for (int start = 0; start < 2; ++start) {
    ASSERT_TRUE(program.Start(""));
    ASSERT_TRUE(WaitFor([&] { return program.Find(L"TarnwellPocket") != nullptr; }));
    const HWND window = program.Find(L"TarnwellPocket");
    if (start == 0) ShowWindow(window, SW_MAXIMIZE);
    ASSERT_TRUE(WaitFor([&] { return IsZoomed(window) != FALSE; }));
    RECT rect = {};
    GetWindowRect(window, &rect);
    bounds = "\r\n1";
    for (const LONG number :
         {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top}) {
      bounds += "\r\n" + std::to_string(number);
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    DWORD code = STILL_ACTIVE;
    ASSERT_TRUE(WaitFor([&] { return program.Ended(code); }));
    const std::string kept = program.folder.Read("TarnwellPocket.ini");
    EXPECT_TRUE(kept.ends_with(bounds + "\r\n")) << bounds << " in " << kept;
  }
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
