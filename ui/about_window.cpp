#include "ui/about_window.h"

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 48 * kGrid;
constexpr int kHeight = 30 * kGrid;
constexpr int kMargin = 3 * kGrid;
constexpr int kIconSide = 8 * kGrid;

}  // namespace

AboutWindow::AboutWindow(HWND owner, bool& power_toys, std::function<void()> toggle_power_toys)
    : name_(look_, Ground::kPage, Face::kTitle),
      version_(look_, Ground::kPage, Face::kBody, true),
      purpose_(look_, Ground::kPage, Face::kBody),
      power_toys_(look_, Ground::kPage),
      close_(look_, Ground::kCard, ButtonKind::kAccent) {
  MakeDialog(L"About Tarnwell Pocket", owner, kWidth, kHeight);
  name_.Create(handle(), L"Tarnwell Pocket");
  version_.Create(handle(), L"Version " + Wide(TARNWELL_VERSION));
  purpose_.SetWrapped(true);
  purpose_.Create(handle(), L"Corrects photos that were taken with phone cameras.");
  power_toys_.is_on = [&power_toys] { return power_toys; };
  power_toys_.clicked = [this, toggle = std::move(toggle_power_toys)] {
    toggle();
    power_toys_.Update();
  };
  power_toys_.Create(handle(), L"Show the &power toys in the Tools menu");
  close_.clicked = [this] { OnDismiss(); };
  close_.Create(handle(), L"&Close");
  LayOut(Client());
}

void AboutWindow::Open() {
  power_toys_.Update();
  ShowCentred();
  SetFocus(close_.handle());
}

Box AboutWindow::IconBox() const {
  return {Px(kMargin), Px(kMargin), Px(kIconSide), Px(kIconSide)};
}

void AboutWindow::LayOut(const Box& client) {
  if (!close_.handle()) return;
  const Box icon = IconBox();
  const int left = icon.right() + Px(2 * kGrid);
  const int width = client.width - left - Px(kMargin);
  name_.Place({left, icon.y + Px(4), width, Px(3 * kGrid)});
  version_.Place({left, icon.y + Px(4 * kGrid), width, Px(3 * kGrid)});
  purpose_.Place(
      {Px(kMargin), icon.bottom() + Px(2 * kGrid), client.width - 2 * Px(kMargin), Px(5 * kGrid)});
  const int foot = client.height - Px(kFootHeight);
  power_toys_.Place(
      {Px(kMargin), foot - Px(5 * kGrid), client.width - 2 * Px(kMargin), Px(3 * kGrid)});
  close_.Place(
      {client.width - Px(kMargin + 12 * kGrid), foot + Px(12), Px(12 * kGrid), Px(4 * kGrid)});
}

void AboutWindow::PaintClient(Painter& painter, const Box& client) {
  PaintWithFoot(painter, client);
  painter.ProgramIcon(IconBox());
}

}  // namespace tarnwell
