#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "ui/look/shapes.h"

namespace tarnwell {

// The program's own icons: lines on a field of 24 x 24.
enum class Glyph {
  kOpen,
  kSave,
  kPreview,
  kAdjust,
  kRestore,
  kZoom,
  kCompare,
  kTips,
  kHelp,
  kDefaults,
  kPresetOpen,
  kPresetSave,
  kPanel,
  kOptions,
  kChevronDown,
  kChevronRight,
  kChevronLeft,
  kReset,
  kCheck,
  kPhoto,
};

// The lines of a path in a small notation: "M x y" begins a line, "L x y ..." goes on straight,
// "C x y x y x y" in a cubic curve, "Z" back to the line's beginning, "O x y r" is a circle. A
// text that breaks the notation gives the lines up to there.
std::vector<Line> ParsePath(std::string_view path);

// The path of an icon on the field of 24 x 24.
std::string_view GlyphPath(Glyph glyph);

// Draws the icon as large as the smaller side of `box`, in its middle.
void DrawGlyph(MutablePixelView pixels, const Box& box, Glyph glyph, Colour colour);

// The program's own picture, as its icon shows it, filling `box` (a square). What lies outside the
// picture's round corners stays as it was.
void DrawProgramIcon(MutablePixelView pixels, const Box& box);

// The picture of the busy icon, a fast-forward symbol on the same ground.
void DrawBusyIcon(MutablePixelView pixels, const Box& box);

// A square picture with opacity, as icons need it: `draw` is given the pixels and their box, and
// what it leaves as it was is transparent. The colours come not multiplied by the opacity, which is
// in the unused channel.
PixelArray WithOpacity(int side, const std::function<void(MutablePixelView, const Box&)>& draw);

}  // namespace tarnwell
