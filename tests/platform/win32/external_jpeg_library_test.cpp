#include "platform/win32/external_jpeg_library.h"

#include <gtest/gtest.h>
#include <memory>
#include <windows.h>

namespace tarnwell {
namespace {

// The fake libraries lie beside the test program, where a name alone is looked for.
constexpr const wchar_t* kComplete = L"fake_jpeg_complete.dll";
constexpr const wchar_t* kIncomplete = L"fake_jpeg_incomplete.dll";
const std::string kCyrillic = "C:\\\xD1\x84\xD0\xBE\xD1\x82\xD0\xBE.jpg";

TEST(ExternalJpegLibraryTest, CallsReachTheLibraryWithTheirArguments) {
  const std::unique_ptr<JpegLibrary> library = BindExternalJpegLibrary(kComplete);
  ASSERT_NE(library, nullptr);
  const auto record = std::make_unique<JPEG_CORE_PROPERTIES>();
  EXPECT_EQ(library->ijlInit(record.get()), 0);
  EXPECT_EQ(record->jquality, 42);
  record->JPGWidth = 7;
  EXPECT_EQ(library->ijlWrite(record.get(), kWriteWholeFile), 708);
  EXPECT_EQ(library->ijlFree(record.get()), 0);
  EXPECT_EQ(record->jquality, 0);
}

TEST(ExternalJpegLibraryTest, PathsGoThroughTheCodePage) {
  const std::unique_ptr<JpegLibrary> library = BindExternalJpegLibrary(kComplete);
  ASSERT_NE(library, nullptr);
  EXPECT_EQ(library->EncodePath("C:\\P\\a.jpg"), "C:\\P\\a.jpg");
  // Four letters of one byte each where the code page is an 8-bit one, whatever it makes of them.
  const std::size_t letter = GetACP() == CP_UTF8 ? 2 : 1;
  EXPECT_EQ(library->EncodePath(kCyrillic).size(), 3 + 4 * letter + 4);
}

TEST(ExternalJpegLibraryTest, IsChosenOnlyWhereItsRecordFits) {
  // The program's own encoder takes paths as they are; the fake one sets a quality of 42.
  for (const wchar_t* file : {kComplete, kIncomplete, L"no such library.dll"}) {
    const std::unique_ptr<JpegLibrary> library = ChooseJpegLibrary(file);
    ASSERT_NE(library, nullptr);
    const auto record = std::make_unique<JPEG_CORE_PROPERTIES>();
    EXPECT_EQ(library->ijlInit(record.get()), 0);
    const bool external = sizeof(void*) == 4 && file == kComplete;
    EXPECT_EQ(record->jquality, external ? 42 : 75);
    if (!external) {
      EXPECT_EQ(library->EncodePath(kCyrillic), kCyrillic);
    }
  }
}

}  // namespace
}  // namespace tarnwell
