#pragma once

#include <string>
#include <windows.h>

#include "imaging/colour_cube.h"
#include "ui/look.h"
#include "ui/look/icons.h"
#include "ui/look/shapes.h"

namespace tarnwell {

// Draws a part of a window into a buffer, and puts that on the screen when it ends, so that nothing
// flickers. Boxes are in the window's coordinates; what lies outside the part is left out.
class Painter {
 public:
  // Draws `area` of what `target` shows.
  Painter(HDC target, const Box& area, const Look& look);
  ~Painter();
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;

  const Look& look() const { return look_; }
  const Theme& theme() const { return look_.theme; }

  void Fill(const Box& box, Colour colour);
  void Round(const Box& box, double radius, Colour colour, double opacity = 1);
  void Outline(const Box& box, double radius, double width, Colour colour);
  void Disc(Point centre, double radius, Colour colour);
  void Ring(Point centre, double radius, double width, Colour colour);
  void Lines(std::span<const Line> lines, double width, Colour colour);
  void Icon(const Box& box, Glyph glyph, Colour colour);
  void ProgramIcon(const Box& box);
  void BusyIcon(const Box& box);
  void Image(const Box& box, const PixelView& picture);
  // The picture's pixels one to one, its left top corner at a point.
  void Copy(int x, int y, const PixelView& picture);
  // Converts what was drawn in `box` so far; null changes nothing.
  void Convert(const Box& box, const ColourCube* colours);

  // One line of text, cut off with dots where it is too long; `align` is DT_LEFT, DT_CENTER or
  // DT_RIGHT. An access key's "&" becomes an underline.
  void Text(const Box& box, const std::wstring& text, Face face, Colour colour,
            UINT align = DT_LEFT);
  // Text in as many lines as it takes. Returns their height.
  int Paragraph(const Box& box, const std::wstring& text, Face face, Colour colour);

  // The focus, as a ring around `box`.
  void Focus(const Box& box, double radius);

 private:
  // The buffer's pixels, after the text that is still under way.
  MutablePixelView Pixels();
  Box Here(const Box& box) const { return Moved(box, -area_.x, -area_.y); }
  Point Here(Point p) const { return {p.x - area_.x, p.y - area_.y}; }
  int Draw(const Box& box, const std::wstring& text, Face face, Colour colour, UINT format);

  HDC target_;
  Box area_;
  const Look& look_;
  HDC buffer_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ bitmap_before_ = nullptr;
  void* bits_ = nullptr;
};

// The height of `text` in lines of at most `width` pixels.
int ParagraphHeight(const Look& look, Face face, const std::wstring& text, int width);

}  // namespace tarnwell
