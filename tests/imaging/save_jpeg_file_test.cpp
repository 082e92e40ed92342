#include "imaging/save_jpeg_file.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "imaging/cdib_section.h"
#include "imaging/jpeg_library.h"
#include "tests/support/pictures.h"
#include "tests/support/scripted_dialogs.h"

namespace tarnwell {
namespace {

// A JPEG library that remembers its calls, and sets a field of its own at the start.
class RecordingLibrary : public JpegLibrary {
 public:
  int init_code = 0;
  int write_code = 0;
  std::vector<std::string> calls;
  bool cleared = false;  // the record came to ijlInit with every byte 0
  JPEG_CORE_PROPERTIES written;
  std::string written_path;  // read up to its zero byte while ijlWrite runs

  int ijlInit(JPEG_CORE_PROPERTIES* record) override {
    calls.push_back("ijlInit");
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(record);
    cleared = std::all_of(bytes, bytes + sizeof *record, [](std::uint8_t b) { return b == 0; });
    record->jprops[19999] = 23;
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

  bool Save(int width, int quality) {
    section.CreateFromPicture(RandomPixels(width, 4)->view());
    return SaveJpegFile(section, "C:\\P\\a.jpg", quality, library, dialogs, "Title");
  }
  cDIBSection section;
};

TEST_F(SaveJpegFileTest, FillsItsFieldsAndLeavesTheOthersToTheLibrary) {
  const int pad_bytes[] = {1, 2, 3, 0, 1, 2, 3, 0, 1};  // widths 1 to 9
  for (int width = 1; width <= 9; ++width) {
    SCOPED_TRACE(width);
    ASSERT_TRUE(Save(width, 10 * width));
    EXPECT_TRUE(library.cleared);
    EXPECT_EQ(library.written_path, "8-bit C:\\P\\a.jpg");

    JPEG_CORE_PROPERTIES expected;
    std::memset(&expected, 0, sizeof expected);
    expected.jprops[19999] = 23;
    expected.DIBBytes = section.DIBSectionBitsPtr();
    expected.DIBWidth = expected.JPGWidth = width;
    expected.DIBHeight = -4;
    expected.DIBPadBytes = pad_bytes[width - 1];
    expected.JPGHeight = 4;
    expected.jquality = 10 * width;
    library.written.JPGFile = nullptr;
    EXPECT_EQ(std::memcmp(&library.written, &expected, sizeof expected), 0);
  }
}

TEST_F(SaveJpegFileTest, TheLibraryIsReleasedOnceItHasStarted) {
  for (const int code : {0, 1, -1}) {
    library.calls.clear();
    library.write_code = code;
    EXPECT_EQ(Save(5, 80), code == 0);
    EXPECT_EQ(library.calls, (std::vector<std::string>{"ijlInit", "ijlWrite 8", "ijlFree"}));
    EXPECT_TRUE(dialogs.shown.empty());
  }
  library.calls.clear();
  library.init_code = -7;
  EXPECT_FALSE(Save(5, 80));
  EXPECT_EQ(library.calls, std::vector<std::string>{"ijlInit"});
  EXPECT_EQ(dialogs.Told(), std::vector<std::string>{"Failed to initialise the IJL library: -7"});
}

}  // namespace
}  // namespace tarnwell
