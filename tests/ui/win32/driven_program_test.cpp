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
  Desk desk(L"100");
  const std::string photo = desk.folder.Write("Sommer \xD0\xAF.bmp", Landscape(800, 600));
  const std::string broken = desk.folder.Write("broken.jpg", kBaselineJpeg.substr(0, 200));
  desk.StartWith("", L"Tarnwell Pocket");

  desk.PressAlt('O');
  desk.ChooseFile(L"Open Photo", photo, "open photo");
  ASSERT_TRUE(WaitFor([&] { return desk.TitleBegins(L"Sommer \x042F.bmp - Tarnwell"); }));

  // What cannot be read is named, with the reason, and the photo that is open stays.
  desk.PressAlt('O');
  desk.ChooseFile(L"Open Photo", broken);
  desk.Answer(L"broken.jpg: ", IDOK, "unreadable photo");
  EXPECT_TRUE(desk.TitleBegins(L"Sommer"));

  desk.Press(L"Preview");
  ASSERT_TRUE(WaitFor([&] { return desk.Says(desk.main(), L"corrected, not saved"); }));
  desk.PressAlt('S');
  desk.Answer(
      L"You have not yet applied your changes to the full photo, would you like to do that "
      L"now?\r\rClick Yes to adjust full photo, or No to save the adjusted thumbnail",
      IDYES, "not applied");
  ASSERT_TRUE(WaitFor([&] {
    return desk.TitleBegins(
        L"Sommer \x042F"
        L"A.bmp - Tarnwell");
  }));
  // 54 bytes before 800 x 600 pixels of three.
  EXPECT_EQ(desk.folder
                .Read("Sommer \xD0\xAF"
                      "A.bmp")
                .size(),
            54u + 800 * 600 * 3);
  desk.Close();
  desk.WaitForEnd();
}

TEST(DrivenProgram, ACancelledCorrectionLeavesThePhotoAsItWas) {
  Desk desk(L"100");
  // Extended noise over many colours takes minutes: no machine is through before Cancel is pressed.
  desk.folder.Write("powertoys.ini", "-1\r\n0\r\n");
  const std::string photo = desk.folder.File("a.bmp");
  ASSERT_TRUE(
      MakeSystemPictureCodec()->SaveBitmap(photo, NoisyPicture(2000, 1500, 1)->view()).ok());
  desk.StartWith(photo, L"a.bmp");
  desk.OpenModule(L"Noise Reduction", L"Noise radius");
  desk.Press(L"Adjust");
  HWND progress = nullptr;
  ASSERT_TRUE(WaitFor([&] {
    progress = desk.Find(kDialog);
    return progress && desk.Says(progress, L"Adjusting Photo...");
  }));
  Screenshot(progress, "progress");
  Click(desk.Control(L"&Cancel", kDialog));
  ASSERT_TRUE(WaitFor([&] { return !IsWindowVisible(progress) && IsWindowEnabled(desk.main()); }));
  EXPECT_FALSE(desk.Says(desk.main(), L"corrected, not saved"));
  desk.Close();
  desk.WaitForEnd();
}

TEST(DrivenProgram, ASecondProgramHandsItsPhotoOverAndEnds) {
  Desk first(L"100");
  first.StartWith(first.folder.Write("one.jpg", kBaselineJpeg), L"one.jpg");
  const std::string other = first.folder.Write("two words.jpg", kBaselineJpeg);
  std::wstring words = L"\"" + *Utf8ToWide(first.folder.File("TarnwellPocket.exe")) + L"\" \"" +
                       *Utf8ToWide(other) + L"\"";
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION second = {};
  ASSERT_TRUE(CreateProcessW(nullptr, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &second));
  EXPECT_EQ(WaitForSingleObject(second.hProcess, kDeadlineMilliseconds), WAIT_OBJECT_0);
  CloseHandle(second.hThread);
  CloseHandle(second.hProcess);
  ASSERT_TRUE(WaitFor([&] { return first.TitleBegins(L"two words.jpg - Tarnwell"); }));
  EXPECT_FALSE(first.folder.Holds("queue.ini"));
}

// A bitmap of one colour on the clipboard, taken and given as other programs do.
void PutOnClipboard(int width, int height) {
  ASSERT_TRUE(WaitFor([] { return OpenClipboard(nullptr) != FALSE; }));
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
  Desk desk(L"100");
  desk.StartWith(desk.folder.Write("a.bmp", Landscape(640, 400)), L"a.bmp");
  desk.PressAlt('C');
  ASSERT_TRUE(WaitFor([] { return SizeOnClipboard().cx == 640 && SizeOnClipboard().cy == 400; }));
  desk.PressAlt('B');
  ASSERT_TRUE(WaitFor([] { return SizeOnClipboard().cx == 320 && SizeOnClipboard().cy == 200; }));

  PutOnClipboard(48, 36);
  desk.PressAlt('V');
  ASSERT_TRUE(WaitFor([&] { return desk.Says(desk.main(), L"48 \x00D7 36 pixels"); }));
  EXPECT_TRUE(desk.Says(desk.main(), L"Unnamed Photo"));

  desk.Press(L"Preview");
  ASSERT_TRUE(WaitFor([&] { return desk.Says(desk.main(), L"corrected, not saved"); }));
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to the current image?", IDNO);
  desk.WaitForEnd();
}

TEST(DrivenProgram, ClosingWithUnsavedChangesDoesAsItIsTold) {
  Desk desk(L"100");
  desk.StartWith(desk.folder.Write("a.jpg", kBaselineJpeg), L"a.jpg");
  desk.Press(L"Preview");
  ASSERT_TRUE(WaitFor([&] { return desk.Says(desk.main(), L"corrected, not saved"); }));
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to a.jpg?", IDCANCEL, "unsaved changes");
  EXPECT_TRUE(IsWindowVisible(desk.main()));
  EXPECT_FALSE(desk.folder.Holds("aA.jpg"));
  desk.Close();
  desk.Answer(L"Do you want to save the changes you made to a.jpg?", IDYES);
  desk.WaitForEnd();
  EXPECT_EQ(desk.folder.Read("aA.jpg").substr(0, 2), "\xFF\xD8");
}

// The first start writes the manifest and starts anew; what it was to open is not opened.
TEST(DrivenProgram, TheFirstStartWritesItsManifestAndStartsAnew) {
  Desk desk(L"100");
  std::filesystem::remove(desk.folder.SystemPath("TarnwellPocket.exe.manifest"));
  ASSERT_TRUE(desk.Start(desk.folder.Write("a.jpg", kBaselineJpeg)));
  desk.WaitForEnd();
  const std::string manifest = desk.folder.Read("TarnwellPocket.exe.manifest");
  EXPECT_NE(manifest.find("<description>XP Style</description>\r\n"), std::string::npos);

  HWND window = nullptr;
  ASSERT_TRUE(WaitFor([&] {
    window = FindWindowW(kMain, L"Tarnwell Pocket");
    return window && IsWindowVisible(window);
  }));
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const HANDLE again = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, process);
  ASSERT_TRUE(again);
  EXPECT_FALSE(desk.folder.Holds("queue.ini"));
  PostMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_EQ(WaitForSingleObject(again, kDeadlineMilliseconds), WAIT_OBJECT_0);
  TerminateProcess(again, 1);
  CloseHandle(again);
}

}  // namespace
}  // namespace tarnwell
