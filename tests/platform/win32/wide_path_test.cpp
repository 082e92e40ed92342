#include "platform/win32/wide_path.h"

#include <gtest/gtest.h>

#include "platform/win32/utf16.h"

namespace tarnwell {
namespace {

TEST(Utf16Test, CarriesEveryScriptOverAndBack) {
  const struct {
    const char* utf8;
    const wchar_t* wide;
  } kCases[] = {
      {"", L""},
      {"a\\b.jpg", L"a\\b.jpg"},
      {"\xD1\x84", L"\x0444"},                // Cyrillic ef
      {"\xE6\xBC\xA2", L"\x6F22"},            // a Chinese character
      {"\xF0\x9F\x93\xB7", L"\xD83D\xDCF7"},  // a camera, two units
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(Utf8ToWide(c.utf8), c.wide) << c.utf8;
    EXPECT_EQ(WideToUtf8(c.wide), c.utf8) << c.utf8;
  }
}

TEST(Utf16Test, RefusesWhatIsNotWellFormed) {
  const char* const kBad[] = {"\xFF", "a\x80", "\xC3", "\xE6\xBC", "\xC0\xAF", "\xED\xA0\x80"};
  for (const char* text : kBad) EXPECT_EQ(Utf8ToWide(text), std::nullopt) << text;
  EXPECT_EQ(WideToUtf8(L"\xD83D"), std::nullopt) << "half a pair";
  EXPECT_EQ(WideToUtf8(L"\xDCF7\xD83D"), std::nullopt) << "a pair the wrong way round";
}

TEST(WidePathTest, TakesThePrefixFrom248CharactersOn) {
  const auto path_of = [](const std::string& start, std::size_t length) {
    return start + std::string(length - start.size(), 'x');
  };
  const auto prefix_of = [&](const std::string& start, std::size_t length) {
    const std::string path = path_of(start, length);
    const std::string wide = WideToUtf8(WidePath(path).value_or(L"")).value_or("");
    return wide.substr(0, wide.size() - std::min(wide.size(), std::size_t{200}));
  };
  EXPECT_EQ(WidePath(path_of("C:\\", 247)), Utf8ToWide(path_of("C:\\", 247)));
  EXPECT_EQ(WidePath(path_of("C:\\", 248)), Utf8ToWide("\\\\?\\" + path_of("C:\\", 248)));
  EXPECT_TRUE(prefix_of("\\\\server\\share\\", 300).starts_with("\\\\?\\UNC\\server\\share\\"));
  EXPECT_TRUE(prefix_of("sub\\", 247).starts_with("\\\\?\\")) << "long once it is absolute";
  EXPECT_TRUE(prefix_of("\\\\?\\C:\\", 300).starts_with("\\\\?\\C:\\")) << "has one already";
}

TEST(WidePathTest, DevicesAreNoFiles) {
  for (const char* path :
       {"NUL", "C:\\a\\nul", "con.jpg", "C:\\COM1", "lpt9.a.b", "aux .txt", "C:\\a\\conout$",
        "\\\\.\\COM1", "com\xC2\xB9.txt", "a.jpg:stream", "C:\\a.jpg:stream"}) {
    EXPECT_EQ(WidePath(path), std::nullopt) << path;
  }
  for (const char* path : {"C:\\null.jpg", "COM0", "COM10", "COM", "acon", "C:\\con\\a.jpg",
                           "C:", "C:a.jpg", "lpt", "a.con"}) {
    EXPECT_NE(WidePath(path), std::nullopt) << path;
  }
  EXPECT_EQ(WidePath(std::string("a\0b", 3)), std::nullopt);
}

}  // namespace
}  // namespace tarnwell
