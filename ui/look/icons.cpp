#include "ui/look/icons.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>

namespace tarnwell {
namespace {

constexpr int kField = 24;
constexpr int kCurveSteps = 12;
constexpr int kCircleSteps = 32;

class PathText {
 public:
  explicit PathText(std::string_view text) : rest_(text) {}

  // The letter that comes next, if one does.
  std::optional<char> Letter() {
    SkipBlanks();
    if (rest_.empty() || rest_[0] < 'A' || rest_[0] > 'Z') return std::nullopt;
    const char letter = rest_[0];
    rest_.remove_prefix(1);
    return letter;
  }

  std::optional<double> Number() {
    SkipBlanks();
    double value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc()) return std::nullopt;
    rest_.remove_prefix(end - rest_.data());
    return value;
  }

  std::optional<Point> NextPoint() {
    const std::optional<double> x = Number();
    const std::optional<double> y = x ? Number() : std::nullopt;
    if (!y) return std::nullopt;
    return Point{*x, *y};
  }

 private:
  void SkipBlanks() {
    while (!rest_.empty() && rest_[0] == ' ') rest_.remove_prefix(1);
  }
  std::string_view rest_;
};

Line Circle(Point centre, double radius) {
  Line line;
  for (int step = 0; step <= kCircleSteps; ++step) {
    const double angle = 2 * std::numbers::pi * step / kCircleSteps;
    line.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return line;
}

void AddCurve(Line& line, Point b, Point c, Point d) {
  const Point a = line.back();
  for (int step = 1; step <= kCurveSteps; ++step) {
    const double t = static_cast<double>(step) / kCurveSteps;
    const double u = 1 - t;
    const std::array<double, 4> weight = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
    line.push_back({weight[0] * a.x + weight[1] * b.x + weight[2] * c.x + weight[3] * d.x,
                    weight[0] * a.y + weight[1] * b.y + weight[2] * c.y + weight[3] * d.y});
  }
}

// The curves behind a "C", as many as follow. False when one breaks off.
bool AddCurves(PathText& text, Line& line) {
  while (const std::optional<Point> b = text.NextPoint()) {
    const std::optional<Point> c = text.NextPoint();
    const std::optional<Point> d = c ? text.NextPoint() : std::nullopt;
    if (!d) return false;
    AddCurve(line, *b, *c, *d);
  }
  return true;
}

// Adds to `lines` what the command `letter` draws. False when the notation is broken.
bool Follow(PathText& text, char letter, std::vector<Line>& lines) {
  if (letter == 'O') {
    const std::optional<Point> centre = text.NextPoint();
    const std::optional<double> radius = centre ? text.Number() : std::nullopt;
    if (radius) lines.push_back(Circle(*centre, *radius));
    return radius.has_value();
  }
  if (letter == 'M') {
    const std::optional<Point> start = text.NextPoint();
    if (start) lines.push_back({*start});
    return start.has_value();
  }
  if (lines.empty()) return false;
  Line& line = lines.back();
  if (letter == 'Z') line.push_back(Point(line.front()));
  if (letter == 'L') {
    while (const std::optional<Point> next = text.NextPoint()) line.push_back(*next);
  }
  if (letter == 'C') return AddCurves(text, line);
  return letter == 'Z' || letter == 'L';
}

struct NamedPath {
  Glyph glyph;
  std::string_view path;
};

constexpr auto kPaths = std::to_array<NamedPath>({
    {Glyph::kOpen,
     "M3 18 L3 6.5 C3 5.5 3.5 5 4.5 5 L9 5 L11 7.5 L18 7.5 C19 7.5 19.5 8 19.5 9 L19.5 10.5 "
     "M3 18 L6 11.5 C6.2 10.9 6.6 10.5 7.4 10.5 L21 10.5 C21.6 10.5 21.8 11 21.6 11.5 L19 18 "
     "C18.8 18.6 18.4 19 17.8 19 L4 19 C3.3 19 3 18.6 3 18"},
    {Glyph::kSave, "M12 4 L12 14.5 M7.5 10.5 L12 15 L16.5 10.5 M4 16 L4 20 L20 20 L20 16"},
    {Glyph::kPreview,
     "M2.5 12 C5 7.5 8.2 5.5 12 5.5 C15.8 5.5 19 7.5 21.5 12 C19 16.5 15.8 18.5 12 18.5 "
     "C8.2 18.5 5 16.5 2.5 12 O12 12 3"},
    {Glyph::kAdjust,
     "M4 20 L14 10 M16.5 3 L16.5 7 M14.5 5 L18.5 5 M20 11 L20 14 M18.5 12.5 L21.5 12.5 "
     "M8 4 L8 7 M6.5 5.5 L9.5 5.5"},
    {Glyph::kRestore,
     "M4 5 L4 10 L9 10 M4.3 10 C5.5 6.8 8.5 4.5 12 4.5 C16.2 4.5 19.5 7.8 19.5 12 "
     "C19.5 16.2 16.2 19.5 12 19.5 C8.9 19.5 6.2 17.7 5 15"},
    {Glyph::kZoom,
     "O10.5 10.5 6.5 M15.3 15.3 L20.5 20.5 M7.5 10.5 L13.5 10.5 M10.5 7.5 L10.5 13.5"},
    {Glyph::kCompare,
     "M12 3 L12 21 M9.5 5 L5 5 C4.4 5 4 5.4 4 6 L4 18 C4 18.6 4.4 19 5 19 L9.5 19 "
     "M14.5 5 L19 5 C19.6 5 20 5.4 20 6 L20 18 C20 18.6 19.6 19 19 19 L14.5 19"},
    {Glyph::kTips,
     "M9 17.5 L15 17.5 M10 20.5 L14 20.5 M9.5 15 C9.5 13.5 6.5 12.5 6.5 9 C6.5 6 9 3.5 12 3.5 "
     "C15 3.5 17.5 6 17.5 9 C17.5 12.5 14.5 13.5 14.5 15"},
    {Glyph::kHelp,
     "O12 12 9 M9.3 9.5 C9.3 8 10.4 7 12 7 C13.6 7 14.7 8 14.7 9.4 C14.7 11.4 12 11.6 12 13.7 "
     "M12 16.8 L12 16.9"},
    {Glyph::kDefaults,
     "M6 4 L6 9.8 M6 14.2 L6 20 M12 4 L12 9.8 M12 14.2 L12 20 M18 4 L18 9.8 M18 14.2 L18 20 "
     "O6 12 2.2 O12 12 2.2 O18 12 2.2"},
    {Glyph::kPresetOpen, "M6 3.5 L18 3.5 L18 20.5 L12 16 L6 20.5 Z M9 8 L15 8 M9 11.5 L15 11.5"},
    {Glyph::kPresetSave, "M6 3.5 L18 3.5 L18 20.5 L12 16 L6 20.5 Z M12 7 L12 13 M9 10 L15 10"},
    {Glyph::kPanel,
     "M4 4.5 L20 4.5 L20 19.5 L4 19.5 Z M14 4.5 L14 19.5 M16.5 8 L17.5 8 "
     "M16.5 11.5 L17.5 11.5"},
    {Glyph::kOptions,
     "M3 7 L13 7 M17.5 7 L21 7 O15.2 7 2.2 M3 17 L6.5 17 M11 17 L21 17 O8.8 17 2.2"},
    {Glyph::kChevronDown, "M6 9.5 L12 15.5 L18 9.5"},
    {Glyph::kChevronRight, "M9.5 6 L15.5 12 L9.5 18"},
    {Glyph::kChevronLeft, "M14.5 6 L8.5 12 L14.5 18"},
    {Glyph::kReset,
     "M5 6 L5 10.5 L9.5 10.5 M5.3 10.5 C6.4 7.6 9 5.5 12 5.5 C15.9 5.5 19 8.6 19 12.5 "
     "C19 16.4 15.9 19.5 12 19.5 C9.6 19.5 7.5 18.3 6.2 16.5"},
    {Glyph::kCheck, "M5 12.5 L10 17.5 L19 7.5"},
    {Glyph::kPhoto,
     "M4 5 L20 5 C20.6 5 21 5.4 21 6 L21 18 C21 18.6 20.6 19 20 19 L4 19 C3.4 19 3 18.6 3 18 L3 6 "
     "C3 5.4 3.4 5 4 5 M3 16 L8.5 10.5 L13.5 15.5 L16 13 L21 17.5 O16 9 1.5"},
});

void DrawIconGround(MutablePixelView pixels, const Box& box) {
  const double scale = static_cast<double>(box.width) / kField;
  const int margin = static_cast<int>(std::lround(scale));
  FillRound(pixels, Inset(box, margin, margin), 5 * scale, Hex(0x0B7285));
}

std::vector<Line> OnBox(std::vector<Line> lines, const Box& box, double scale) {
  for (Line& line : lines) {
    for (Point& p : line) p = {box.x + p.x * scale, box.y + p.y * scale};
  }
  return lines;
}

}  // namespace

std::vector<Line> ParsePath(std::string_view path) {
  std::vector<Line> lines;
  PathText text(path);
  while (const std::optional<char> letter = text.Letter()) {
    if (!Follow(text, *letter, lines)) break;
  }
  return lines;
}

std::string_view GlyphPath(Glyph glyph) {
  for (const NamedPath& named : kPaths) {
    if (named.glyph == glyph) return named.path;
  }
  return {};
}

void DrawGlyph(MutablePixelView pixels, const Box& box, Glyph glyph, Colour colour) {
  const int side = std::min(box.width, box.height);
  const double scale = static_cast<double>(side) / kField;
  // Below 1.25 pixels a line is a grey haze.
  const double width = std::max(1.25, 1.6 * scale);
  StrokeLines(pixels, OnBox(ParsePath(GlyphPath(glyph)), Centred(box, side, side), scale), width,
              colour);
}

// A photo on a rounded ground: a mountain lake under the sun.
void DrawProgramIcon(MutablePixelView pixels, const Box& box) {
  const double scale = static_cast<double>(box.width) / kField;
  const auto place = [&](std::string_view path) {
    return OnBox(ParsePath(path), box, scale).front();
  };
  DrawIconGround(pixels, box);
  FillCircle(pixels, {box.x + 16.5 * scale, box.y + 8 * scale}, 2.2 * scale, Hex(0xFFE8A3));
  FillPolygon(pixels, place("M3.5 16 L9.2 7.5 L13.6 13.8 L15.4 11.8 L20.5 16"), Hex(0xE6F6F8));
  FillPolygon(pixels, place("M9.2 7.5 L11.3 10.5 L10 10 L9 11.2 L7.6 9.9"), Hex(0x9AD6E0));
  StrokeLines(pixels, std::array{place("M5 18.6 L19 18.6"), place("M8 20.6 L16 20.6")}, 1.1 * scale,
              Hex(0x8FD3DE));
}

void DrawBusyIcon(MutablePixelView pixels, const Box& box) {
  const double scale = static_cast<double>(box.width) / kField;
  DrawIconGround(pixels, box);
  for (const char* arrow : {"M4.5 6 L12 12 L4.5 18", "M12 6 L19.5 12 L12 18"}) {
    FillPolygon(pixels, OnBox(ParsePath(arrow), box, scale).front(), Hex(0xFFE8A3));
  }
}

// Drawn once on black and once on white, a pixel's opacity is what both have in common.
PixelArray WithOpacity(int side, const std::function<void(MutablePixelView, const Box&)>& draw) {
  const Box box = {0, 0, side, side};
  PixelArray picture(side, side);
  PixelArray on_white(side, side);
  FillBox(on_white.mutable_view(), box, Hex(0xFFFFFF));
  draw(picture.mutable_view(), box);
  draw(on_white.mutable_view(), box);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      std::uint8_t* pixel = picture.mutable_view().at(x, y);
      const int opacity = 255 - (on_white.view().at(x, y)[kGreen] - pixel[kGreen]);
      for (const int channel : {kBlue, kGreen, kRed}) {
        const int colour = opacity > 0 ? pixel[channel] * 255 / opacity : 0;
        pixel[channel] = static_cast<std::uint8_t>(std::min(colour, 255));
      }
      pixel[kUnused] = static_cast<std::uint8_t>(opacity);
    }
  }
  return picture;
}

}  // namespace tarnwell
