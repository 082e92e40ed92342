#include "ui/tips_window.h"

#include "shell/tips.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 48 * kGrid;
constexpr int kHeight = 42 * kGrid;
constexpr int kMargin = 3 * kGrid;
constexpr int kButtonHeight = 4 * kGrid;

}  // namespace

TipsWindow::TipsWindow(HWND owner, Tips& tips)
    : tips_(tips),
      heading_(look_, Ground::kPage, Face::kTitle),
      text_(look_, Ground::kPage, Face::kBody),
      hide_this_(look_, Ground::kPage),
      hide_all_(look_, Ground::kPage),
      back_(look_, Ground::kCard, ButtonKind::kPlain),
      next_(look_, Ground::kCard, ButtonKind::kPlain),
      close_(look_, Ground::kCard, ButtonKind::kAccent) {
  MakeDialog(L"Tips", owner, kWidth, kHeight);
  heading_.Create(handle(), L"");
  text_.SetWrapped(true);
  text_.Create(handle(), L"");
  hide_this_.is_on = [this] { return tips_.hidden[tip_ - 1]; };
  hide_this_.clicked = [this] {
    HideTip(tips_, tip_, !tips_.hidden[tip_ - 1]);
    hide_this_.Update();
  };
  hide_this_.Create(handle(), L"Do not show &this tip again");
  hide_all_.is_on = [this] { return tips_.never_show; };
  hide_all_.clicked = [this] {
    tips_.never_show = !tips_.never_show;
    hide_all_.Update();
  };
  hide_all_.Create(handle(), L"Do not show &any tips");
  back_.clicked = [this] { ShowTip(NeighbourTip(tip_, -1)); };
  back_.Create(handle(), L"&Back");
  next_.clicked = [this] { ShowTip(NeighbourTip(tip_, 1)); };
  next_.Create(handle(), L"&Next");
  close_.clicked = [this] { OnDismiss(); };
  close_.Create(handle(), L"&Close");
  LayOut(Client());
}

void TipsWindow::ShowTip(int tip) {
  tip_ = tip;
  heading_.SetText(L"Tip " + std::to_wstring(tip) + L" of " + std::to_wstring(kTipCount));
  text_.SetText(Wide(TipText(tip)));
  hide_this_.Update();
  hide_all_.Update();
  Invalidate();
}

void TipsWindow::Open(int tip, bool asked_for) {
  ShowTip(tip);
  // Over the module panel: a tip about the preview must not hide it.
  if (!IsWindowVisible(handle())) ShowAtRight();
  if (asked_for) SetForegroundWindow(handle());
}

Box TipsWindow::IconBox() const { return {Px(kMargin), Px(3 * kGrid), Px(28), Px(28)}; }

void TipsWindow::LayOut(const Box& client) {
  if (!close_.handle()) return;
  const Box icon = IconBox();
  const int heading = icon.right() + Px(kGrid);
  heading_.Place({heading, icon.y, client.width - heading - Px(kMargin), icon.height});
  const int margin = Px(kMargin);
  const int inner = client.width - 2 * margin;
  const int foot = client.height - Px(kFootHeight);
  const int text_top = Px(8 * kGrid);
  hide_all_.Place({margin, foot - Px(5 * kGrid), inner, Px(3 * kGrid)});
  hide_this_.Place({margin, foot - Px(8 * kGrid) - Px(4), inner, Px(3 * kGrid)});
  text_.Place({margin, text_top, inner, foot - Px(9 * kGrid) - text_top});
  const int top = foot + Px(12);
  const int width = Px(11 * kGrid);
  back_.Place({margin, top, width, Px(kButtonHeight)});
  next_.Place({margin + width + Px(kGrid), top, width, Px(kButtonHeight)});
  close_.Place({client.width - margin - width, top, width, Px(kButtonHeight)});
}

void TipsWindow::PaintClient(Painter& painter, const Box& client) {
  PaintWithFoot(painter, client);
  painter.Icon(IconBox(), Glyph::kTips, theme().accent);
}

}  // namespace tarnwell
