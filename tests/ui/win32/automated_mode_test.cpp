#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>
#include <string>

#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/ui/win32/desk.h"

namespace tarnwell {
namespace {

void WriteSetup(const Desk& desk) {
  std::string setup;
  for (const char* name : {"in", "out", "done"}) setup += desk.folder.MakeFolder(name) + "\\\r\n";
  desk.folder.Write("autosetup.ini", setup);
}

// From the main window's menu, whose choice comes as a press of the keys.
void StartMode(Desk& desk) {
  desk.Start("");
  desk.DismissTip();
  // The last entries of the Tools menu are the mode and its setup.
  Click(desk.Control(L"&Tools"));
  const HWND window = desk.main();
  desk.Await([&] { return desk.Find(kMenu) != nullptr; });
  for (const WPARAM key : {VK_UP, VK_UP, VK_RETURN}) PostMessageW(window, WM_KEYDOWN, key, 0);
  desk.Await([&] { return Says(desk.Find(kDialog), L"Watching for images in:"); });
}

// Photos arrive, are corrected and moved, one is damaged; then the program is closed.
TEST(AutomatedModeWindow, CorrectsWhatArrivesUntilTheProgramIsClosed) {
  Desk desk;
  WriteSetup(desk);
  StartMode(desk);
  EXPECT_EQ(TextOf(desk.Find(kDialog)), L" Fully Automated Mode Running");
  EXPECT_EQ(desk.main(), nullptr) << "the main window makes way";

  desk.folder.Write("in\\a.jpg", kBaselineJpeg);
  desk.folder.Write("in\\bad.jpg", "no photo");
  desk.Await([&] { return desk.folder.Holds("done\\a.jpg"); });
  desk.Await([&] { return Says(desk.Find(kDialog), L"bad.jpg: "); });
  EXPECT_TRUE(desk.folder.Holds("out\\a.jpg"));
  EXPECT_TRUE(desk.folder.Holds("in\\bad.jpg"));
  EXPECT_EQ(desk.Find(kSystemDialog), nullptr) << "a box holds up the mode";

  // A taskbar that is made anew is told of the icon, and the mode goes on.
  const HWND tray = FindWindowW(L"TarnwellTray", nullptr);
  ASSERT_TRUE(tray);
  SendMessageW(tray, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  desk.folder.Write("in\\a.jpg", kBaselineJpeg);
  desk.Await([&] { return desk.folder.Holds("done\\a~1.jpg"); });
  EXPECT_TRUE(desk.folder.Holds("out\\a~1.jpg"));
  desk.Close();
  desk.AwaitEnd();
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
// output is cut short or replaced. TARNWELL_WINDOW_KILLS: how many times (1); TARNWELL_SEED: where
// the instants start, as a failure told it.
TEST(AutomatedModeWindow, KilledAtRandomInstantsItLosesNothing) {
  const char* wanted = std::getenv("TARNWELL_WINDOW_KILLS");
  const int kills = wanted ? std::atoi(wanted) : 1;
  Desk desk;
  WriteSetup(desk);
  const TempFolder& folder = desk.folder;
  const auto codec = MakeSystemPictureCodec();
  const char* told = std::getenv("TARNWELL_SEED");
  const auto seed = told ? std::strtoul(told, nullptr, 10) : GetTickCount();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::map<std::string, std::string> photos, outputs;
  for (int kill = 0; kill <= kills; ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    while (folder.Names("in").size() < 10) {
      const std::string name = "p" + std::to_string(photos.size()) + ".jpg";
      const auto photo = NoisyPicture(400, 300, static_cast<unsigned>(photos.size()));
      ASSERT_TRUE(codec->SaveBitmap(folder.File("in\\" + name), photo->view()).ok());
      photos[name] = folder.Read("in\\" + name);
    }
    StartMode(desk);
    if (kill < kills) {
      desk.Await([&] { return FilesIn(folder, "out").size() > outputs.size(); });
      Sleep(random() % 500);
    } else {
      desk.Await([&] { return folder.Names("in").empty(); });
    }
    desk.Kill();

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
