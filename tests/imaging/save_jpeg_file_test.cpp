#include "imaging/save_jpeg_file.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "imaging/cdib_section.h"
#include "imaging/jpeg_library.h"
#include "tests/support/pictures.h"
#include "tests/support/scripted_dialogs.h"

namespace tarnwell {
namespace {

// A JPEG library that remembers its calls. ijlInit sets some fields of its own, as a real one does.
class RecordingLibrary : public JpegLibrary {
 public:
  int init_code = 0;
  int write_code = 0;
  std::vector<std::string> calls;
  bool cleared = false;  // the record came to ijlInit with every byte 0
  std::optional<JPEG_CORE_PROPERTIES> written;
  std::string written_path;  // read up to its zero byte while ijlWrite runs

  static void SetOwnFields(JPEG_CORE_PROPERTIES& record) {
    record.DIBChannels = 3;
    record.DIBColor = 2;
    record.JPGChannels = 3;
    record.JPGColor = 3;
    record.JPGSubsampling = 1;
    record.cconversion_reqd = 1;
    record.jprops[0] = 17;
    record.jprops[19999] = 23;
  }

  int ijlInit(JPEG_CORE_PROPERTIES* record) override {
    calls.push_back("ijlInit");
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(record);
    cleared = std::all_of(bytes, bytes + sizeof *record, [](std::uint8_t b) { return b == 0; });
    SetOwnFields(*record);
    return init_code;
  }
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override {
    calls.push_back("ijlWrite " + std::to_string(mode));
    written = *record;
    written_path = record->JPGFile;
    return write_code;
  }
  int ijlFree(JPEG_CORE_PROPERTIES*) override {
    calls.push_back("ijlFree");
    return 0;
  }
  std::string EncodePath(const std::string& path) override { return "8-bit " + path; }
};

struct SaveJpegFileTest : testing::Test {
  RecordingLibrary library;
  ScriptedDialogs dialogs;

  bool Save(const cDIBSection& section, int quality = 80) {
    return SaveJpegFile(section, "C:\\Photos\\img_A.jpg", quality, library, dialogs, "Title");
  }
};

TEST_F(SaveJpegFileTest, FillsItsFieldsAndLeavesTheOthersToTheLibrary) {
  const int pad_bytes[] = {1, 2, 3, 0, 1, 2, 3, 0, 1};  // widths 1 to 9
  for (int width = 1; width <= 9; ++width) {
    SCOPED_TRACE(width);
    cDIBSection section;
    section.CreateFromPicture(RandomPixels(width, 4)->view());
    ASSERT_TRUE(Save(section, 10 * width));
    EXPECT_TRUE(library.cleared);
    EXPECT_EQ(library.written_path, "8-bit C:\\Photos\\img_A.jpg");

    JPEG_CORE_PROPERTIES expected;
    std::memset(&expected, 0, sizeof expected);
    RecordingLibrary::SetOwnFields(expected);
    expected.DIBBytes = section.DIBSectionBitsPtr();
    expected.DIBWidth = width;
    expected.DIBHeight = -4;
    expected.DIBPadBytes = pad_bytes[width - 1];
    expected.JPGWidth = width;
    expected.JPGHeight = 4;
    expected.jquality = 10 * width;
    ASSERT_TRUE(library.written);
    library.written->JPGFile = nullptr;
    EXPECT_EQ(std::memcmp(&*library.written, &expected, sizeof expected), 0);
  }
}

TEST_F(SaveJpegFileTest, TheLibraryIsReleasedOnceAfterEveryWriteAttempt) {
  const std::vector<std::string> all_calls = {"ijlInit", "ijlWrite 8", "ijlFree"};
  cDIBSection section;
  ASSERT_TRUE(section.Create(5, 4));
  for (const int code : {0, 1, -1}) {
    SCOPED_TRACE(code);
    library.calls.clear();
    library.write_code = code;
    EXPECT_EQ(Save(section), code == 0);
    EXPECT_EQ(library.calls, all_calls);
    EXPECT_TRUE(dialogs.shown.empty());
  }
}

TEST_F(SaveJpegFileTest, AFailedStartIsToldAndWritesNothing) {
  cDIBSection section;
  ASSERT_TRUE(section.Create(5, 4));
  library.init_code = -7;
  EXPECT_FALSE(Save(section));
  EXPECT_EQ(library.calls, std::vector<std::string>{"ijlInit"});
  const ScriptedDialogs::Shown expected = {ScriptedDialogs::Kind::kTell, "Title",
                                           "Failed to initialise the IJL library: -7",
                                           Icon::kExclamation};
  EXPECT_EQ(dialogs.shown, std::vector{expected});
}

TEST_F(SaveJpegFileTest, AnEmptySectionIsNotWritten) {
  EXPECT_FALSE(Save(cDIBSection()));
  EXPECT_TRUE(library.calls.empty());
}

}  // namespace
}  // namespace tarnwell
