#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "tests/support/bmp_builder.h"
#include "tests/support/tiny_pictures.h"
#include "tests/ui/win32/program.h"
#include "tests/ui/win32/screenshot.h"

namespace tarnwell {

inline constexpr wchar_t kMain[] = L"TarnwellPocket";
inline constexpr wchar_t kDialog[] = L"TarnwellDialog";
inline constexpr wchar_t kSystemDialog[] = L"#32770";

// A bitmap with gentle slopes in it, large enough to have a smaller preview.
inline std::string Landscape(int width, int height) {
  std::string pixels;
  for (int y = height; y-- > 0;) {
    for (int x = 0; x < width; ++x) {
      const int sky = y < height / 2 ? 90 : 0;
      pixels += static_cast<char>(60 + sky + 40 * x / width);
      pixels += static_cast<char>(70 + sky / 2 + 60 * y / height);
      pixels += static_cast<char>(80 + 70 * y / height);
    }
    pixels.append((4 - width * 3 % 4) % 4, '\0');
  }
  return BuildBmp({.width = width, .height = height, .data = pixels});
}

// Everything that can be read in a window, a line each.
inline std::wstring WordsIn(HWND window) {
  std::wstring words = TextOf(window);
  for (const HWND child : ChildrenOf(window)) {
    if (IsWindowVisible(child)) words += L"\n" + TextOf(child);
  }
  return words;
}

// A program at work, with what a person does to it. The steps end the test that they are used in
// when their state never comes.
struct Desk : Program {
  using Program::Program;

  HWND main() const { return Find(kMain); }
  // The shown window of this title beside the main one; null while there is none.
  HWND Dialog(const std::wstring& title) const {
    const HWND found = FindWindowW(kDialog, title.c_str());
    return found && IsWindowVisible(found) ? found : nullptr;
  }
  bool Says(HWND window, const std::wstring& words) const {
    return WordsIn(window).find(words) != std::wstring::npos;
  }
  bool TitleBegins(const std::wstring& name) const { return TextOf(main()).find(name) == 0; }

  void StartWith(const std::string& photo, const std::wstring& title) {
    ASSERT_TRUE(Start(photo));
    ASSERT_TRUE(WaitFor([&] { return main() != nullptr && TitleBegins(title); })) << TextOf(main());
    // A photo that is being opened has its name before it is there.
    if (!photo.empty()) WaitEnabled(L"Preview");
  }
  void WaitEnabled(const std::wstring& button) {
    ASSERT_TRUE(WaitFor([&] { return IsWindowEnabled(Control(button)) != FALSE; }));
  }
  void Press(const std::wstring& button) {
    WaitEnabled(button);
    Click(Control(button));
  }
  // `part` is one of the parts that the module shows while it is open.
  void OpenModule(const std::wstring& title, const std::wstring& part) {
    Click(Control(L"Open/ Close Module: " + title));
    ASSERT_TRUE(WaitFor([&] { return IsWindowVisible(Control(part)) != FALSE; }));
  }
  void PressAlt(char letter) { PostMessageW(main(), WM_SYSKEYDOWN, letter, 1 << 29); }

  // Answers the message box that says `words`, after a picture of it.
  void Answer(const std::wstring& words, int button, const std::string& picture = {}) {
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] {
      box = Find(kSystemDialog);
      return box && Says(box, words);
    })) << "nobody said: "
        << Narrowed(words);
    if (!picture.empty()) Screenshot(box, picture);
    PostMessageW(box, WM_COMMAND, button, 0);
    ASSERT_TRUE(WaitFor([&] { return !IsWindow(box) || !IsWindowVisible(box); }));
  }
  // Names a file in the system's file dialog of this title.
  void ChooseFile(const std::wstring& title, const std::string& path,
                  const std::string& picture = {}) {
    HWND dialog = nullptr, field = nullptr;
    ASSERT_TRUE(WaitFor([&] {
      dialog = Find(kSystemDialog);
      if (!dialog || TextOf(dialog) != title) return false;
      for (const HWND child : ChildrenOf(dialog)) {
        wchar_t name[16] = {};
        GetClassNameW(child, name, 16);
        if (IsWindowVisible(child) && lstrcmpiW(name, L"Edit") == 0) field = child;
      }
      return field != nullptr;
    }));
    if (!picture.empty()) Screenshot(dialog, picture);
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Utf8ToWide(path)->c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
  }
  void Close() { PostMessageW(main(), WM_CLOSE, 0, 0); }
  void WaitForEnd() {
    DWORD code = STILL_ACTIVE;
    ASSERT_TRUE(WaitFor([&] { return Ended(code); })) << "it asks: " << Asked();
    EXPECT_EQ(code, 0u);
  }
  // The wheel over a window's middle, by so many notches.
  void Wheel(HWND window, int notches) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    SetCursorPos((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    PostMessageW(main(), WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA),
                 MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2));
  }
  // What a message box says; empty while there is none.
  std::string Asked() const {
    const HWND box = Find(kSystemDialog);
    return box ? Narrowed(WordsIn(box)) : std::string();
  }
  static std::string Narrowed(const std::wstring& text) { return WideToUtf8(text).value_or("?"); }
};

}  // namespace tarnwell
