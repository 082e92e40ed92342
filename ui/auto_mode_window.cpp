#include "ui/auto_mode_window.h"

#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 56 * kGrid;
constexpr int kMargin = 3 * kGrid;
constexpr int kIconSide = 4 * kGrid;
constexpr int kStatusHeight = 11 * kGrid;
constexpr int kDetailsHeight = 9 * kGrid;
constexpr int kHeight = kMargin + kStatusHeight + kFootHeight;  // without details

}  // namespace

AutoModeWindow::AutoModeWindow(const AutoMode& mode, const std::string& preset_path)
    : mode_(mode),
      preset_path_(preset_path),
      lblStatus_(look_, Ground::kPage, Face::kBody),
      details_(look_, Ground::kPage, Face::kCaption, true),
      close_(look_, Ground::kCard, ButtonKind::kAccent) {
  MakeDialog(Wide(frmAutoMode::kCaption), nullptr, kWidth, kHeight);
  lblStatus_.SetWrapped(true);
  lblStatus_.Create(handle(), L"");
  details_.SetWrapped(true);
  details_.Create(handle(), L"");
  close_.clicked = [this] { OnDismiss(); };
  close_.Create(handle(), Wide(frmAutoMode::kCloseButton));
  LayOut(Client());
}

void AutoModeWindow::Open() {
  Update();
  if (!IsWindowVisible(handle())) ShowCentred();
  SetForegroundWindow(handle());
  SetFocus(close_.handle());
}

void AutoModeWindow::Update() {
  lblStatus_.SetText(Wide(mode_.window.lblStatus));
  const std::wstring details = Details();
  if (details_.Text().empty() != details.empty()) {
    ResizeClient(kWidth, details.empty() ? kHeight : kHeight + kDetailsHeight);
  }
  details_.SetText(details);
  // At once, whatever begins now.
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

std::wstring AutoModeWindow::Details() const {
  std::wstring text;
  if (!preset_path_.empty()) text = L"Preset: " + Wide(preset_path_);
  // The newest first: what finds no room is the oldest.
  const auto& problems = mode_.window.problems;
  for (auto problem = problems.rbegin(); problem != problems.rend(); ++problem) {
    if (!text.empty()) text += L"\r\n";
    text += Wide(*problem);
  }
  return text;
}

void AutoModeWindow::LayOut(const Box& client) {
  if (!close_.handle()) return;
  const int margin = Px(kMargin);
  const int foot = client.height - Px(kFootHeight);
  const int left = margin + Px(kIconSide + 2 * kGrid);
  const int width = client.width - left - margin;
  lblStatus_.Place({left, margin, width, Px(kStatusHeight)});
  const int details = margin + Px(kStatusHeight);
  details_.Place({left, details, width, foot - details - Px(kGrid)});
  close_.Place(
      {client.width - margin - Px(12 * kGrid), foot + Px(12), Px(12 * kGrid), Px(4 * kGrid)});
}

void AutoModeWindow::PaintClient(Painter& painter, const Box& client) {
  PaintWithFoot(painter, client);
  const Box icon = {Px(kMargin), Px(kMargin), Px(kIconSide), Px(kIconSide)};
  if (mode_.worked) {
    painter.BusyIcon(icon);
  } else {
    painter.ProgramIcon(icon);
  }
}

}  // namespace tarnwell
