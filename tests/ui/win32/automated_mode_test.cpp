#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>
#include <string>

#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
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

void WriteSetup(Program& program) {
  std::string setup;
  for (const char* name : {"in", "out", "done"}) {
    setup += program.folder.MakeFolder(name) + "\\\r\n";
  }
  program.folder.Write("autosetup.ini", setup);
}

// From the main window's menu, whose choice comes as a press of the keys.
void StartMode(Program& program) {
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
}

// Photos arrive, are corrected and moved, one is damaged; then the program is closed.
TEST(AutomatedModeWindow, CorrectsWhatArrivesUntilTheProgramIsClosed) {
  Program program(L"100");
  WriteSetup(program);
  ASSERT_NO_FATAL_FAILURE(StartMode(program));
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

  PostMessageW(FindWindowW(kMain, nullptr), WM_CLOSE, 0, 0);
  DWORD code = STILL_ACTIVE;
  ASSERT_TRUE(WaitFor([&] { return program.Ended(code); }));
  EXPECT_EQ(code, 0u);
}

// What the folders hold, work in progress left away.
std::map<std::string, std::string> FilesIn(const TempFolder& folder, const std::string& name) {
  std::map<std::string, std::string> files;
  for (const std::string& file : folder.Names(name)) {
    if (!file.starts_with("~tp")) files[file] = folder.Read(name + "\\" + file);
  }
  return files;
}

// Killed while it corrects and saves, again and again over the same folders: no photo is lost, no
// output is cut short or replaced. TARNWELL_WINDOW_KILLS: how many times (2).
TEST(AutomatedModeWindow, KilledAtRandomInstantsItLosesNothing) {
  const char* wanted = std::getenv("TARNWELL_WINDOW_KILLS");
  const int kills = wanted ? std::atoi(wanted) : 2;
  Program program(L"100");
  WriteSetup(program);
  const TempFolder& folder = program.folder;
  const auto codec = MakeSystemPictureCodec();
  std::mt19937 random(static_cast<unsigned>(GetTickCount64()));
  std::map<std::string, std::string> photos, outputs;
  for (int kill = 0; kill <= kills; ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    while (folder.Names("in").size() < 10) {
      const std::string name = "p" + std::to_string(photos.size()) + ".jpg";
      const auto photo = NoisyPicture(400, 300, static_cast<unsigned>(photos.size()));
      ASSERT_TRUE(codec->SaveBitmap(folder.File("in\\" + name), photo->view()).ok());
      photos[name] = folder.Read("in\\" + name);
    }
    ASSERT_NO_FATAL_FAILURE(StartMode(program));
    if (kill < kills) {
      ASSERT_TRUE(WaitFor([&] { return FilesIn(folder, "out").size() > outputs.size(); }));
      Sleep(random() % 500);
    } else {
      ASSERT_TRUE(WaitFor([&] { return folder.Names("in").empty(); }));
    }
    program.Kill();

    auto kept = FilesIn(folder, "in");
    kept.merge(FilesIn(folder, "done"));
    ASSERT_TRUE(kept == photos) << "a photo is lost or changed";
    const auto now = FilesIn(folder, "out");
    for (const auto& [name, bytes] : outputs) {
      ASSERT_TRUE(now.contains(name) && now.at(name) == bytes) << name << " was replaced";
    }
    for (const auto& [name, bytes] : now) {
      ASSERT_TRUE(bytes.starts_with("\xFF\xD8") && bytes.ends_with("\xFF\xD9")) << name;
    }
    for (const std::string& name : folder.Names("done")) ASSERT_TRUE(now.contains(name)) << name;
    outputs = now;
  }
  for (const char* name : {"out", "done"}) {
    EXPECT_EQ(folder.Names(name).size(), FilesIn(folder, name).size()) << "strays were left";
  }
  std::cout << kills << " kills, " << photos.size() << " photos, " << outputs.size() - photos.size()
            << " outputs written once more\n";
}

}  // namespace
}  // namespace tarnwell
