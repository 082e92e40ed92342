#include "ui/rotation_row.h"

#include <array>

#include "engine/final_rotation.h"
#include "modules/frm_modules.h"
#include "shell/form1.h"
#include "ui/buttons.h"

namespace tarnwell {
namespace {

constexpr std::array<const wchar_t*, kTurnCount> kTurnNames = {
    L"Turn anticlockwise", L"Turn clockwise", L"Turn by half", L"Turn upside down",
    L"Exchange left and right"};

// A little landscape as the turn leaves it, so that the choice is seen and not read.
void PaintTurn(Painter& painter, const Box& client, Turn turn, Colour colour) {
  const auto turned = [turn](double u, double v) -> Point {
    switch (turn) {
      case Turn::kAnticlockwise:
        return {v, 1 - u};
      case Turn::kClockwise:
        return {1 - v, u};
      case Turn::kHalf:
        return {1 - u, 1 - v};
      case Turn::kUpsideDown:
        return {u, 1 - v};
      case Turn::kLeftRight:
        return {1 - u, v};
    }
    return {u, v};
  };
  const double side = client.width * 0.5;
  const double left = client.x + (client.width - side) / 2;
  const double top = client.y + (client.height - side) / 2;
  const auto place = [&](double u, double v) {
    const Point p = turned(u, v);
    return Point{left + p.x * side, top + p.y * side};
  };
  const std::array<Line, 2> lines = {
      Line{place(0, 0), place(1, 0), place(1, 1), place(0, 1), place(0, 0)},
      Line{place(0, 0.85), place(0.35, 0.4), place(0.6, 0.75), place(0.75, 0.6), place(1, 0.85)}};
  painter.Lines(lines, painter.look().scale.Exact(1.5), colour);
  painter.Disc(place(0.75, 0.28), side * 0.09, colour);
}

}  // namespace

PanelParts MakeRotationRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kSide = 48;
  frmModules& panel = host.form.modules;
  PanelParts parts;
  for (int turn = 0; turn < kTurnCount; ++turn) {
    auto button = std::make_unique<PictureButton>(
        look, [turn](Painter& painter, const Box& client, Colour colour) {
          PaintTurn(painter, client, static_cast<Turn>(turn), colour);
        });
    PictureButton* made = button.get();
    button->clicked = [&host, &panel, turn] { host.command([&] { panel.rotation = turn; }); };
    button->Create(parent, kTurnNames[turn]);
    button->SetTip(kTurnNames[turn]);
    parts.push_back(
        {std::move(button),
         [&look, turn](const Box& row) {
           const int side = look.Px(kSide);
           return Box{row.x + turn * (side + look.Px(kPartGap)), row.y + look.Px(4), side, side};
         },
         [made, &panel, turn] { made->SetChosen(panel.rotation == turn); }});
  }
  return parts;
}

}  // namespace tarnwell
