#pragma once

#include <array>
#include <string>
#include <windows.h>

#include "ui/look/box.h"
#include "ui/look/scale.h"
#include "ui/look/theme.h"

namespace tarnwell {

enum class Face { kBody, kStrong, kCaption, kTitle };
inline constexpr int kFaceCount = 4;

// The fonts of a window at one scale.
class Fonts {
 public:
  explicit Fonts(Scale scale);
  ~Fonts();
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  // Makes the fonts anew; the handles given before are void.
  void Rescale(Scale scale);
  HFONT Get(Face face) const { return fonts_[static_cast<int>(face)]; }

 private:
  void Release();
  std::array<HFONT, kFaceCount> fonts_ = {};
};

// How the windows on one screen look. Owned by a top-level window; its controls refer to it.
struct Look {
  explicit Look(Scale with_scale);

  Theme theme;
  Scale scale;
  Fonts fonts;
  bool show_focus = false;  // the keyboard was used last: the focus is drawn

  int Px(int size) const { return scale.Px(size); }
  void Rescale(Scale with_scale);
  void ReadTheme();  // after the system's setting has changed
};

// The scale that a window opened now would have, unless the environment forces one.
Scale StartScale();
// The scale of the screen that the window stands on.
Scale ScaleOf(HWND window);

SIZE TextSize(const Look& look, Face face, const std::wstring& text);

inline COLORREF ToColorRef(Colour colour) { return RGB(colour.red, colour.green, colour.blue); }
inline RECT ToRect(const Box& box) { return {box.x, box.y, box.right(), box.bottom()}; }
inline Box ToBox(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top),
          static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

// Makes the title bar of a top-level window follow the theme, where the system can.
void ThemeTitleBar(HWND window, const Theme& theme);

}  // namespace tarnwell
