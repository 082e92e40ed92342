// Works the program through whole tasks, as a person would: what stands in its windows and what
// lies in its folders afterwards is looked at. On the way each window leaves a screenshot.

#include <gtest/gtest.h>
#include <string>

#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/ui/win32/desk.h"

namespace tarnwell {
namespace {

TEST(DrivenProgram, OpensAdjustsAndSavesAPhoto) {
  Desk desk;
  const std::string photo = desk.folder.Write("Sommer \xD0\xAF.bmp", Landscape(800, 600));
  const std::string broken = desk.folder.Write("broken.jpg", kBaselineJpeg.substr(0, 200));
  desk.Start("");
  desk.ChoosePhoto(photo, "open photo");
  desk.Await([&] { return desk.TitleBegins(L"Sommer \x042F.bmp - Tarnwell"); });

  // What cannot be read is named, with the reason, and the photo that is open stays.
  desk.ChoosePhoto(broken);
  desk.Answer(L"broken.jpg: ", IDOK, "unreadable photo");
  EXPECT_TRUE(desk.TitleBegins(L"Sommer"));

  desk.CorrectPreview();
  desk.PressAlt('S');
  desk.Answer(
      L"You have not yet applied your changes to the full photo, would you like to do that "
      L"now?\r\rClick Yes to adjust full photo, or No to save the adjusted thumbnail",
      IDYES, "not applied");
  const std::wstring saved =
      L"Sommer \x042F"
      L"A.bmp";
  desk.Await([&] { return desk.TitleBegins(saved + L" - Tarnwell"); });
  // 54 bytes before 800 x 600 pixels of three.
  EXPECT_EQ(desk.folder.Read(Narrowed(saved)).size(), 54u + 800 * 600 * 3);
  desk.Close();
  desk.AwaitEnd();
}

TEST(DrivenProgram, ACancelledCorrectionLeavesThePhotoAsItWas) {
  Desk desk;
  // Extended noise over many colours takes minutes: no machine is through before Cancel is pressed.
  desk.folder.Write("powertoys.ini", "-1\r\n0\r\n");
  const std::string photo = desk.folder.File("a.bmp");
  ASSERT_TRUE(
      MakeSystemPictureCodec()->SaveBitmap(photo, NoisyPicture(2000, 1500, 1)->view()).ok());
  desk.Start(photo, L"a.bmp");
  desk.OpenModule(L"Noise Reduction", L"Noise radius");
  desk.Press(L"Adjust");
  HWND progress = nullptr;
  desk.Await([&] {
    progress = desk.Find(kDialog);
    return progress && Says(progress, L"Adjusting Photo...");
  });
  Screenshot(progress, "progress");
  Click(desk.Control(L"&Cancel", kDialog));
  desk.Await([&] { return !IsWindowVisible(progress) && IsWindowEnabled(desk.main()); });
  EXPECT_FALSE(Says(desk.main(), L"corrected, not saved"));
  desk.Close();
  desk.AwaitEnd();
}

TEST(DrivenProgram, ASecondProgramHandsItsPhotoOverAndEnds) {
  Desk first;
  first.Start(first.folder.Write("one.jpg", kBaselineJpeg), L"one.jpg");
  PROCESS_INFORMATION second = {};
  first.Launch(first.folder.Write("two words.jpg", kBaselineJpeg), second);
  EXPECT_EQ(WaitForSingleObject(second.hProcess, kDeadlineMilliseconds), WAIT_OBJECT_0);
  CloseHandle(second.hThread);
  CloseHandle(second.hProcess);
  first.Await([&] { return first.TitleBegins(L"two words.jpg - Tarnwell"); });
  EXPECT_FALSE(first.folder.Holds("queue.ini"));
}

// A bitmap of one colour on the clipboard, taken and given as other programs do.
void PutOnClipboard(const Desk& desk, int width, int height) {
  desk.Await([] { return OpenClipboard(nullptr) != FALSE; });
  EmptyClipboard();
  const HDC screen = GetDC(nullptr);
  SetClipboardData(CF_BITMAP, CreateCompatibleBitmap(screen, width, height));
  ReleaseDC(nullptr, screen);
  CloseClipboard();
}

SIZE SizeOnClipboard() {
  BITMAP bitmap = {};
  if (!OpenClipboard(nullptr)) return {};
  if (const HANDLE picture = GetClipboardData(CF_BITMAP)) {
    GetObjectW(picture, sizeof(bitmap), &bitmap);
  }
  CloseClipboard();
  return {bitmap.bmWidth, bitmap.bmHeight};
}

TEST(DrivenProgram, CopiesAndPastesThroughTheClipboard) {
  Desk desk;
  desk.Start(desk.folder.Write("a.bmp", Landscape(640, 400)), L"a.bmp");
  for (const auto& [key, width, height] : {std::tuple{'C', 640, 400}, {'B', 320, 200}}) {
    desk.PressAlt(key);
    desk.Await([w = width, h = height] {
      const SIZE size = SizeOnClipboard();
      return size.cx == w && size.cy == h;
    });
  }
  PutOnClipboard(desk, 48, 36);
  desk.PressAlt('V');
  desk.AwaitWords(L"48 \x00D7 36 pixels");
  EXPECT_TRUE(Says(desk.main(), L"Unnamed Photo"));

  desk.CorrectPreview();
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to the current image?", IDNO);
  desk.AwaitEnd();
}

TEST(DrivenProgram, ClosingWithUnsavedChangesDoesAsItIsTold) {
  Desk desk;
  desk.Start(desk.folder.Write("a.jpg", kBaselineJpeg), L"a.jpg");
  desk.CorrectPreview();
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to a.jpg?", IDCANCEL, "unsaved changes");
  EXPECT_TRUE(IsWindowVisible(desk.main()));
  EXPECT_FALSE(desk.folder.Holds("aA.jpg"));
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to a.jpg?", IDYES);
  desk.AwaitEnd();
  EXPECT_EQ(desk.folder.Read("aA.jpg").substr(0, 2), "\xFF\xD8");
}

// The first start writes the manifest and starts anew; what it was to open is not opened.
TEST(DrivenProgram, TheFirstStartWritesItsManifestAndStartsAnew) {
  Desk desk;
  std::filesystem::remove(desk.folder.SystemPath("TarnwellPocket.exe.manifest"));
  PROCESS_INFORMATION first = {};
  desk.Launch(desk.folder.Write("a.jpg", kBaselineJpeg), first);
  EXPECT_EQ(WaitForSingleObject(first.hProcess, kDeadlineMilliseconds), WAIT_OBJECT_0);
  CloseHandle(first.hThread);
  CloseHandle(first.hProcess);
  const std::string manifest = desk.folder.Read("TarnwellPocket.exe.manifest");
  EXPECT_NE(manifest.find("<description>XP Style</description>\r\n"), std::string::npos);

  HWND window = nullptr;
  desk.Await([&] {
    window = FindWindowW(kMain, L"Tarnwell Pocket");
    return window && IsWindowVisible(window);
  });
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const HANDLE again = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, process);
  ASSERT_TRUE(again);
  EXPECT_FALSE(desk.folder.Holds("queue.ini"));
  desk.Close();
  EXPECT_EQ(WaitForSingleObject(again, kDeadlineMilliseconds), WAIT_OBJECT_0);
  TerminateProcess(again, 1);
  CloseHandle(again);
}

}  // namespace
}  // namespace tarnwell
