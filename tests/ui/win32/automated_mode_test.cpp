#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/tiny_pictures.h"
#include "tests/ui/win32/program.h"

namespace tarnwell {
namespace {

constexpr wchar_t kDialog[] = L"TarnwellDialog";
constexpr wchar_t kMain[] = L"TarnwellPocket";

bool Says(const Program& program, const std::wstring& text) {
  const auto children = ChildrenOf(program.Find(kDialog));
  return std::any_of(children.begin(), children.end(),
                     [&](HWND child) { return TextOf(child).find(text) != std::wstring::npos; });
}

// Set up by its file, started from the main window's menu, whose choice comes as a press of the
// keys; photos arrive, are corrected and moved, one is damaged; then the program is closed.
TEST(AutomatedModeWindow, CorrectsWhatArrivesUntilTheProgramIsClosed) {
  Program program(L"100");
  std::string setup;
  for (const char* name : {"in", "out", "done"}) {
    setup += program.folder.MakeFolder(name) + "\\\r\n";
  }
  program.folder.Write("autosetup.ini", setup);
  ASSERT_TRUE(program.Start(""));
  ASSERT_TRUE(WaitFor([&] { return program.Find(kMain) && program.Find(kDialog); }));
  PostMessageW(program.Find(kDialog), WM_CLOSE, 0, 0);  // the start-up tip
  ASSERT_TRUE(WaitFor([&] { return !program.Find(kDialog); }));

  // The last entries of the Tools menu are the mode and its setup.
  Click(program.Control(L"&Tools"));
  const HWND window = program.Find(kMain);
  ASSERT_TRUE(WaitFor([&] { return FindWindowW(L"#32768", nullptr) != nullptr; }));
  for (const WPARAM key : {VK_UP, VK_UP, VK_RETURN}) PostMessageW(window, WM_KEYDOWN, key, 0);
  ASSERT_TRUE(WaitFor([&] { return Says(program, L"Watching for images in:"); }));
  EXPECT_EQ(TextOf(program.Find(kDialog)), L" Fully Automated Mode Running");
  EXPECT_EQ(program.Find(kMain), nullptr) << "the main window makes way";

  program.folder.Write("in\\a.jpg", kBaselineJpeg);
  program.folder.Write("in\\bad.jpg", "no photo");
  ASSERT_TRUE(WaitFor([&] { return program.folder.Holds("done\\a.jpg"); }));
  ASSERT_TRUE(WaitFor([&] { return Says(program, L"bad.jpg: "); }));
  EXPECT_TRUE(program.folder.Holds("out\\a.jpg"));
  EXPECT_TRUE(program.folder.Holds("in\\bad.jpg"));
  EXPECT_EQ(program.Find(L"#32770"), nullptr) << "a box holds up the mode";

  // A taskbar that is made anew is told of the icon, and the mode goes on.
  const HWND tray = FindWindowW(L"TarnwellTray", nullptr);
  ASSERT_TRUE(tray);
  SendMessageW(tray, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  program.folder.Write("in\\a.jpg", kBaselineJpeg);
  ASSERT_TRUE(WaitFor([&] { return program.folder.Holds("done\\a~1.jpg"); }));
  EXPECT_TRUE(program.folder.Holds("out\\a~1.jpg"));

  PostMessageW(window, WM_CLOSE, 0, 0);
  DWORD code = STILL_ACTIVE;
  ASSERT_TRUE(WaitFor([&] { return program.Ended(code); }));
  EXPECT_EQ(code, 0u);
}

}  // namespace
}  // namespace tarnwell
