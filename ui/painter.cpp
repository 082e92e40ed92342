#include "ui/painter.h"

#include <cstring>

#include "ui/look/smooth_scale.h"

namespace tarnwell {
namespace {

// Paths have no blanks to break at: a word that is too long is broken anywhere.
constexpr UINT kParagraph = DT_LEFT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;

// A caption without the marks of its access key; "&&" stands for the letter itself.
std::wstring WithoutMarks(const std::wstring& caption) {
  std::wstring text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

}  // namespace

Painter::Painter(HDC target, const Box& area, const Look& look)
    : target_(target), area_(area), look_(look), buffer_(CreateCompatibleDC(target)) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = area.width;
  info.bmiHeader.biHeight = -area.height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  if (!area.empty()) {
    bitmap_ = CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
  }
  if (bitmap_) bitmap_before_ = SelectObject(buffer_, bitmap_);
  SetBkMode(buffer_, TRANSPARENT);
}

Painter::~Painter() {
  if (bitmap_) {
    BitBlt(target_, area_.x, area_.y, area_.width, area_.height, buffer_, 0, 0, SRCCOPY);
    SelectObject(buffer_, bitmap_before_);
    DeleteObject(bitmap_);
  }
  DeleteDC(buffer_);
}

MutablePixelView Painter::Pixels() {
  if (!bits_) return {};
  GdiFlush();
  return {static_cast<std::uint8_t*>(bits_), area_.width, area_.height};
}

void Painter::Fill(const Box& box, Colour colour) { FillBox(Pixels(), Here(box), colour); }

void Painter::Round(const Box& box, double radius, Colour colour, double opacity) {
  FillRound(Pixels(), Here(box), radius, colour, opacity);
}

void Painter::Outline(const Box& box, double radius, double width, Colour colour) {
  StrokeRound(Pixels(), Here(box), radius, width, colour);
}

void Painter::Disc(Point centre, double radius, Colour colour) {
  FillCircle(Pixels(), Here(centre), radius, colour);
}

void Painter::Ring(Point centre, double radius, double width, Colour colour) {
  StrokeCircle(Pixels(), Here(centre), radius, width, colour);
}

void Painter::Lines(std::span<const Line> lines, double width, Colour colour) {
  std::vector<Line> moved(lines.begin(), lines.end());
  for (Line& line : moved) {
    for (Point& p : line) p = Here(p);
  }
  StrokeLines(Pixels(), moved, width, colour);
}

void Painter::Icon(const Box& box, Glyph glyph, Colour colour) {
  DrawGlyph(Pixels(), Here(box), glyph, colour);
}

void Painter::Image(const Box& box, const PixelView& picture) {
  DrawSmooth(Pixels(), Here(box), picture);
}

void Painter::ProgramIcon(const Box& box) { DrawProgramIcon(Pixels(), Here(box)); }

void Painter::BusyIcon(const Box& box) { DrawBusyIcon(Pixels(), Here(box)); }

void Painter::Copy(int x, int y, const PixelView& picture) {
  const MutablePixelView pixels = Pixels();
  const Box place = Here(Box{x, y, picture.width, picture.height});
  const Box area = Intersection(place, {0, 0, pixels.width, pixels.height});
  for (int row = area.y; row < area.bottom(); ++row) {
    std::memcpy(pixels.at(area.x, row), picture.at(area.x - place.x, row - place.y),
                static_cast<std::size_t>(area.width) * kBytesPerPixel);
  }
}

void Painter::Convert(const Box& box, const ColourCube* colours) {
  if (!colours) return;
  const MutablePixelView pixels = Pixels();
  const Box area = Intersection(Here(box), {0, 0, pixels.width, pixels.height});
  if (area.width <= 0) return;
  for (int row = area.y; row < area.bottom(); ++row) {
    colours->Convert(pixels.at(area.x, row), static_cast<std::size_t>(area.width));
  }
}

int Painter::Draw(const Box& box, const std::wstring& text, Face face, Colour colour, UINT format) {
  if (!bits_) return 0;
  RECT rect = ToRect(Here(box));
  const HGDIOBJ before = SelectObject(buffer_, look_.fonts.Get(face));
  SetTextColor(buffer_, ToColorRef(colour));
  const int height = DrawTextW(buffer_, text.data(), static_cast<int>(text.size()), &rect, format);
  SelectObject(buffer_, before);
  return height;
}

// Access keys are underlined only while the keyboard is in use.
void Painter::Text(const Box& box, const std::wstring& text, Face face, Colour colour, UINT align) {
  const bool unmarked = !(align & DT_NOPREFIX) && !look_.show_focus;
  const UINT format = align | (unmarked ? DT_NOPREFIX : 0);
  Draw(box, unmarked ? WithoutMarks(text) : text, face, colour,
       format | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
}

int Painter::Paragraph(const Box& box, const std::wstring& text, Face face, Colour colour) {
  return Draw(box, text, face, colour, kParagraph);
}

void Painter::Focus(const Box& box, double radius) {
  Outline(box, radius, look_.scale.Exact(2), theme().accent);
}

int ParagraphHeight(const Look& look, Face face, const std::wstring& text, int width) {
  HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, look.fonts.Get(face));
  RECT rect = {0, 0, width, 0};
  DrawTextW(screen, text.data(), static_cast<int>(text.size()), &rect, kParagraph | DT_CALCRECT);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return rect.bottom;
}

}  // namespace tarnwell
